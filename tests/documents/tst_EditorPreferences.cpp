#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "support/Controls.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>

using namespace ardiphon;

/// The settings and the fonts as both editor windows open them, and what they do to the editors.
class tst_EditorPreferences : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void menus_holdTheirEntries_data();
    void menus_holdTheirEntries();
    void settings_opened_knowTheirCaller_data();
    void settings_opened_knowTheirCaller();
    void settings_color_showsInTheOpenEditors_data();
    void settings_color_showsInTheOpenEditors();
    void settings_savedInSplitCsd_reachTheFirstView();
    void font_load_remembersTheEditors_data();
    void font_load_remembersTheEditors();
    void font_applied_reachesEditorsAndGutters_data();
    void font_applied_reachesEditorsAndGutters();
    void font_open_showsTheHourglass_data();
    void font_open_showsTheHourglass();
    void font_cancelled_keepsTheFont_data();
    void font_cancelled_keepsTheFont();
    void font_removed_opensAllTheSame();
    void font_reset_takesTheDefault_data();
    void font_reset_takesTheDefault();
    void font_commands_setTheStylesOff_data();
    void font_commands_setTheStylesOff();
    void font_commands_giveTheFirstEditorTheFocus_data();
    void font_commands_giveTheFirstEditorTheFocus();
    void font_commands_arrangeTheWindow_data();
    void font_commands_arrangeTheWindow();
    void font_inScoreView_keepsTheFocusThere();

private:
    static void bothWindows();
    void show(bool project);
    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*m_window, QLatin1String(name));
    }
    /// Carries a command out, and \a step in the window that it opens.
    void trigger(const char *command, const std::function<void(QDialog &window)> &step = {});
    static void press(const QDialog &window, const char *button);
    /// What the editor shows on the screen, drawn when the program drew it.
    static QImage onScreen(const LEditOCX &editor);
    static void chooseFont(const QDialog &window, int row);
    static void bothCommands();
    /// Gives the editors a font by one of the two commands that do.
    void giveFont(bool bySelection, const QString &name);
    /// What the editor shows below the line of the caret.
    static QImage textBelowTheCaret(LEditOCX &editor);
    /// The font whose numbers differ most in width from those of \a font.
    QString fontOfOtherWidth(const QFont &font) const;
    QList<LEditOCX *> openEditors() const;
    /// The editor that has the window's focus, as it has the screen's once the window is active.
    QString focusedEditor() const;

    std::unique_ptr<TestProgram> m_program;
    QPointer<QWidget> m_window;
    QStringList m_fonts;
};

void tst_EditorPreferences::init()
{
    m_program = std::make_unique<TestProgram>();
    m_fonts = QFontDatabase::families();
    QVERIFY2(m_fonts.size() >= 3, "the test needs a few fonts");
}

void tst_EditorPreferences::cleanup()
{
    delete m_window;
    QCOMPARE(m_program->dialogs.verify(), QString());
}

void tst_EditorPreferences::bothWindows()
{
    QTest::addColumn<bool>("project");
    QTest::newRow("csd") << false;
    QTest::newRow("project") << true;
}

void tst_EditorPreferences::show(bool project)
{
    if (project)
        m_window = new FormORCSCO(m_program->context);
    else
        m_window = new FormCSD(m_program->context);
    m_window->show();
    require(QTest::qWaitForWindowExposed(m_window), "the window does not show");
}

void tst_EditorPreferences::trigger(const char *command,
                                    const std::function<void(QDialog &window)> &step)
{
    bool opened = !step;
    if (step) {
        QTimer::singleShot(0, this, [&opened, &step] {
            auto *window = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            require(window, "the window does not show");
            opened = true;
            step(*window);
            window->close(); // so that a test that failed comes to an end
        });
    }
    control<QAction>(command)->trigger();
    require(opened, "no window was opened");
}

void tst_EditorPreferences::press(const QDialog &window, const char *button)
{
    QTest::mouseClick(window.findChild<QAbstractButton *>(QLatin1String(button)), Qt::LeftButton);
}

