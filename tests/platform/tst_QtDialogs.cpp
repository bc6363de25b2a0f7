#include "platform/ui/Printer.h"
#include "platform/ui/QtDialogs.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace ardiphon;

Q_DECLARE_METATYPE(ardiphon::MessageIcon)
Q_DECLARE_METATYPE(ardiphon::MessageButtons)
Q_DECLARE_METATYPE(ardiphon::Answer)

namespace {

/// The names that a file dialog lists.
QStringList shownNames(const QFileDialog &dialog)
{
    QStringList names;
    const QAbstractItemView *const view = dialog.findChild<QTreeView *>("treeView");
    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
        names << view->model()->index(row, 0, view->rootIndex()).data().toString();
    names.sort();
    return names;
}

/// The box of the types of files, as the dialog shows them.
QString shownType(const QFileDialog &dialog, int index)
{
    return dialog.findChild<QComboBox *>("fileTypeCombo")->itemText(index).trimmed();
}

/// Chooses a type of files, as the keys in that box do.
void chooseType(const QFileDialog *dialog, int index)
{
    auto *const types = dialog->findChild<QComboBox *>("fileTypeCombo");
    types->setFocus();
    QTest::keyClick(types, index > types->currentIndex() ? Qt::Key_Down : Qt::Key_Up);
    require(types->currentIndex() == index, "the type of files is not chosen");
}

} // namespace

class tst_QtDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void message_showsTitleTextAndIcon_data();
    void message_showsTitleTextAndIcon();
    void message_markup_isShownAsItIs();
    void message_explanation_isShownBelowAsItIs();
    void message_button_givesItsAnswer_data();
    void message_button_givesItsAnswer();
    void message_saveAs_isAThirdButton();
    void message_enter_givesTheDefault();
    void message_closedWithoutChoice_givesTheMildestAnswer_data();
    void message_closedWithoutChoice_givesTheMildestAnswer();
    void message_liesOverTheActiveWindow();
    void message_liesOverTheModalWindow();
    void openFile_showsTitleFilterAndFolder();
    void openFile_chosen_givesAbsolutePath();
    void openFile_cancelled_isEmpty();
    void openFile_missingFile_isRefused();
    void openFile_missingFile_isTakenWhereItMayBe();
    void openFile_filter_ignoresCaseAndShowsFilesWithoutDot();
    void saveFile_nameThatIsNoText_isRefused();
    void openFile_programs_areTheExecutableFiles();
    void openFile_manuals_areHtmlPages();
    void openFile_patternOfTheDescription_isShownOnce_data();
    void openFile_patternOfTheDescription_isShownOnce();
    void saveFile_newName_addsNoExtension();
    void saveFile_existing_asksBeforeOverwriting();
    void saveFile_existing_markupIsShownAsItIs();
    void saveFile_proposedName_isInTheField();
    void saveFile_proposedPath_beginsInItsFolder();
    void saveFile_cancelled_isEmpty();
    void chosenFile_folder_becomesTheCurrentOne();
    void choosePrinter_withSelection_offersIt();
    void choosePrinter_withoutSelection_offersNone();
    void choosePrinter_selectionLeft_isReported_data();
    void choosePrinter_selectionLeft_isReported();
    void choosePrinter_cancelled_isEmpty();
    void choosePrinter_noPrinterAtAll_printsIntoAFile();
    void color_chosen_givesItsParts();
    void color_opens_withTheFirst();
    void color_cancelled_isEmpty();

private:
    /// Runs \a step once the next dialog is on the screen. Where it checks something, the call that
    /// shows the dialog is CHECKED().
    template <typename Dialog, typename Step>
    void whenShown(Step step);
    /// Types \a name into a file dialog and accepts it, as a user would.
    static void chooseName(QFileDialog *dialog, const QString &name);
    /// What is shown of the choice of what to print.
    static QStringList offeredRanges(const QPrintDialog &dialog);
    void touch(const QString &name);
    FileQuestion question() const
    {
        return {"The Title", "CSD Files (*.csd)|*.csd|All Files (*.*)|*.*", m_folder->path()};
    }

    QtDialogs m_dialogs;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_current;
    int m_stepsToCome = 0;
};

