#include "language/editor/FontFamily.h"
#include "preferences/ui/FormDefaultFont.h"
#include "preferences/ui/FormFont.h"
#include "support/Controls.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"

#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <memory>

using namespace ardiphon;

/// The two windows that choose a font by its name: which name they change, and when.
class tst_FontWindows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void list_holdsEveryFontInTheSystemsOrder();
    void list_names_areDrawnInTheWindowsFont();

    void formFont_load_showsBothFonts();
    void formFont_load_selectsTrimmedName();
    void formFont_click_showsTheSampleAlone();
    void formFont_arrowKeys_showTheSample();
    void formFont_apply_takesTheFontAndCloses();
    void formFont_applyWithoutSelection_saysSo();
    void formFont_cancelAndEsc_changeNothing();
    void formFont_restoreDefault_changesTheDefaultAlone();
    void formFont_restoreDefaultOfAMissingFont_keepsItsName();

    void formDefaultFont_load_showsTheName();
    void formDefaultFont_click_countsAtOnce();
    void formDefaultFont_ok_takesTheSelection();
    void formDefaultFont_okWithARemovedFont_keepsItsName();
    void formDefaultFont_cancel_takesItBack();
    void formDefaultFont_restoreDefault_keepsTheWindow();
    void formDefaultFont_esc_doesNothing();

private:
    void openFont();
    void openDefaultFont();
    void show();
    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*m_window, QLatin1String(name));
    }
    void clickButton(const char *name)
    {
        QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton);
    }
    /// Clicks on an entry of the list. Gives its name.
    QString clickEntry(int row);
    QString selected() const;
    void compareSample(const QString &name) const;

    std::unique_ptr<TestProgram> m_program;
    std::unique_ptr<QDialog> m_window;
    QStringList m_fonts;
};

void tst_FontWindows::init()
{
    m_program = std::make_unique<TestProgram>();
    m_fonts = QFontDatabase::families();
    QVERIFY2(m_fonts.size() >= 3, "the test needs a few fonts");
    QVERIFY(!m_fonts.contains("No Such Font"));
    m_program->config.FontName = m_fonts.at(1);
    m_program->config.DefaultFontName = m_fonts.at(2);
}

void tst_FontWindows::cleanup()
{
    m_window.reset();
    QCOMPARE(m_program->dialogs.verify(), QString());
}

void tst_FontWindows::openFont()
{
    m_window = std::make_unique<FormFont>(m_program->config, m_program->dialogs, nullptr);
    show();
}

void tst_FontWindows::openDefaultFont()
{
    m_window = std::make_unique<FormDefaultFont>(m_program->config, nullptr);
    show();
}

void tst_FontWindows::show()
{
    m_window->show();
    require(QTest::qWaitForWindowExposed(m_window.get()), "the window does not show");
}

QString tst_FontWindows::clickEntry(int row)
{
    auto *list = control<QListView>("List1");
    const QModelIndex entry = list->model()->index(row, 0);
    list->scrollTo(entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(entry).center());
    return entry.data().toString();
}

QString tst_FontWindows::selected() const
{
    const QModelIndexList entries =
        control<QListView>("List1")->selectionModel()->selectedIndexes();
    return entries.isEmpty() ? QString() : entries.constFirst().data().toString();
}

void tst_FontWindows::compareSample(const QString &name) const
{
    const auto *sample = control<QTextEdit>("Text1");
    QVERIFY(!sample->toPlainText().isEmpty());
    const QFont font = sample->document()->defaultFont();
    QCOMPARE(font.family(), familyToDraw(name)); // as an editor would draw it
    QCOMPARE(font.pointSize(), 10);
    QVERIFY(!font.bold() && !font.italic() && !font.underline());
}

// Both windows. -----------------------------------------------------------------------------------

void tst_FontWindows::list_holdsEveryFontInTheSystemsOrder()
{
    for (const bool first : {true, false}) {
        first ? openFont() : openDefaultFont();
        const auto *model = control<QListView>("List1")->model();
        QStringList names;
        for (int row = 0; row < model->rowCount(); ++row)
            names.append(model->index(row, 0).data().toString());
        QCOMPARE(names, m_fonts);
    }
}