QImage tst_EditorPreferences::onScreen(const LEditOCX &editor)
{
    const QPoint corner = editor.mapTo(editor.window(), QPoint());
    return editor.screen()
        ->grabWindow(editor.window()->winId(), corner.x(), corner.y(), editor.width(),
                     editor.height())
        .toImage();
}

void tst_EditorPreferences::chooseFont(const QDialog &window, int row)
{
    auto *list = window.findChild<QListView *>("List1");
    const QModelIndex entry = list->model()->index(row, 0);
    list->scrollTo(entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(entry).center());
}

void tst_EditorPreferences::bothCommands()
{
    QTest::addColumn<bool>("project");
    QTest::addColumn<bool>("bySelection");
    QTest::newRow("csd, selected") << false << true;
    QTest::newRow("csd, reset") << false << false;
    QTest::newRow("project, selected") << true << true;
    QTest::newRow("project, reset") << true << false;
}

void tst_EditorPreferences::giveFont(bool bySelection, const QString &name)
{
    m_program->config.DefaultFontName = name;
    if (!bySelection)
        return trigger("menuLista");
    trigger("menuFormatoTipocarattere", [&](QDialog &window) {
        chooseFont(window, int(m_fonts.indexOf(name)));
        press(window, "Command1");
    });
}

QImage tst_EditorPreferences::textBelowTheCaret(LEditOCX &editor)
{
    return editor.grab(editor.rect().adjusted(0, 2 * editor.LineHeight(), 0, 0)).toImage();
}

QString tst_EditorPreferences::fontOfOtherWidth(const QFont &font) const
{
    const auto width = [&font](const QString &name) {
        QFont other = font;
        other.setFamilies({name});
        return QFontMetrics(other).horizontalAdvance("000000");
    };
    const auto difference = [&](const QString &name) {
        return qAbs(width(name) - QFontMetrics(font).horizontalAdvance("000000"));
    };
    return *std::max_element(m_fonts.begin(), m_fonts.end(), [&](const auto &a, const auto &b) {
        return difference(a) < difference(b);
    });
}

QList<LEditOCX *> tst_EditorPreferences::openEditors() const
{
    if (qobject_cast<FormORCSCO *>(m_window))
        return {control<LEditOCX>("LEDIT1"), control<LEditOCX>("LEDIT2")};
    return {control<LEditOCX>("LEDIT1")};
}

QString tst_EditorPreferences::focusedEditor() const
{
    for (const char *name : {"LEDIT1", "LEDIT2"})
        if (m_window->focusWidget() == control<LEditOCX>(name)->focusProxy())
            return name;
    return {};
}

// The settings. -----------------------------------------------------------------------------------

void tst_EditorPreferences::menus_holdTheirEntries_data() { bothWindows(); }

void tst_EditorPreferences::menus_holdTheirEntries()
{
    QFETCH(bool, project);
    show(project);
    QVERIFY(control<QMenu>("menuFile")->actions().contains(control<QAction>("menuFilePreferenze")));
    QStringList format;
    for (const QAction *entry : control<QMenu>("menuFormato")->actions())
        format.append(entry->text());
    QCOMPARE(format.join('|'), "Select &Font|&Size|&Reset Default Font");
    QCOMPARE(control<QAction>("menuFilePreferenze")->text(), "Se&ttings");
}

void tst_EditorPreferences::settings_opened_knowTheirCaller_data() { bothWindows(); }

void tst_EditorPreferences::settings_opened_knowTheirCaller()
{
    QFETCH(bool, project);
    show(project);
    CHECKED(trigger("menuFilePreferenze", [this](QDialog &window) {
        QCOMPARE(window.objectName(), "FormImpostazioni");
        QCOMPARE(window.parentWidget(), m_window.data());
    }));
    QCOMPARE(m_program->config.SettingsCaller, project ? "ORCSCO" : "CSD");
}

void tst_EditorPreferences::settings_color_showsInTheOpenEditors_data() { bothWindows(); }