void tst_QtDialogs::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_current = QDir::currentPath();
    m_stepsToCome = 0;
}

void tst_QtDialogs::cleanup()
{
    QVERIFY(QDir::setCurrent(m_current));
    QCOMPARE(m_stepsToCome, 0); // else a dialog did not show
}

template <typename Dialog, typename Step>
void tst_QtDialogs::whenShown(Step step)
{
    ++m_stepsToCome;
    QTimer::singleShot(0, this, [this, step] {
        --m_stepsToCome;
        auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        require(dialog, "the dialog does not show");
        step(dialog);
        if (dialog->isVisible())
            dialog->reject(); // so that a test that failed comes to an end
    });
}

void tst_QtDialogs::chooseName(QFileDialog *dialog, const QString &name)
{
    auto *const edit = dialog->findChild<QLineEdit *>("fileNameEdit");
    require(edit, "the dialog has no field for the name");
    edit->setText(name);
    QTest::keyClick(edit, Qt::Key_Return);
}

QStringList tst_QtDialogs::offeredRanges(const QPrintDialog &dialog)
{
    const auto *ranges = dialog.findChild<QGroupBox *>("gbPrintRange");
    QStringList names;
    for (const QWidget *part : ranges->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        if (part->isVisible())
            names.append(part->objectName());
    return names;
}

void tst_QtDialogs::touch(const QString &name) { writeBytes(m_folder->filePath(name), {}); }

void tst_QtDialogs::message_showsTitleTextAndIcon_data()
{
    QTest::addColumn<MessageIcon>("icon");
    QTest::addColumn<int>("shown");

    QTest::newRow("none") << MessageIcon::None << int(QMessageBox::NoIcon);
    QTest::newRow("information") << MessageIcon::Information << int(QMessageBox::Information);
    QTest::newRow("exclamation") << MessageIcon::Exclamation << int(QMessageBox::Warning);
    QTest::newRow("question") << MessageIcon::Question << int(QMessageBox::Question);
    QTest::newRow("critical") << MessageIcon::Critical << int(QMessageBox::Critical);
}

void tst_QtDialogs::message_showsTitleTextAndIcon()
{
    QFETCH(MessageIcon, icon);
    whenShown<QMessageBox>([](QMessageBox *box) {
        QCOMPARE(box->windowTitle(), "Save File");
        QCOMPARE(box->text(), "File has changed!\nDo you want to save it?");
        QTEST(int(box->icon()), "shown");
        QCOMPARE(box->objectName(), "MessageBox");
        box->accept();
    });
    CHECKED(m_dialogs.message({"File has changed!\r\nDo you want to save it?", "Save File", icon,
                               MessageButtons::YesNoCancel}));
}

void tst_QtDialogs::message_markup_isShownAsItIs()
{
    whenShown<QMessageBox>([](QMessageBox *box) {
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->windowTitle(), "ArdiphonPro");
        box->accept();
    });
    CHECKED(m_dialogs.message({"<b>file</b>"}));
}

void tst_QtDialogs::message_explanation_isShownBelowAsItIs()
{
    whenShown<QMessageBox>([](QMessageBox *box) {
        QCOMPARE(box->text(), "Association Error!");
        const auto *const label = box->findChild<QLabel *>("qt_msgbox_informativelabel");
        QVERIFY(label && label->isVisible());
        QCOMPARE(label->text(), "/m/<b>x</b> cannot be written.");
        QCOMPARE(label->textFormat(), Qt::PlainText);
        box->accept();
    });
    CHECKED(m_dialogs.message({"Association Error!", "Error", MessageIcon::Critical,
                               MessageButtons::Ok, false, "/m/<b>x</b> cannot be written."}));
}

