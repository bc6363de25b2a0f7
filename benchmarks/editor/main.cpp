// How much of the process's time the editor control takes for what its user waits for, as medians,
// whatever else the machine does. Run it with
// QT_QPA_PLATFORM=offscreen to leave the display's own time out.

#include "app/ConfigurationBlock.h"
#include "language/TokenColors.h"
#include "language/editor/LEditOCX.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

using namespace ardiphon;

namespace {

double processMilliseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double medianOf(int runs, const std::function<double()> &measure)
{
    std::vector<double> values;
    for (int i = 0; i < runs; ++i)
        values.push_back(measure());
    return median(values);
}

double processTime(const std::function<void()> &step)
{
    const double before = processMilliseconds();
    step();
    return processMilliseconds() - before;
}

// No limit is told as 0.
void report(const char *what, double milliseconds, double limit)
{
    std::printf("%-58s %9.3f ms", what, milliseconds);
    if (limit > 0)
        std::printf("   (limit %6.0f ms)%s", limit, milliseconds < limit ? "" : "   OVER");
    std::printf("\n");
}

qint64 residentBytes()
{
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toLongLong() * 4096;
}

QByteArray score(int lines)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text +=
            "i1 " + QByteArray::number(i * 0.25, 'f', 2).rightJustified(10) + " 0.50 440 1200\r\n";
    return text;
}

QString write(const QTemporaryDir &folder, const char *name, const QByteArray &bytes)
{
    const QString path = folder.filePath(QLatin1String(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::exit(1);
    return path;
}

void paint(LEditOCX &editor)
{
    QApplication::processEvents();
    editor.repaint();
    QApplication::processEvents();
}

void goTo(LEditOCX &editor, int line)
{
    editor.SelStartLine = editor.SelEndLine = line;
    editor.SelStartColumn = editor.SelEndColumn = 3;
    editor.SetSelection();
}

double keystroke(LEditOCX &editor)
{
    return processTime([&] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QApplication::sendEvent(editor.focusProxy(), &press);
        QApplication::processEvents();
    });
}

void reportKeystrokes(LEditOCX &editor, const char *size, double limit)
{
    const int lines = editor.LineCount();
    const std::pair<const char *, int> places[] = {
        {"top", 1}, {"middle", lines / 2}, {"end", lines - 1}};
    for (const auto &[name, line] : places) {
        goTo(editor, line);
        paint(editor);
        const QByteArray what = QByteArray("keystroke, ") + size + ", " + name;
        report(what.constData(), medianOf(101, [&] { return keystroke(editor); }), limit);
    }
}

void measureLargeScore(LEditOCX &editor, const QString &path)
{
    const qint64 before = residentBytes();
    report("open and paint 1,000,000 lines",
           medianOf(5,
                    [&] {
                        return processTime([&] {
                            editor.ClearDocument();
                            editor.LoadFile(path);
                            paint(editor);
                        });
                    }),
           400);
    report("jump to the end of 1,000,000 lines",
           medianOf(5,
                    [&] {
                        editor.ClearDocument();
                        editor.LoadFile(path);
                        paint(editor);
                        return processTime([&] {
                            goTo(editor, editor.LineCount());
                            paint(editor);
                        });
                    }),
           300);
    const double perByte = double(residentBytes() - before) / double(QFile(path).size());
    std::printf("%-58s %9.3f bytes (limit 4)\n", "resident memory for a byte of text", perByte);
    reportKeystrokes(editor, "1,000,000 lines", 1);
    editor.SetFindDirection(2);
    editor.SetFindWholeWord(false);
    editor.SetFindText(QStringLiteral("i1 nowhere"));
    report("search through 28 MB without a match",
           medianOf(9, [&] { return processTime([&] { editor.FindFirst(); }); }), 100);
}

void measureReplaceAll(LEditOCX &editor, const QString &path)
{
    report("replace 100,000 matches",
           medianOf(5,
                    [&] {
                        editor.ClearDocument();
                        editor.LoadFile(path);
                        editor.SetFindText(QStringLiteral("i1"));
                        editor.SetFindWholeWord(true);
                        editor.SetReplaceText(QStringLiteral("i22"));
                        paint(editor);
                        return processTime([&] {
                            editor.ReplaceAll();
                            paint(editor);
                        });
                    }),
           1000);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString large = write(folder, "large.sco", score(1'000'000));
    const QString medium = write(folder, "medium.sco", score(50'000));
    const QString matches = write(folder, "matches.sco", score(100'000));
    const QString longLine =
        write(folder, "line.sco", score(100) + QByteArray("440.25 ").repeated(5 * 1024 * 1024 / 7));

    ConfigurationBlock config;
    config.Words.LoadWordTables(QCoreApplication::applicationDirPath() + "/../bin/");
    LEditOCX editor;
    editor.SetGetTokenColors([&](TokenKind kind, const QString &text) {
        return GetTokenColors(config, ViewLanguage::Score, kind, text);
    });
    editor.resize(1000, 800);
    editor.show();
    paint(editor);

    measureLargeScore(editor, large);
    editor.LoadFile(medium);
    reportKeystrokes(editor, "50,000 lines", 1);
    QAccessible::setActive(true);
    reportKeystrokes(editor, "50,000 lines, with an assistive tool", 0);
    QAccessible::setActive(false);
    measureReplaceAll(editor, matches);
    report("open a line of 5 MB behind 100 others and jump to its end",
           medianOf(3,
                    [&] {
                        return processTime([&] {
                            editor.ClearDocument();
                            editor.LoadFile(longLine);
                            paint(editor);
                            goTo(editor, 101);
                            paint(editor);
                            editor.SelStartColumn = editor.SelEndColumn = editor.LineLength(101);
                            editor.SetSelection();
                            paint(editor);
                        });
                    }),
           500);
    return 0;
}