void tst_EditorPreferences::settings_color_showsInTheOpenEditors()
{
    QFETCH(bool, project);
    show(project);
    const QColor green(0, 200, 0);
    CHECKED(trigger("menuFilePreferenze", [&](QDialog &window) {
        m_program->dialogs.expectColor(Color::rgb(0, 0, 0), Color::rgb(0, 200, 0));
        press(window, "mostraColors");
        press(window, "picBackColor");
        QApplication::processEvents();
        for (LEditOCX *editor : openEditors()) // while the settings are still open
            QCOMPARE(onScreen(*editor).pixelColor(editor->rect().center()), green);
    }));
    QCOMPARE(m_program->config.ColorBackground, Color::rgb(0, 200, 0));
}

void tst_EditorPreferences::settings_savedInSplitCsd_reachTheFirstView()
{
    show(false);
    trigger("buttonSplit");
    trigger("menuFilePreferenze", [&](QDialog &window) {
        m_program->dialogs.expectColor(Color::rgb(0, 0, 0), Color::rgb(0, 200, 0));
        press(window, "mostraColors");
        press(window, "picBackColor");
        press(window, "mostraText");
        window.findChild<QLineEdit *>("textTabSize")->setText("3");
        press(window, "Command1");
    });
    QCOMPARE(control<LEditOCX>("LEDIT1")->TabSize(), 3);
    auto *second = control<LEditOCX>("LEDIT2");
    QCOMPARE(second->TabSize(), 8);
    QCOMPARE(second->grab().toImage().pixelColor(second->rect().center()), QColor(Qt::white));
}

// The fonts. --------------------------------------------------------------------------------------

void tst_EditorPreferences::font_load_remembersTheEditors_data() { bothWindows(); }

void tst_EditorPreferences::font_load_remembersTheEditors()
{
    QFETCH(bool, project);
    m_program->config.DefaultFontName = m_fonts.at(1);
    show(project);
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
}

void tst_EditorPreferences::font_applied_reachesEditorsAndGutters_data() { bothWindows(); }

void tst_EditorPreferences::font_applied_reachesEditorsAndGutters()
{
    QFETCH(bool, project);
    show(project);
    for (LEditOCX *editor : openEditors()) {
        editor->SetFontBold(true);
        editor->SetFontItalic(true);
    }
    const QString kept = m_program->config.DefaultFontName;
    CHECKED(trigger("menuFormatoTipocarattere", [this](QDialog &window) {
        QCOMPARE(window.objectName(), "FormFont");
        QCOMPARE(window.parentWidget(), m_window.data());
        chooseFont(window, 2);
        press(window, "Command1");
    }));
    QCOMPARE(m_program->config.FontName, m_fonts.at(2));
    QCOMPARE(m_program->config.DefaultFontName, kept);
    for (LEditOCX *editor : openEditors())
        QCOMPARE(editor->FontName(), m_fonts.at(2));
    const QStringList gutters =
        project ? QStringList{"PicNumeri1", "PicNumeri2"} : QStringList{"PicNumeri"};
    for (const QString &name : gutters) {
        const QFont font = control<Gutter>(qPrintable(name))->font();
        QCOMPARE(font.family(), m_fonts.at(2));
        QVERIFY(!font.bold() && !font.italic() && !font.underline() && !font.strikeOut());
    }
    QCOMPARE(focusedEditor(), "LEDIT1");
}

void tst_EditorPreferences::font_open_showsTheHourglass_data() { bothWindows(); }

void tst_EditorPreferences::font_open_showsTheHourglass()
{
    QFETCH(bool, project);
    show(project);
    CHECKED(trigger("menuFormatoTipocarattere",
                    [this](QDialog &) { QCOMPARE(m_window->cursor().shape(), Qt::WaitCursor); }));
    QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
}

void tst_EditorPreferences::font_cancelled_keepsTheFont_data() { bothWindows(); }

void tst_EditorPreferences::font_cancelled_keepsTheFont()
{
    QFETCH(bool, project);
    m_program->config.DefaultFontName = m_fonts.at(1);
    show(project);
    trigger("menuFormatoTipocarattere", [](QDialog &window) {
        chooseFont(window, 0);
        press(window, "Command2");
    });
    for (LEditOCX *editor : openEditors())
        QCOMPARE(editor->FontName(), m_fonts.at(1));
}