void tst_QtDialogs::message_button_givesItsAnswer_data()
{
    QTest::addColumn<MessageButtons>("buttons");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("count");

    const auto row = [](const char *name, MessageButtons buttons,
                        QMessageBox::StandardButton button, Answer answer,
                        int count) { QTest::newRow(name) << buttons << button << answer << count; };
    row("ok", MessageButtons::Ok, QMessageBox::Ok, Answer::Ok, 1);
    row("yes of two", MessageButtons::YesNo, QMessageBox::Yes, Answer::Yes, 2);
    row("no of two", MessageButtons::YesNo, QMessageBox::No, Answer::No, 2);
    row("yes of three", MessageButtons::YesNoCancel, QMessageBox::Yes, Answer::Yes, 3);
    row("no of three", MessageButtons::YesNoCancel, QMessageBox::No, Answer::No, 3);
    row("ok of two", MessageButtons::OkCancel, QMessageBox::Ok, Answer::Ok, 2);
    row("cancel of two", MessageButtons::OkCancel, QMessageBox::Cancel, Answer::Cancel, 2);
    row("yes beside save as", MessageButtons::YesNoSaveAs, QMessageBox::Yes, Answer::Yes, 3);
    row("no beside save as", MessageButtons::YesNoSaveAs, QMessageBox::No, Answer::No, 3);
    row("cancel", MessageButtons::YesNoCancel, QMessageBox::Cancel, Answer::Cancel, 3);
}

void tst_QtDialogs::message_button_givesItsAnswer()
{
    QFETCH(MessageButtons, buttons);
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(int, count);
    whenShown<QMessageBox>([&](QMessageBox *box) {
        QCOMPARE(box->buttons().size(), count);
        QVERIFY(box->button(button));
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
    Answer given{};
    CHECKED(given = m_dialogs.message({"text", "title", MessageIcon::None, buttons}));
    QTEST(given, "answer");
}

void tst_QtDialogs::message_saveAs_isAThirdButton()
{
    whenShown<QMessageBox>([](QMessageBox *box) {
        for (QAbstractButton *button : box->buttons())
            if (button->text() == "Save &As ...")
                QTest::mouseClick(button, Qt::LeftButton);
    });
    QCOMPARE(m_dialogs.message({"text", "title", MessageIcon::None, MessageButtons::YesNoSaveAs}),
             Answer::SaveAs);
}

void tst_QtDialogs::message_enter_givesTheDefault()
{
    for (const auto buttons : {MessageButtons::YesNo, MessageButtons::YesNoSaveAs}) {
        for (const bool defaultsToNo : {false, true}) {
            whenShown<QMessageBox>([](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Return); });
            QCOMPARE(m_dialogs.message({"text", "title", MessageIcon::None, buttons, defaultsToNo}),
                     defaultsToNo ? Answer::No : Answer::Yes);
        }
    }
}

void tst_QtDialogs::message_closedWithoutChoice_givesTheMildestAnswer_data()
{
    QTest::addColumn<MessageButtons>("buttons");
    QTest::addColumn<Answer>("answer");

    QTest::newRow("ok") << MessageButtons::Ok << Answer::Ok;
    QTest::newRow("yes or no") << MessageButtons::YesNo << Answer::No;
    QTest::newRow("ok or cancel") << MessageButtons::OkCancel << Answer::Cancel;
    QTest::newRow("with cancel") << MessageButtons::YesNoCancel << Answer::Cancel;
    QTest::newRow("with save as") << MessageButtons::YesNoSaveAs << Answer::No;
}

void tst_QtDialogs::message_closedWithoutChoice_givesTheMildestAnswer()
{
    QFETCH(MessageButtons, buttons);
    const Message message{"text", "title", MessageIcon::None, buttons};
    whenShown<QMessageBox>([](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
    QTEST(m_dialogs.message(message), "answer");
    whenShown<QMessageBox>([](QMessageBox *box) { box->close(); });
    QTEST(m_dialogs.message(message), "answer");
}

void tst_QtDialogs::message_liesOverTheActiveWindow()
{
    QWidget other;
    other.show();
    QWidget active;
    active.show();
    active.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&active));
    whenShown<QMessageBox>([&](QMessageBox *box) { QCOMPARE(box->parentWidget(), &active); });
    CHECKED(m_dialogs.message({"text"}));
}

void tst_QtDialogs::message_liesOverTheModalWindow()
{
    QWidget window;
    window.show();
    QDialog modal(&window);
    modal.setModal(true);
    modal.show();
    QVERIFY(QTest::qWaitForWindowExposed(&modal));
    whenShown<QMessageBox>([&](QMessageBox *box) { QCOMPARE(box->parentWidget(), &modal); });
    CHECKED(m_dialogs.message({"text"}));
}

void tst_QtDialogs::openFile_showsTitleFilterAndFolder()
{
    whenShown<QFileDialog>([this](QFileDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), "The Title");
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog->directory().absolutePath(), m_folder->path());
        auto *const types = dialog->findChild<QComboBox *>("fileTypeCombo");
        QVERIFY(types);
        QCOMPARE(types->itemText(0).trimmed(), "CSD Files (*.csd)");
        QCOMPARE(types->itemText(1).trimmed(), "All Files (*.*)");
    });
    CHECKED(m_dialogs.openFile(question()));
}