void tst_FontWindows::list_names_areDrawnInTheWindowsFont()
{
    openFont();
    const auto *list = control<QListView>("List1");
    QVERIFY(list->uniformItemSizes());
    for (int row = 0; row < list->model()->rowCount(); ++row)
        QVERIFY(!list->model()->index(row, 0).data(Qt::FontRole).isValid());
    QVERIFY(!(list->model()->flags(list->model()->index(0, 0)) & Qt::ItemIsEditable) ||
            list->editTriggers() == QAbstractItemView::NoEditTriggers);
}

// FormFont. ---------------------------------------------------------------------------------------

void tst_FontWindows::formFont_load_showsBothFonts()
{
    openFont();
    QCOMPARE(m_window->windowTitle(), "Select font");
    QVERIFY(m_window->isModal());
    QStringList labels;
    for (const QLabel *label : m_window->findChildren<QLabel *>())
        labels.append(label->text());
    QVERIFY(labels.contains("Current Font:") && labels.contains("Default Font:"));
    QCOMPARE(control<QLabel>("lblActual")->text(), m_fonts.at(1));
    QCOMPARE(control<QLabel>("lblDefault")->text(), ' ' + m_fonts.at(2) + ' ');
    QCOMPARE(control<QLabel>("lblEsempio")->text(), "Example (" + m_fonts.at(1) + "):");
    QCOMPARE(control<QPushButton>("Command1")->text(), "&Apply and Exit");
    QCOMPARE(control<QPushButton>("Command2")->text(), "&Cancel");
    QCOMPARE(control<QPushButton>("Command3")->text(), "&Restore Default Font");
    QCOMPARE(selected(), m_fonts.at(1));
    CHECKED(compareSample(m_fonts.at(1)));
}

void tst_FontWindows::formFont_load_selectsTrimmedName()
{
    m_program->config.FontName = "  " + m_fonts.constLast() + ' ';
    openFont();
    QCOMPARE(selected(), m_fonts.constLast());
    const auto *list = control<QListView>("List1");
    QVERIFY(list->viewport()->rect().intersects(list->visualRect(list->currentIndex())));
}

void tst_FontWindows::formFont_click_showsTheSampleAlone()
{
    openFont();
    const QString name = clickEntry(0);
    CHECKED(compareSample(name));
    QCOMPARE(control<QLabel>("lblEsempio")->text(), "Example (" + name + "):");
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
    QCOMPARE(control<QLabel>("lblActual")->text(), m_fonts.at(1));
}

void tst_FontWindows::formFont_arrowKeys_showTheSample()
{
    openFont();
    QTest::keyClick(control<QListView>("List1"), Qt::Key_Down);
    CHECKED(compareSample(m_fonts.at(2)));
}

void tst_FontWindows::formFont_apply_takesTheFontAndCloses()
{
    openFont();
    const QString name = clickEntry(2);
    clickButton("Command1");
    QCOMPARE(m_program->config.FontName, name);
    QVERIFY(!m_window->isVisible());
}

void tst_FontWindows::formFont_applyWithoutSelection_saysSo()
{
    m_program->config.FontName = "No Such Font";
    openFont();
    QCOMPARE(selected(), "");
    m_program->dialogs.expect(
        {"No font selected!", "ArdiphonPro", MessageIcon::Information, MessageButtons::Ok});
    clickButton("Command1");
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_program->config.FontName, "No Such Font");
}

void tst_FontWindows::formFont_cancelAndEsc_changeNothing()
{
    openFont();
    clickEntry(0);
    clickButton("Command2");
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
    openFont();
    clickEntry(0);
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
    QCOMPARE(m_program->config.DefaultFontName, m_fonts.at(2));
}

void tst_FontWindows::formFont_restoreDefault_changesTheDefaultAlone()
{
    openFont();
    clickButton("Command3");
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_program->config.DefaultFontName, "Courier New");
    QCOMPARE(m_program->config.FontName, m_fonts.at(1));
    QCOMPARE(control<QLabel>("lblDefault")->text(), ' ' + m_fonts.at(2) + ' ');
    QCOMPARE(control<QLabel>("lblEsempio")->text(), "Example (Courier New):");
    CHECKED(compareSample("Courier New"));
    QCOMPARE(selected(), m_fonts.contains("Courier New") ? "Courier New" : "");
}

