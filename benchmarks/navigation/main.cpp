// The processor time that moving through a large document and replacing in it takes. Run it with
// QT_QPA_PLATFORM=offscreen to leave the display's own time out.

#include "app/ConfigurationBlock.h"
#include "language/TokenColors.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Definitions.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"
#include "navigation/ui/TextScan.h"
#include "platform/Dialogs.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include <cstdio>
#include <ctime>

using namespace ardiphon;

namespace {

/// Takes every message without showing it.
struct SilentDialogs : Dialogs
{
    Answer message(const Message &) override { return Answer::Ok; }
    std::optional<QString> openFile(const FileQuestion &) override { return {}; }
    std::optional<QString> saveFile(const FileQuestion &) override { return {}; }
    std::optional<Color> color(Color) override { return {}; }
};

/// An orchestra of about 28 bytes a line, an instrument every eight lines.
QString orchestra(int lines)
{
    QString text;
    for (int line = 0; line < lines; line += 8) {
        text += QStringLiteral("instr %1 ; a plain bell\r\n").arg(line / 8 + 1, 12);
        for (int i = 0; i < 6; ++i)
            text += QStringLiteral("  kamp  linseg 0, p3, kamp\r\n");
        text += QStringLiteral("endin ; and that was the one\r\n");
    }
    return text;
}

double processMilliseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

void paint(LEditOCX &editor)
{
    QApplication::processEvents();
    editor.repaint();
    QApplication::processEvents();
}

template <typename Step>
void report(const char *what, LEditOCX &editor, int limit, Step step)
{
    paint(editor);
    const double before = processMilliseconds();
    step();
    paint(editor);
    const double milliseconds = processMilliseconds() - before;
    std::printf("%-52s %9.1f ms   (limit %5d ms)%s\n", what, milliseconds, limit,
                milliseconds < limit ? "" : "   OVER");
}

void goTo(LEditOCX &editor, int line, int column)
{
    editor.SelStartLine = editor.SelEndLine = line;
    editor.SelStartColumn = editor.SelEndColumn = column;
    editor.SetSelection();
}

/// A search window with its two fields filled in.
QWidget *opened(SearchWindows &search, QWidget &owner, SearchKind kind, const QString &text,
                const QString &replacement = {})
{
    search.open(kind, CsdCaller);
    QApplication::processEvents();
    auto *window = owner.findChild<QDialog *>();
    window->findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(text);
    if (auto *field = window->findChild<QLineEdit *>(QStringLiteral("Text2")))
        field->setText(replacement);
    return window;
}

void click(QWidget *window, const char *button)
{
    window->findChild<QPushButton *>(QLatin1String(button))->click();
}

void close(QWidget *window)
{
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void measureSearch(LEditOCX &editor, SearchWindows &search, QWidget &owner)
{
    QWidget *window = opened(search, owner, SearchKind::Find, QStringLiteral("instr nowhere"));
    goTo(editor, 1, 0);
    report("find, no match", editor, 100, [=] { click(window, "Command1"); });
    goTo(editor, editor.LineCount() / 2, 3);
    report("find, no match, from the middle", editor, 100, [=] { click(window, "Command1"); });
    window->findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(QStringLiteral("1"));
    report("find, a match behind the end", editor, 100, [=] { click(window, "Command1"); });
    close(window);
}

void measureJumps(LEditOCX &editor)
{
    Instruments instruments(editor);
    QLineEdit field;
    report("last instrument", editor, 300, [&] { instruments.GoToLastInstrument(); });
    report("previous instrument", editor, 300, [&] { instruments.GoToPreviousInstrument(); });
    report("first instrument", editor, 300, [&] { instruments.GoToFirstInstrument(); });
    report("next instrument", editor, 300, [&] { instruments.GoToNextInstrument(); });
    field.setText(QStringLiteral("124999"));
    report("the last of 125,000 instruments, by its number", editor, 300,
           [&] { instruments.GoToInstrumentNumber(field); });
    field.setText(QStringLiteral("999999"));
    report("a number that no instrument has", editor, 300,
           [&] { instruments.GoToInstrumentNumber(field); });
    report("one step of the tag panel", editor, 100,
           [&] { containsExactly(editor, QStringLiteral("</CsoundSynthesizer>")); });
}

void measureDefinitions(LEditOCX &editor)
{
    WordTables words;
    QAction definition;
    QAction reference;
    Definitions definitions(editor, words, definition, reference);
    goTo(editor, editor.LineCount() - 4, 3);
    definitions.prepareEntries(editor);
    report("definition of a local name", editor, 300, [&] { definitions.GoToDefinition(); });
    report("reference of a local name", editor, 300, [&] { definitions.GoToReference(); });
}

void measureReplace(LEditOCX &editor, SearchWindows &search, QWidget &owner, const char *what,
                    const QString &text, const char *button)
{
    editor.SetText(text);
    editor.ResetUndo();
    goTo(editor, 1, 0);
    QWidget *window = opened(search, owner, SearchKind::Replace, QStringLiteral("endin"),
                             QStringLiteral("endin endin"));
    report(what, editor, 1000, [=] { click(window, button); });
    report("    one Undo of that", editor, 1000, [&] { editor.Undo(); });
    close(window);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    ConfigurationBlock config;
    SilentDialogs dialogs;
    LEditOCX editor;
    editor.SetGetTokenColors([&](TokenKind kind, const QString &text) {
        return GetTokenColors(config, ViewLanguage::Csd, kind, text);
    });
    editor.resize(1000, 800);
    editor.show();
    SearchWindows search(config, dialogs, {{CsdCaller, &editor}}, editor, [] {});

    const QString large = orchestra(1'000'000);
    std::printf("a document of %.1f MB\n", double(large.size()) / 1e6);
    editor.SetText(large);
    editor.ResetUndo();
    measureSearch(editor, search, editor);
    measureJumps(editor);
    measureDefinitions(editor);
    std::printf("100,000 matches\n");
    const QString matches = QStringLiteral("endin kamp\r\n").repeated(100'000);
    measureReplace(editor, search, editor, "replace all", matches, "Command3");
    measureReplace(editor, search, editor, "replace from caret to end", matches, "Command1");
    measureReplace(editor, search, editor, "replace all, 125,000 in 28 MB", large, "Command3");
    measureReplace(editor, search, editor, "replace from caret to end, 125,000 in 28 MB", large,
                   "Command1");
}
