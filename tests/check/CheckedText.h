#pragma once

#include "check/CheckRun.h"
#include "check/CompilerProblems.h"
#include "language/WordTables.h"
#include "piece/PieceLines.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

/// The opcodes of the word tables.
inline ardiphon::WordTables &checkWordTables()
{
    static ardiphon::WordTables tables;
    if (tables.OpcodeCount == 0)
        tables.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    return tables;
}

inline ardiphon::OpcodeWords checkOpcodeWords()
{
    return {checkWordTables().OpcodeNames, [](const QString &name) {
                ardiphon::WordTables &tables = checkWordTables();
                const int record = tables.FindInTable(name);
                return record > 0 && tables.ReadOpcodeRecord(record)
                           ? tables.OpcodeRecord.Parameters.trimmed()
                           : QString();
            }};
}

/// A unified piece that was checked by the real compiler.
struct CheckedText
{
    explicit CheckedText(const QByteArray &text)
        : lines(text), piece({{ardiphon::DocumentRole::Csd, &lines}}, [](QByteArrayView name) {
              return checkWordTables().FindInTable(QString::fromUtf8(name)) > 0;
          })
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        const ardiphon::CheckInput input = checkInputOf(piece);
        ardiphon::CheckRun run;
        QObject::connect(&run, &ardiphon::CheckRun::finished,
                         [this](const ardiphon::CheckResult &found) { result = found; });
        QSignalSpy finished(&run, &ardiphon::CheckRun::finished);
        QTemporaryDir folder;
        run.start(QStandardPaths::findExecutable(QStringLiteral("csound")), input,
                  folder.path() + u'/', folder.path());
        isFinished = finished.count() == 1 || finished.wait(10000);
        problems =
            problemsOf(result.messages, {piece, input.orchestra, input.score}, checkOpcodeWords());
    }

    /// Each as "line:column text: sentence".
    QStringList described() const
    {
        QStringList all;
        for (const ardiphon::Problem &problem : problems) {
            const ardiphon::PiecePlace &place = problem.place;
            all.append(
                QStringLiteral("%1:%2 %3: %4")
                    .arg(place.line)
                    .arg(place.column)
                    .arg(QString::fromUtf8(lines.line(place.line)).mid(place.column, place.length),
                         problem.sentence));
        }
        return all;
    }

    PieceTextLines lines;
    ardiphon::Piece piece;
    ardiphon::CheckResult result;
    QList<ardiphon::Problem> problems;
    bool isFinished = false;
};