void tst_EditorPreferences::font_removed_opensAllTheSame()
{
    m_program->config.DefaultFontName = "No Such Font";
    show(false);
    QCOMPARE(m_program->config.FontName, "No Such Font");
    trigger("menuFormatoTipocarattere", [](QDialog &window) { press(window, "Command2"); });
    QCOMPARE(control<LEditOCX>("LEDIT1")->FontName(), "No Such Font");
    const QFont instead = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    QCOMPARE(control<Gutter>("PicNumeri")->font().family(), instead.family());
}

void tst_EditorPreferences::font_reset_takesTheDefault_data() { bothWindows(); }

void tst_EditorPreferences::font_reset_takesTheDefault()
{
    QFETCH(bool, project);
    show(project);
    m_program->config.FontName = m_fonts.at(0);
    m_program->config.DefaultFontName = m_fonts.at(1);
    trigger("menuLista");
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
    for (LEditOCX *editor : openEditors())
        QCOMPARE(editor->FontName(), m_fonts.at(1));
    QCOMPARE(focusedEditor(), "LEDIT1");
}

void tst_EditorPreferences::font_commands_setTheStylesOff_data() { bothCommands(); }

void tst_EditorPreferences::font_commands_setTheStylesOff()
{
    QFETCH(bool, project);
    QFETCH(bool, bySelection);
    m_program->config.DefaultFontName = m_fonts.at(1);
    show(project);
    using Style = void (LEditOCX::*)(bool);
    for (const Style style : {&LEditOCX::SetFontBold, &LEditOCX::SetFontItalic,
                              &LEditOCX::SetFontUnderline, &LEditOCX::SetFontStrikethrough}) {
        QList<QImage> plain;
        for (LEditOCX *editor : openEditors()) {
            editor->SetText("first\r\nsecond line\r\nthird line\r\nfourth line");
            plain.append(textBelowTheCaret(*editor));
            (editor->*style)(true);
            QVERIFY(textBelowTheCaret(*editor) != plain.constLast());
        }
        giveFont(bySelection, m_fonts.at(1));
        for (LEditOCX *editor : openEditors())
            QVERIFY(textBelowTheCaret(*editor) == plain.takeFirst());
    }
    for (LEditOCX *editor : openEditors())
        editor->ClearState(TextState);
}

void tst_EditorPreferences::font_commands_giveTheFirstEditorTheFocus_data() { bothCommands(); }

void tst_EditorPreferences::font_commands_giveTheFirstEditorTheFocus()
{
    QFETCH(bool, project);
    QFETCH(bool, bySelection);
    show(project);
    if (!project)
        trigger("buttonSplit");
    control<LEditOCX>("LEDIT2")->setFocus();
    QCOMPARE(focusedEditor(), "LEDIT2");
    giveFont(bySelection, m_fonts.at(1));
    QCOMPARE(focusedEditor(), "LEDIT1");
}

void tst_EditorPreferences::font_commands_arrangeTheWindow_data() { bothCommands(); }

/// The numbers beside the text take as much room as the font needs.
void tst_EditorPreferences::font_commands_arrangeTheWindow()
{
    QFETCH(bool, project);
    QFETCH(bool, bySelection);
    show(project);
    const auto *gutter = control<Gutter>(project ? "PicNumeri1" : "PicNumeri");
    const int widthBefore = gutter->textWidth();
    const int leftBefore = control<LEditOCX>("LEDIT1")->x();
    giveFont(bySelection, fontOfOtherWidth(gutter->font()));
    const int grown = gutter->textWidth() - widthBefore;
    QVERIFY2(grown != 0, "the test needs fonts of different widths");
    QCOMPARE(control<LEditOCX>("LEDIT1")->x(), leftBefore + grown);
}

void tst_EditorPreferences::font_inScoreView_keepsTheFocusThere()
{
    show(true);
    trigger("menuVisualizzaScore");
    trigger("menuFormatoTipocarattere", [](QDialog &window) { press(window, "Command2"); });
    QCOMPARE(focusedEditor(), "LEDIT2");
    trigger("menuLista");
    QCOMPARE(focusedEditor(), "LEDIT2");
}

ARDIPHON_TEST(tst_EditorPreferences, QApplication)
#include "tst_EditorPreferences.moc"