void tst_QtDialogs::openFile_chosen_givesAbsolutePath()
{
    touch("my piece.csd");
    whenShown<QFileDialog>([](QFileDialog *dialog) { chooseName(dialog, "my piece.csd"); });
    QCOMPARE(m_dialogs.openFile(question()), m_folder->filePath("my piece.csd"));
}

void tst_QtDialogs::openFile_cancelled_isEmpty()
{
    whenShown<QFileDialog>([](QFileDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QVERIFY(!m_dialogs.openFile(question()).has_value());
}

void tst_QtDialogs::openFile_missingFile_isRefused()
{
    whenShown<QFileDialog>([this](QFileDialog *dialog) {
        bool warned = false;
        whenShown<QMessageBox>([&warned](QMessageBox *box) {
            warned = true;
            box->accept();
        });
        chooseName(dialog, "missing.csd");
        QVERIFY(warned);
        QVERIFY(dialog->isVisible());
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.openFile(question()));
    QVERIFY(!chosen.has_value());
}

void tst_QtDialogs::openFile_missingFile_isTakenWhereItMayBe()
{
    ardiphon::FileQuestion asking = question();
    asking.mustExist = false;
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
        QTimer::singleShot(0, dialog, [] { // a refusal would wait for its answer
            if (auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                box->reject();
        });
        chooseName(dialog, "missing.csd");
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.openFile(asking));
    QCOMPARE(chosen, m_folder->filePath("missing.csd"));
    touch("there.csd");
    whenShown<QFileDialog>([](QFileDialog *dialog) { chooseName(dialog, "there.csd"); });
    QCOMPARE(m_dialogs.openFile(asking), m_folder->filePath("there.csd"));
}

void tst_QtDialogs::openFile_filter_ignoresCaseAndShowsFilesWithoutDot()
{
    for (const char *name : {"a.csd", "b.CSD", "c.Csd", "d.txt", "nodot"})
        touch(name);
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        QTRY_COMPARE(shownNames(*dialog), QStringList({"a.csd", "b.CSD", "c.Csd"}));
        auto *const types = dialog->findChild<QComboBox *>("fileTypeCombo");
        types->setCurrentIndex(1);
        emit types->activated(1);
        QTRY_COMPARE(shownNames(*dialog),
                     QStringList({"a.csd", "b.CSD", "c.Csd", "d.txt", "nodot"}));
    });
    CHECKED(m_dialogs.openFile(question()));
}

/// As a dialog of the desktop gives the name of a file whose bytes are not UTF-8.
void tst_QtDialogs::saveFile_nameThatIsNoText_isRefused()
{
    const QString name = QStringLiteral("piece\uFFFD.csd");
    QString told;
    whenShown<QFileDialog>([&](QFileDialog *dialog) {
        QTimer::singleShot(0, this, [&] {
            whenShown<QMessageBox>([&](QMessageBox *box) {
                told = box->text();
                box->accept();
            });
        });
        chooseName(dialog, name);
    });
    QVERIFY(!m_dialogs.saveFile(question()));
    QCOMPARE(told, QStringLiteral("The file \"%1\" cannot be opened: its name is not UTF-8.")
                       .arg(m_folder->filePath(name)));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_QtDialogs::openFile_programs_areTheExecutableFiles()
{
    const auto executable = [this](const char *name) {
        touch(name);
        QVERIFY(QFile::setPermissions(m_folder->filePath(QLatin1String(name)),
                                      QFile::ReadOwner | QFile::ExeOwner));
    };
    for (const char *name : {"csound", "tool.py", "Csound.exe"})
        CHECKED(executable(name));
    for (const char *name : {"piece.csd", "other.exe", "README"})
        touch(name);
    QVERIFY(QDir(m_folder->path()).mkdir("bin"));
    QVERIFY(QFile::link(m_folder->filePath("csound"), m_folder->filePath("a link")));
    FileQuestion asking = question();
    asking.filter = "Csound.exe |*.exe|All files |*.*";
    const QStringList programs{"Csound.exe", "a link", "bin", "csound", "tool.py"};
    const QStringList everything{"Csound.exe", "README",    "a link",    "bin",
                                 "csound",     "other.exe", "piece.csd", "tool.py"};
    whenShown<QFileDialog>([&](QFileDialog *dialog) {
        QTRY_COMPARE(shownNames(*dialog), programs);
        chooseType(dialog, 1);
        QTRY_COMPARE(shownNames(*dialog), everything);
        chooseType(dialog, 0);
        QTRY_COMPARE(shownNames(*dialog), programs);
        touch("late");
        CHECKED(executable("late one"));
        QTRY_COMPARE(shownNames(*dialog).size(), programs.size() + 1);
        chooseName(dialog, "csound");
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.openFile(asking));
    QCOMPARE(chosen, m_folder->filePath("csound"));
}

void tst_QtDialogs::openFile_manuals_areHtmlPages()
{
    for (const char *name : {"index.html", "old.HTM", "csound.hlp", "piece.csd"})
        touch(name);
    FileQuestion asking = question();
    asking.filter = "Csound Help (*.hlp)|*.hlp|All files |*.*";
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        QTRY_COMPARE(shownNames(*dialog), QStringList({"csound.hlp", "index.html", "old.HTM"}));
        QCOMPARE(shownType(*dialog, 0), "Csound Help (*.hlp)");
    });
    CHECKED(m_dialogs.openFile(asking));
}

void tst_QtDialogs::openFile_patternOfTheDescription_isShownOnce_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("shown");
    QTest::newRow("named") << "Wav files (*.wav)|*.wav"
                           << "Wav files (*.wav)";
    QTest::newRow("every file") << "All Files (*.*)|*.*"
                                << "All Files (*.*)";
    QTest::newRow("several") << "CSound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco"
                             << "CSound Files (*.csd;*.orc;*.sco)";
    QTest::newRow("joined by a sign") << "Orc/Sco Files (*.orc & *.sco)|*.orc"
                                      << "Orc/Sco Files (*.orc & *.sco)";
    QTest::newRow("none") << "Wave files |*.wav"
                          << "Wave files";
}

