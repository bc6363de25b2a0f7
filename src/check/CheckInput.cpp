#include "check/CheckInput.h"

#include "compile/CompilerEnvironment.h"
#include "platform/StartDetached.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// The lines between the tags of a section; empty where it is not there or has no end.
LineRun sectionLines(const Piece &piece, const PieceText &text, const char *name)
{
    LineRun lines;
    bool isOpen = false;
    text.visit(1, text.lineCount(), kindsOf(LandmarkKind::SectionBegin, LandmarkKind::SectionEnd),
               [&](PlacedLandmark found) {
                   if (piece.nameOf(*found.mark) != name)
                       return true;
                   if (found.mark->kind == LandmarkKind::SectionBegin) {
                       lines.first = found.line + 1;
                       isOpen = true;
                   } else {
                       lines.last = found.line - 1;
                   }
                   return found.mark->kind == LandmarkKind::SectionBegin;
               });
    return isOpen && lines.last > 0 ? lines : LineRun();
}

QByteArray textOf(const PieceText &text, LineRun lines)
{
    QByteArray bytes;
    for (int line = lines.first; line <= lines.last; ++line) {
        const QByteArrayView next = text.line(line);
        bytes.append(next.data(), next.size()).append('\n');
    }
    return bytes;
}

/// Whether the tag of the score names a program that makes it.
bool isMadeByAProgram(const PieceText &text, LineRun score)
{
    return score.first > 1 && text.line(score.first - 1).toByteArray().contains("bin");
}

const QString IncludeFolders = QStringLiteral("INCDIR");

/// Those that the user has chosen, behind that of the document.
QString includeFolders(const QString &documentFolder)
{
    const QString chosen = environmentVariable(IncludeFolders).value_or(QString());
    return chosen.isEmpty() ? documentFolder : documentFolder + u';' + chosen;
}

bool isKept(const QString &option)
{
    static const QStringList kept = {
        QStringLiteral("--omacro:"),       QStringLiteral("--smacro:"),
        QStringLiteral("--env:"),          QStringLiteral("--sample-rate="),
        QStringLiteral("--ksmps="),        QStringLiteral("--nchnls="),
        QStringLiteral("--control-rate="), QStringLiteral("--nchnls_i="),
        QStringLiteral("--0dbfs="),
    };
    return std::any_of(kept.begin(), kept.end(),
                       [&](const QString &each) { return option.startsWith(each); });
}

/// Whether that is the rate of the signals or of control: -r or -k.
bool isRate(const QString &option)
{
    return option.startsWith(QLatin1String("-r")) || option.startsWith(QLatin1String("-k"));
}

} // namespace

CheckInput checkInputOf(const Piece &piece)
{
    CheckInput input;
    const PieceText &orchestra = *piece.orchestra();
    const PieceText &score = *piece.score();
    input.isUnified = orchestra.role() == DocumentRole::Csd;
    if (input.isUnified) {
        input.orchestra.lines = sectionLines(piece, orchestra, "CsInstruments");
        input.score.lines = sectionLines(piece, score, "CsScore");
        input.options = checkedOptions(
            QString::fromUtf8(textOf(orchestra, sectionLines(piece, orchestra, "CsOptions"))));
    } else {
        input.orchestra.lines = {1, orchestra.lineCount()};
        input.score.lines = {1, score.lineCount()};
    }
    const LineRun lines = input.score.lines;
    input.isTooLong =
        input.orchestra.lines.last - input.orchestra.lines.first >= LongestCheckedOrchestra;
    if (input.isTooLong)
        return input;
    input.orchestraText = textOf(orchestra, input.orchestra.lines);
    const bool isChecked = lines.last - lines.first < LongestCheckedScore &&
                           !(input.isUnified && isMadeByAProgram(score, lines));
    input.scoreText = (isChecked ? textOf(score, lines) : QByteArray()) + "\ne\n";
    return input;
}

CheckInput compiledLines(const Piece &piece, const QString &orchestra, const QString &score)
{
    CheckInput input = checkInputOf(piece);
    input.orchestra.fileName = orchestra;
    input.score.fileName = input.isUnified ? orchestra : score;
    for (CheckedLines *each : {&input.orchestra, &input.score})
        each->firstNumber = each->lines.first;
    return input;
}

QStringList checkedOptions(const QString &text)
{
    QStringList kept;
    for (const QString &line : text.split(u'\n')) {
        const QStringList options =
            line.section(u';', 0, 0).simplified().split(u' ', Qt::SkipEmptyParts);
        for (qsizetype i = 0; i < options.size(); ++i) {
            if (isKept(options[i])) {
                kept.append(options[i]);
            } else if (isRate(options[i])) {
                bool isWhole = false;
                const QString flag = options[i].first(2);
                const QString value =
                    options[i].size() > 2 ? options[i].sliced(2) : options.value(++i);
                const double rate = value.toDouble(&isWhole);
                if (isWhole && rate > 0)
                    kept.append(flag + value);
            }
        }
    }
    return kept;
}

ProgramCommand checkCommand(const QString &compiler, const CheckInput &input, const QString &folder,
                            const QString &documentFolder)
{
    ProgramCommand command{
        compiler, {}, ExecutableDirectory(compiler), compilerEnvironment(documentFolder)};
    command.environment.append({QStringLiteral("TMPDIR"), folder});
    if (input.isUnified)
        command.environment.append({IncludeFolders, includeFolders(documentFolder)});
    command.arguments = {QStringLiteral("--syntax-check-only"), QStringLiteral("-d")};
    command.arguments += input.options;
    command.arguments += {folder + input.orchestra.fileName, folder + input.score.fileName};
    return command;
}

} // namespace ardiphon