void tst_FontWindows::formFont_restoreDefaultOfAMissingFont_keepsItsName()
{
    openFont();
    clickButton("Command3");
    if (!m_fonts.contains("Courier New")) {
        m_program->dialogs.expect(
            {"No font selected!", "ArdiphonPro", MessageIcon::Information, MessageButtons::Ok});
        clickButton("Command1");
    }
    clickButton("Command2");
    QCOMPARE(m_program->config.DefaultFontName, "Courier New");
}

// FormDefaultFont. --------------------------------------------------------------------------------

void tst_FontWindows::formDefaultFont_load_showsTheName()
{
    openDefaultFont();
    QCOMPARE(m_window->windowTitle(), "Default Font");
    QVERIFY(m_window->isModal());
    QCOMPARE(control<QLineEdit>("TextFont")->text(), m_fonts.at(2));
    QVERIFY(control<QLineEdit>("TextFont")->isReadOnly());
    QCOMPARE(control<QLabel>("lblEsempio")->text(), "Example:");
    QCOMPARE(control<QPushButton>("Command1")->text(), "&Restore Default");
    QCOMPARE(control<QPushButton>("Command2")->text(), "&OK");
    QCOMPARE(control<QPushButton>("Command3")->text(), "&Cancel");
    QCOMPARE(selected(), m_fonts.at(2));
    CHECKED(compareSample(m_fonts.at(2)));
}

void tst_FontWindows::formDefaultFont_click_countsAtOnce()
{
    openDefaultFont();
    const QString name = clickEntry(0);
    QCOMPARE(m_program->config.DefaultFontName, name);
    QCOMPARE(control<QLineEdit>("TextFont")->text(), name);
    CHECKED(compareSample(name));
    m_window->close(); // neither button: the choice stays
    QCOMPARE(m_program->config.DefaultFontName, name);
}

void tst_FontWindows::formDefaultFont_ok_takesTheSelection()
{
    openDefaultFont();
    const QString name = clickEntry(1);
    m_program->config.DefaultFontName = "changed meanwhile";
    clickButton("Command2");
    QCOMPARE(m_program->config.DefaultFontName, name);
    QVERIFY(!m_window->isVisible());
}

void tst_FontWindows::formDefaultFont_okWithARemovedFont_keepsItsName()
{
    m_program->config.DefaultFontName = "No Such Font";
    openDefaultFont();
    QCOMPARE(selected(), "");
    QCOMPARE(control<QLineEdit>("TextFont")->text(), "No Such Font");
    clickButton("Command2");
    QCOMPARE(m_program->config.DefaultFontName, "No Such Font");
    QVERIFY(!m_window->isVisible());
}

void tst_FontWindows::formDefaultFont_cancel_takesItBack()
{
    openDefaultFont();
    clickEntry(0);
    clickButton("Command3");
    QCOMPARE(m_program->config.DefaultFontName, m_fonts.at(2));
    QVERIFY(!m_window->isVisible());
}

void tst_FontWindows::formDefaultFont_restoreDefault_keepsTheWindow()
{
    openDefaultFont();
    clickButton("Command1");
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_program->config.DefaultFontName, "Courier New");
    QCOMPARE(control<QLineEdit>("TextFont")->text(), "Courier New");
    CHECKED(compareSample("Courier New"));
    QCOMPARE(selected(), m_fonts.contains("Courier New") ? "Courier New" : "");
    clickButton("Command2");
    QCOMPARE(m_program->config.DefaultFontName, "Courier New");
}

void tst_FontWindows::formDefaultFont_esc_doesNothing()
{
    openDefaultFont();
    const QString name = clickEntry(0);
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QTest::keyClick(control<QListView>("List1"), Qt::Key_Escape);
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_program->config.DefaultFontName, name);
}

ARDIPHON_TEST(tst_FontWindows, QApplication)
#include "tst_FontWindows.moc"
