// How much of the process's time the editor control takes for what its user waits for, as medians.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "language/TokenColors.h"

#include <QAccessible>
#include <QKeyEvent>

using namespace ardiphon;

namespace measure::editor {

void open(LEditOCX &editor, const QString &path)
{
    editor.ClearDocument();
    if (!editor.LoadFile(path))
        qFatal("cannot load %s", qPrintable(path));
    measure::paint(editor);
}

double keystroke(LEditOCX &editor)
{
    return measure::processTime([&] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QApplication::sendEvent(editor.focusProxy(), &press);
        QApplication::processEvents();
    });
}

void measureKeystroke(LEditOCX &editor, const char *what, int lines, int line, double limit)
{
    measure::goTo(editor, line);
    measure::paint(editor);
    measure::row(what, lines, measure::medianOf(101, [&] { return keystroke(editor); }), "ms",
                 limit);
}

void measureOpening(LEditOCX &editor, int lines, const QString &path)
{
    const double before = measure::ownMegabytes();
    measure::row(
        "open", lines,
        measure::medianOf(5, [&] { return measure::processTime([&] { open(editor, path); }); }),
        "ms", 400);
    measure::row("open, memory", lines, measure::ownMegabytes() - before, "MB", lines * 112e-6 + 4);
    measure::row("jump to the end", lines,
                 measure::medianOf(5,
                                   [&] {
                                       open(editor, path);
                                       return measure::processTime([&] {
                                           measure::goTo(editor, editor.LineCount());
                                           measure::paint(editor);
                                       });
                                   }),
                 "ms", 300);
}

void measureKeystrokes(LEditOCX &editor, int lines)
{
    measureKeystroke(editor, "keystroke at the top", lines, 1, 1);
    measureKeystroke(editor, "keystroke in the middle", lines, lines / 2, 1);
    measureKeystroke(editor, "keystroke at the end", lines, lines - 1, 1);
    QAccessible::setActive(true);
    measureKeystroke(editor, "keystroke with an assistive tool", lines, lines / 2, 0);
    QAccessible::setActive(false);
}

void measureSearch(LEditOCX &editor, int lines, const QString &path)
{
    open(editor, path);
    editor.SetFindDirection(2);
    editor.SetFindWholeWord(false);
    editor.SetFindText(QStringLiteral("i1 nowhere"));
    measure::row(
        "search without a match", lines,
        measure::medianOf(9, [&] { return measure::processTime([&] { editor.FindFirst(); }); }),
        "ms", 100);
}

/// A match in each line, up to 100,000 of them.
void measureReplaceAll(LEditOCX &editor, int lines, const QString &path)
{
    if (lines > 100'000)
        return;
    measure::row("replace a match in each line", lines,
                 measure::medianOf(5,
                                   [&] {
                                       open(editor, path);
                                       editor.SetFindText(QStringLiteral("i1"));
                                       editor.SetFindWholeWord(true);
                                       editor.SetReplaceText(QStringLiteral("i22"));
                                       return measure::processTime([&] {
                                           editor.ReplaceAll();
                                           measure::paint(editor);
                                       });
                                   }),
                 "ms", 1000);
}

/// Of every ten lines nine are hidden.
QList<LineRun> blocksOfTen(int lines)
{
    QList<LineRun> blocks;
    for (int line = 1; line + 9 <= lines; line += 10)
        blocks.append({line + 1, line + 9});
    return blocks;
}

void measureFolds(LEditOCX &editor, int lines, const QString &path)
{
    const QList<LineRun> blocks = blocksOfTen(lines);
    const auto fold = [&](const QList<LineRun> &runs) {
        return measure::processTime([&] {
            editor.FoldLines(runs);
            measure::paint(editor);
        });
    };
    const auto unfold = [&] {
        return measure::processTime([&] {
            editor.UnfoldAll();
            measure::paint(editor);
        });
    };
    open(editor, path);
    measure::row("fold one block, the first time", lines, fold({{12, 20}}), "ms", 500);
    measure::row("fold every block of ten lines", lines, fold(blocks), "ms", 1000);
    measureKeystroke(editor, "keystroke with all blocks folded", lines, lines / 20 * 10 + 1, 1);
    measure::row("unfold all", lines, unfold(), "ms", 1000);
    measureKeystroke(editor, "keystroke with all unfolded again", lines, lines / 2, 1);
    editor.FoldLines({{12, lines - 10}});
    measureKeystroke(editor, "keystroke over one fold of all", lines, 5, 1);
    measureKeystroke(editor, "keystroke behind one fold of all", lines, lines - 5, 1);
}

void measureLongLine(LEditOCX &editor, const QString &path)
{
    const auto openAndJump = [&] {
        open(editor, path);
        measure::goTo(editor, 101);
        measure::paint(editor);
        measure::goTo(editor, 101, editor.LineLength(101));
        measure::paint(editor);
    };
    measure::row("open a line of 5 MB, go to its end", measure::NoSize,
                 measure::medianOf(3, [&] { return measure::processTime(openAndJump); }), "ms",
                 500);
    measureKeystroke(editor, "keystroke in a line of 5 MB", measure::NoSize, 101, 1000);
    int column = 0;
    measure::row("another part of a line of 5 MB", measure::NoSize,
                 measure::medianOf(9,
                                   [&] {
                                       column += 100'000;
                                       return measure::processTime([&] {
                                           measure::goTo(editor, 101, column);
                                           measure::paint(editor);
                                       });
                                   }),
                 "ms", 20);
}

BENCHMARK(editor)
{
    QApplication application(argc, argv);
    measure::Program program;
    LEditOCX editor;
    editor.SetGetTokenColors([&](TokenKind kind, const QString &text) {
        return GetTokenColors(program.config, DocumentRole::Score, kind, text);
    });
    editor.resize(1000, 800);
    editor.show();
    measure::paint(editor);

    for (const int lines : measure::Sizes) {
        const QString path = measure::write(program.folder, "large.sco", measure::score(lines));
        measureOpening(editor, lines, path);
        measureKeystrokes(editor, lines);
        measureSearch(editor, lines, path);
        measureReplaceAll(editor, lines, path);
        measureFolds(editor, lines, path);
    }
    const QByteArray longLine = QByteArray("440.25 ").repeated(5 * 1024 * 1024 / 7);
    measureLongLine(editor,
                    measure::write(program.folder, "line.sco", measure::score(100) + longLine));
    return 0;
}

} // namespace measure::editor