void tst_QtDialogs::openFile_patternOfTheDescription_isShownOnce()
{
    QFETCH(QString, filter);
    for (const bool saving : {false, true}) {
        FileQuestion asking = question();
        asking.filter = filter;
        whenShown<QFileDialog>([](QFileDialog *dialog) { QTEST(shownType(*dialog, 0), "shown"); });
        if (saving)
            CHECKED(m_dialogs.saveFile(asking));
        else
            CHECKED(m_dialogs.openFile(asking));
    }
}

void tst_QtDialogs::saveFile_newName_addsNoExtension()
{
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        chooseName(dialog, "piece");
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.saveFile(question()));
    QCOMPARE(chosen, m_folder->filePath("piece"));
}

void tst_QtDialogs::saveFile_existing_asksBeforeOverwriting()
{
    touch("piece.csd");
    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
        bool asked = false;
        whenShown<QFileDialog>([&](QFileDialog *dialog) {
            whenShown<QMessageBox>([&](QMessageBox *box) {
                asked = true;
                QTest::mouseClick(box->button(button), Qt::LeftButton);
            });
            chooseName(dialog, "piece.csd");
        });
        const auto path = m_dialogs.saveFile(question());
        QVERIFY(asked);
        QCOMPARE(path.has_value(), button == QMessageBox::Yes);
    }
}

