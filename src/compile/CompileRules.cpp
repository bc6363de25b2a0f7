#include "compile/CompileRules.h"

#include "app/Numbers.h"
#include "platform/CommandText.h"

#include <iterator>
#include <limits>

namespace ardiphon {

namespace {

QString twoDigits(int number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); }

} // namespace

QString CompileLogFile(const QString &rootPath) { return rootPath + QLatin1String("tmp.txt"); }

QString csdParameters(const QString &csdFileName, const QString &rootPath)
{
    return quoted(csdFileName) + QLatin1String(" -O") + CompileLogFile(rootPath);
}

QString nextProgressText(const QString &text)
{
    static const QString cycle[] = {FirstProgressText, QStringLiteral("Compiling ."),
                                    QStringLiteral("Compiling .."),
                                    QStringLiteral("Compiling ...")};
    for (std::size_t i = 0; i < std::size(cycle); ++i)
        if (text == cycle[i])
            return cycle[(i + 1) % std::size(cycle)];
    return text;
}

QString bannerText(qint64 milliseconds)
{
    const int elapsed =
        roundedWithin(double(milliseconds) / 1000, 0, std::numeric_limits<int>::max());
    const QString line = QString(50, u'=') + QLatin1String("\r\n");
    return line +
           QStringLiteral("Finished!!!\r\nElapsed time (mm:ss) -> %1:%2 \r\n")
               .arg(twoDigits(elapsed / 60), twoDigits(elapsed % 60)) +
           line;
}

QString logHeading() { return QStringLiteral("\r\n\r\nCSound Compiler Details:\r\n"); }

} // namespace ardiphon
