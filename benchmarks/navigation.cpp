// The processor time that moving through a document and replacing in it takes.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "language/TokenColors.h"
#include "language/WordTables.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Definitions.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"
#include "platform/ui/QtDialogs.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

using namespace ardiphon;

namespace measure::navigation {

/// Takes every message without showing it.
struct SilentDialogs : QtDialogs
{
    Answer message(const Message &) override { return Answer::Ok; }
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

/// One step, with the painting that follows.
template <typename Step>
void report(const char *what, LEditOCX &editor, int lines, int limit, Step step)
{
    measure::paint(editor);
    measure::row(what, lines, measure::processTime([&] {
                     step();
                     measure::paint(editor);
                 }),
                 "ms", limit);
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

void measureSearch(LEditOCX &editor, SearchWindows &search, int lines)
{
    QWidget *window = opened(search, editor, SearchKind::Find, QStringLiteral("instr nowhere"));
    measure::goTo(editor, 1, 0);
    report("search window, no match", editor, lines, 100, [=] { click(window, "Command1"); });
    window->findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(QStringLiteral("1"));
    measure::goTo(editor, lines / 2, 3);
    report("search window, a match", editor, lines, 100, [=] { click(window, "Command1"); });
    close(window);
}

void measureJumps(LEditOCX &editor, int lines)
{
    Instruments instruments(editor);
    QLineEdit field;
    report("go to the last instrument", editor, lines, 300,
           [&] { instruments.GoToLastInstrument(); });
    report("go to the previous instrument", editor, lines, 300,
           [&] { instruments.GoToPreviousInstrument(); });
    report("go to the first instrument", editor, lines, 300,
           [&] { instruments.GoToFirstInstrument(); });
    field.setText(QString::number(lines / 8));
    report("go to an instrument by its number", editor, lines, 300,
           [&] { instruments.GoToInstrumentNumber(field); });
    field.setText(QStringLiteral("999999"));
    report("a number that no instrument has", editor, lines, 300,
           [&] { instruments.GoToInstrumentNumber(field); });
    int asked = 0; // each time for another word: what is known of one is kept
    report("a word of the tag panel, not there", editor, lines, 100,
           [&] { editor.Contains(QStringLiteral("</CsoundSynthesizer%1>").arg(++asked)); });
}

void measureDefinitions(LEditOCX &editor, int lines)
{
    WordTables words;
    QAction definition;
    QAction reference;
    Definitions definitions(editor, words, definition, reference);
    measure::goTo(editor, editor.LineCount() - 4, 3);
    definitions.prepareEntries(editor);
    report("definition of a local name", editor, lines, 300, [&] { definitions.GoToDefinition(); });
    report("reference of a local name", editor, lines, 300, [&] { definitions.GoToReference(); });
}

/// An eighth of the lines has a match.
void measureReplace(LEditOCX &editor, SearchWindows &search, int lines)
{
    measure::goTo(editor, 1, 0);
    QWidget *window = opened(search, editor, SearchKind::Replace, QStringLiteral("endin"),
                             QStringLiteral("endin endin"));
    report("replace window, all", editor, lines, 1000, [=] { click(window, "Command3"); });
    report("one undo of that", editor, lines, 1000, [&] { editor.Undo(); });
    measure::goTo(editor, 1, 0);
    report("replace window, caret to end", editor, lines, 1000, [=] { click(window, "Command1"); });
    close(window);
}

BENCHMARK(navigation)
{
    QApplication application(argc, argv);
    ConfigurationBlock config;
    config.Words = std::make_shared<WordTables>();
    SilentDialogs dialogs;
    LEditOCX editor;
    editor.SetGetTokenColors([&](TokenKind kind, const QString &text) {
        return GetTokenColors(config, DocumentRole::Csd, kind, text);
    });
    editor.resize(1000, 800);
    editor.show();
    SearchWindows search(config, dialogs, {{CsdCaller, &editor}}, editor, [] {});
    for (const int lines : measure::Sizes) {
        editor.SetText(orchestra(lines));
        editor.ResetUndo();
        measureSearch(editor, search, lines);
        measureJumps(editor, lines);
        measureDefinitions(editor, lines);
        measureReplace(editor, search, lines);
    }
    return 0;
}

} // namespace measure::navigation