void tst_QtDialogs::saveFile_existing_markupIsShownAsItIs()
{
    touch("<b>piece<b>.csd"); // the name comes first in the box's text
    bool asked = false;
    whenShown<QFileDialog>([&](QFileDialog *dialog) {
        whenShown<QMessageBox>([&](QMessageBox *box) {
            asked = true;
            QVERIFY(box->text().startsWith("<b>piece<b>.csd"));
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
        });
        chooseName(dialog, "<b>piece<b>.csd");
    });
    CHECKED(m_dialogs.saveFile(question()));
    QVERIFY(asked);
}

/// An untitled document proposes a name with a bracket in it.
void tst_QtDialogs::saveFile_proposedName_isInTheField()
{
    ardiphon::FileQuestion proposing = question();
    proposing.proposedName = QStringLiteral("[Untit.orc");
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        const auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QCOMPARE(field->text(), QStringLiteral("[Untit.orc"));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.saveFile(proposing));
    QCOMPARE(chosen, m_folder->filePath("[Untit.orc"));
}

void tst_QtDialogs::saveFile_proposedPath_beginsInItsFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir("waves"));
    FileQuestion proposing = question();
    proposing.proposedName = m_folder->filePath("waves/piece.orc");
    whenShown<QFileDialog>([](QFileDialog *dialog) {
        QCOMPARE(dialog->findChild<QLineEdit *>("fileNameEdit")->text(), "piece.orc");
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    std::optional<QString> chosen;
    CHECKED(chosen = m_dialogs.saveFile(proposing));
    QCOMPARE(chosen, proposing.proposedName);
}

void tst_QtDialogs::saveFile_cancelled_isEmpty()
{
    whenShown<QFileDialog>([](QFileDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QVERIFY(!m_dialogs.saveFile(question()).has_value());
}

void tst_QtDialogs::chosenFile_folder_becomesTheCurrentOne()
{
    touch("piece.csd");
    QVERIFY(QDir(m_folder->path()).mkdir("waves"));
    const QString before = QDir::currentPath();
    whenShown<QFileDialog>([](QFileDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    m_dialogs.openFile(question());
    QCOMPARE(QDir::currentPath(), before);
    whenShown<QFileDialog>([](QFileDialog *dialog) { chooseName(dialog, "piece.csd"); });
    m_dialogs.openFile(question());
    QCOMPARE(QDir::currentPath(), m_folder->path());
    whenShown<QFileDialog>([](QFileDialog *dialog) { chooseName(dialog, "waves/piece.wav"); });
    m_dialogs.saveFile(question());
    QCOMPARE(QDir::currentPath(), m_folder->filePath("waves"));
}

void tst_QtDialogs::choosePrinter_withSelection_offersIt()
{
    whenShown<QPrintDialog>([](QPrintDialog *dialog) {
        auto *const selection = dialog->findChild<QRadioButton *>("printSelection");
        QVERIFY(selection->isChecked());
        QCOMPARE(offeredRanges(*dialog), QStringList({"printAll", "printSelection"}));
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            if (label->text() == "Type:") // of the printer, which stays
                QVERIFY(label->isVisible());
    });
    CHECKED(m_dialogs.choosePrinter({"piece.csd", true}));
}

void tst_QtDialogs::choosePrinter_withoutSelection_offersNone()
{
    whenShown<QPrintDialog>([](QPrintDialog *dialog) {
        for (QPushButton *button : dialog->findChildren<QPushButton *>())
            if (button->text().contains("Options")) // what is folded away at first
                QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(offeredRanges(*dialog), QStringList({"printAll"}));
        QCOMPARE(dialog->testOption(QPrintDialog::PrintToFile),
                 QPrinterInfo::availablePrinterNames().isEmpty());
        QCOMPARE(dialog->objectName(), "CommonDialog1");
    });
    CHECKED(m_dialogs.choosePrinter({"piece.csd", false}));
}

void tst_QtDialogs::choosePrinter_selectionLeft_isReported_data()
{
    QTest::addColumn<bool>("selectionOnly");
    QTest::newRow("left on") << true;
    QTest::newRow("all instead") << false;
}

void tst_QtDialogs::choosePrinter_selectionLeft_isReported()
{
    QFETCH(bool, selectionOnly);
    whenShown<QPrintDialog>([=](QPrintDialog *dialog) {
        if (!selectionOnly)
            QTest::keyClick(dialog->findChild<QRadioButton *>("printAll"), Qt::Key_Space);
        dialog->accept();
    });
    const auto choice = m_dialogs.choosePrinter({"piece.csd", true});
    QVERIFY(choice && choice->printer);
    QCOMPARE(choice->selectionOnly, selectionOnly);
}

void tst_QtDialogs::choosePrinter_cancelled_isEmpty()
{
    whenShown<QPrintDialog>([](QPrintDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QVERIFY(!m_dialogs.choosePrinter({"piece.csd", true}).has_value());
}

void tst_QtDialogs::choosePrinter_noPrinterAtAll_printsIntoAFile()
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("this system has a printer");
    const QString path = m_folder->filePath("out.pdf");
    whenShown<QPrintDialog>([&path](QPrintDialog *dialog) {
        auto *const file = dialog->findChild<QLineEdit *>("filename");
        QCOMPARE(file->text(), QDir::home().filePath("my piece.pdf"));
        file->setText(path);
        dialog->accept();
    });
    {
        std::optional<PrintChoice> choice;
        CHECKED(choice = m_dialogs.choosePrinter({"my piece.csd", false}));
        QVERIFY(choice);
        QVERIFY(choice->printer->startJob("piece.csd"));
        choice->printer->endJob();
    }
    QVERIFY(QFile::exists(path));
}

void tst_QtDialogs::color_chosen_givesItsParts()
{
    whenShown<QColorDialog>([](QColorDialog *dialog) {
        dialog->setCurrentColor(QColor(1, 20, 255));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QCOMPARE(m_dialogs.color(Color::rgb(0, 0, 0)), Color::rgb(1, 20, 255));
}

void tst_QtDialogs::color_opens_withTheFirst()
{
    whenShown<QColorDialog>([](QColorDialog *dialog) {
        QCOMPARE(dialog->currentColor(), QColor(200, 100, 50));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    std::optional<Color> chosen;
    CHECKED(chosen = m_dialogs.color(Color::rgb(200, 100, 50)));
    QCOMPARE(chosen, Color::rgb(200, 100, 50));
}

void tst_QtDialogs::color_cancelled_isEmpty()
{
    whenShown<QColorDialog>([](QColorDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QCOMPARE(m_dialogs.color(Color::rgb(200, 100, 50)), std::optional<Color>());
}

ARDIPHON_TEST(tst_QtDialogs, QApplication)
#include "tst_QtDialogs.moc"
