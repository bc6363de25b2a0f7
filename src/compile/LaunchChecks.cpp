#include "compile/CsdCompileCheck.h"

namespace ardiphon {

bool csOptionsNameLog(const QString &text)
{
    const qsizetype start = text.indexOf(QLatin1String("<CsOptions>"));
    const qsizetype end = start < 0 ? -1 : text.indexOf(QLatin1String("</CsOptions>"), start);
    return end >= 0 && QStringView(text).mid(start, end - start).contains(QLatin1String("-O"));
}

LaunchDecision checkCsdCompile(const QString &csdFileName, bool modified, const QString &text,
                               const QString &fileCSound)
{
    const auto refuse = [](const QString &words, const QString &title = ProgramTitle) {
        return LaunchDecision{false, Message{words, title}};
    };
    if (csdFileName.isEmpty() || csdFileName == QLatin1String("[Untitled]"))
        return refuse(QStringLiteral("No name associated to File!\r\nYou must save it with a valid "
                                     "name before start CSound compiler (CTRL+S)"));
    if (modified)
        return refuse(QStringLiteral("File has changed!\r\nYou must save it before start CSound "
                                     "compiler (CTRL+S)"));
    if (text.isEmpty())
        return {};
    if (fileCSound.isEmpty())
        return refuse(QStringLiteral("Cannot find CSound.exe!\r\n"
                                     "Select File->Settings->Csound.exe!"));
    if (csOptionsNameLog(text))
        return refuse(QStringLiteral("Don't use '-O' flag in Ardiphon!"), QStringLiteral("Error"));
    return {true, std::nullopt};
}

} // namespace ardiphon
