#include "documents/Conversion.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// The tags begin and end with characters that are not part of a word, so each match is a whole
/// word.
std::optional<QString> partOf(const QString &csd, QLatin1String section)
{
    const QString opening = u'<' + section + u'>';
    const qsizetype start = csd.indexOf(opening);
    const qsizetype end = csd.indexOf(QLatin1String("</") + section + u'>');
    if (start < 0 || end < 0)
        return std::nullopt;
    const qsizetype inside = start + opening.size();
    return csd.mid(inside, std::max<qsizetype>(end - inside, 0));
}

} // namespace

std::optional<QString> orchestraOfCsd(const QString &csd)
{
    return partOf(csd, QLatin1String("CsInstruments"));
}

std::optional<QString> scoreOfCsd(const QString &csd)
{
    return partOf(csd, QLatin1String("CsScore"));
}

QString csdText(const QString &orchestra, const QString &score)
{
    return QStringLiteral("<CsoundSynthesizer>\r\n\r\n"
                          "<CsOptions>\r\n</CsOptions>\r\n\r\n"
                          "<CsInstruments>\r\n\r\n") +
           orchestra +
           QStringLiteral("\r\n\r\n</CsInstruments>\r\n\r\n"
                          "<CsScore>\r\n\r\n") +
           score +
           QStringLiteral("\r\n\r\n</CsScore>\r\n\r\n"
                          "</CsoundSynthesizer>\r\n\r\n");
}

QString proposedName(const QString &path, const QString &ending)
{
    if (path.isEmpty())
        return {};
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    return name.left(std::max<qsizetype>(name.size() - 4, 0)) + ending;
}

Message conversionError()
{
    return {QStringLiteral("Conversion Error!"), QStringLiteral("Error!"), MessageIcon::Critical};
}

} // namespace ardiphon
