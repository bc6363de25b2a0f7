#include "app/ConfigurationBlock.h"
#include "app/ui/PathField.h"
#include "preferences/ui/FolderTree.h"
#include "preferences/ui/FormDirectory.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// The window of the working directory.
class tst_FormDirectory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void window_closesOnItsButtonAndOnEsc();
    void directory_empty_becomesTheRoot();
    void directory_showsWhereItIs();
    void directory_long_isShownByTheToolTip();
    void directory_missing_staysWithoutMessage();
    void directory_hidden_isShown();
    void directory_moving_choosesAtOnce();
    void directory_click_choosesAtOnce();
    void directory_closing_keepsTheChoice_data();
    void directory_closing_keepsTheChoice();
    void directory_unreadable_isEmpty();
    void asterisk_opensNothing();
    void largeFolder_isSortedAndHasOneIcon();
    void largeFolder_aboveTheChosenOne_keepsItInView();
    void largeFolder_userMovedMeanwhile_keepsTheView();

private:
    static void show(QDialog &window);
    QString inFolder(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    ConfigurationBlock m_config;
};

void tst_FormDirectory::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *name : {"alpha/inner", "Beta", ".hidden/deep"})
        QVERIFY(QDir().mkpath(inFolder(name)));
    m_config.WorkingDirectory = m_folder->path();
}

void tst_FormDirectory::show(QDialog &window)
{
    window.show();
    require(QTest::qWaitForWindowExposed(&window), "the window does not show");
}

void tst_FormDirectory::window_closesOnItsButtonAndOnEsc()
{
    for (const bool byKey : {false, true}) {
        FormDirectory window(m_config, nullptr);
        show(window);
        QCOMPARE(window.objectName(), "FormDirectory");
        QCOMPARE(window.windowTitle(), "Working Directory");
        QVERIFY(window.isModal());
        QCOMPARE(window.minimumSize(), window.maximumSize());
        auto *const Command1 = window.findChild<QPushButton *>(QStringLiteral("Command1"));
        QCOMPARE(Command1->text(), QStringLiteral("&OK"));
        if (byKey)
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            QTest::mouseClick(Command1, Qt::LeftButton);
        QVERIFY(!window.isVisible());
    }
}

void tst_FormDirectory::directory_empty_becomesTheRoot()
{
    m_config.WorkingDirectory.clear();
    FormDirectory window(m_config, nullptr);
    QCOMPARE(m_config.WorkingDirectory, QStringLiteral("/"));
    QCOMPARE(window.findChild<QLineEdit *>(QStringLiteral("Text1"))->text(), QStringLiteral("/"));
    QCOMPARE(window.findChild<FolderTree *>(QStringLiteral("Dir1"))->path(), QStringLiteral("/"));
}

void tst_FormDirectory::directory_showsWhereItIs()
{
    FormDirectory window(m_config, nullptr);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    auto *const Text1 = window.findChild<QLineEdit *>(QStringLiteral("Text1"));
    QCOMPARE(Dir1->path(), m_folder->path());
    QCOMPARE(Text1->text(), m_folder->path());
    QVERIFY(Text1->isReadOnly());
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("Label1"))->text(),
             QStringLiteral("Selected Directory:"));
    QStringList names;
    for (int i = 0; i < Dir1->currentItem()->childCount(); ++i)
        names.append(Dir1->currentItem()->child(i)->text(0));
    QCOMPARE(names, (QStringList{QStringLiteral("alpha"), QStringLiteral("Beta")}));
}

void tst_FormDirectory::directory_long_isShownByTheToolTip()
{
    const QString deep = m_folder->filePath(QStringLiteral("a folder/").repeated(20));
    QVERIFY(QDir().mkpath(deep));
    m_config.WorkingDirectory = QDir::cleanPath(deep);
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Text1 =
        static_cast<PathField *>(window.findChild<QLineEdit *>(QStringLiteral("Text1")));
    QVERIFY(Text1->shownText().contains(QChar(0x2026)));
    QCOMPARE(Text1->toolTip(), pathToolTip(Text1->text()));
}

void tst_FormDirectory::directory_missing_staysWithoutMessage()
{
    const QString gone = inFolder("gone");
    m_config.WorkingDirectory = gone;
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    QCOMPARE(Dir1->path(), QDir::currentPath());
    QCOMPARE(m_config.WorkingDirectory, gone);
    QCOMPARE(window.findChild<QLineEdit *>(QStringLiteral("Text1"))->text(), gone);
    QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &window);
}

void tst_FormDirectory::directory_hidden_isShown()
{
    m_config.WorkingDirectory = inFolder(".hidden/deep");
    FormDirectory window(m_config, nullptr);
    QCOMPARE(window.findChild<FolderTree *>(QStringLiteral("Dir1"))->path(),
             inFolder(".hidden/deep"));
}

void tst_FormDirectory::directory_moving_choosesAtOnce()
{
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    auto *const Text1 = window.findChild<QLineEdit *>(QStringLiteral("Text1"));
    const auto press = [&](Qt::Key key, const QString &expected) {
        QTest::keyClick(Dir1, key);
        QCOMPARE(m_config.WorkingDirectory, expected);
        QCOMPARE(Text1->text(), expected);
    };
    CHECKED(press(Qt::Key_Down, inFolder("alpha")));
    CHECKED(press(Qt::Key_Right, inFolder("alpha"))); // opens it
    CHECKED(press(Qt::Key_Down, inFolder("alpha/inner")));
    CHECKED(press(Qt::Key_Down, inFolder("Beta")));
    CHECKED(press(Qt::Key_Left, m_folder->path()));
}

void tst_FormDirectory::directory_click_choosesAtOnce()
{
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    QTreeWidgetItem *const beta = Dir1->currentItem()->child(1);
    Dir1->scrollToItem(beta);
    QTest::mouseClick(Dir1->viewport(), Qt::LeftButton, {}, Dir1->visualItemRect(beta).center());
    QCOMPARE(m_config.WorkingDirectory, inFolder("Beta"));
}

void tst_FormDirectory::directory_closing_keepsTheChoice_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Esc") << true;
    QTest::newRow("OK") << false;
}

void tst_FormDirectory::directory_closing_keepsTheChoice()
{
    QFETCH(bool, byKey);
    FormDirectory window(m_config, nullptr);
    show(window);
    QTest::keyClick(window.findChild<FolderTree *>(QStringLiteral("Dir1")), Qt::Key_Down);
    if (byKey)
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        QTest::mouseClick(window.findChild<QPushButton *>(QStringLiteral("Command1")),
                          Qt::LeftButton);
    QVERIFY(!window.isVisible());
    QCOMPARE(m_config.WorkingDirectory, inFolder("alpha"));
}

void tst_FormDirectory::directory_unreadable_isEmpty()
{
    FolderTree tree(nullptr);
    QVERIFY(!tree.setPath(QString()));
    QVERIFY(!tree.setPath(inFolder("gone")));
    QVERIFY(tree.setPath(inFolder("alpha/inner/..")));
    QCOMPARE(tree.path(), inFolder("alpha"));
    QVERIFY(tree.setPath(inFolder("Beta")));
    QCOMPARE(tree.currentItem()->childCount(), 0);
    // A folder that goes while the window is open reads as empty.
    QVERIFY(QDir(inFolder("alpha/inner")).removeRecursively());
    QTreeWidgetItem *const inner = tree.currentItem()->parent()->child(0)->child(0);
    inner->setExpanded(true);
    QCOMPARE(inner->childCount(), 0);
}

/// A link leads back up, as on many a disk.
void tst_FormDirectory::asterisk_opensNothing()
{
    QVERIFY(QFile::link(m_folder->path(), inFolder("alpha/back")));
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::KeypadModifier}) {
        QTest::keyClick(Dir1, Qt::Key_Asterisk, modifier);
        QCOMPARE(Dir1->path(), m_folder->path());
        for (int i = 0; i < Dir1->currentItem()->childCount(); ++i) {
            QVERIFY(!Dir1->currentItem()->child(i)->isExpanded());
            QCOMPARE(Dir1->currentItem()->child(i)->childCount(), 0);
        }
    }
    QTest::keyClick(Dir1, Qt::Key_Down);
    QTest::keyClick(Dir1, Qt::Key_Right); // the user may go through the link
    QCOMPARE(Dir1->currentItem()->child(0)->text(0), QStringLiteral("back"));
    Dir1->currentItem()->child(0)->setExpanded(true);
    QCOMPARE(Dir1->currentItem()->child(0)->childCount(), 2);
}

void tst_FormDirectory::largeFolder_isSortedAndHasOneIcon()
{
    constexpr int Count = 600;
    for (int i = 0; i < Count; ++i)
        QVERIFY(QDir(inFolder("Beta")).mkdir(QStringLiteral("f%1").arg(i, 4, 10, QChar(u'0'))));
    FolderTree tree(nullptr);
    QVERIFY(tree.setPath(inFolder("Beta")));
    const QTreeWidgetItem *const beta = tree.currentItem();
    QTRY_COMPARE(beta->childCount(), Count);
    const qint64 icon = beta->icon(0).cacheKey();
    for (int i = 0; i < Count; ++i) {
        QCOMPARE(beta->child(i)->text(0), QStringLiteral("f%1").arg(i, 4, 10, QChar(u'0')));
        QCOMPARE(beta->child(i)->icon(0).cacheKey(), icon);
    }
}

void tst_FormDirectory::largeFolder_aboveTheChosenOne_keepsItInView()
{
    for (int i = 0; i < 900; ++i)
        QVERIFY(QDir(inFolder("Beta")).mkdir(QStringLiteral("f%1").arg(i)));
    QVERIFY(QDir().mkdir(inFolder("Beta/.f7")));
    m_config.WorkingDirectory = inFolder("Beta/f700");
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    QTreeWidgetItem *const chosen = Dir1->currentItem();
    QCOMPARE(chosen->text(0), QStringLiteral("f700"));
    QVERIFY(Dir1->setPath(inFolder("Beta/.f7"))); // while the folder may still be read
    QVERIFY(Dir1->setPath(inFolder("Beta/f700")));
    QTRY_COMPARE(chosen->parent()->childCount(), 901);
    QCOMPARE(Dir1->currentItem(), chosen);
    const int middle = Dir1->visualItemRect(chosen).center().y();
    QVERIFY(middle > 0 && middle < Dir1->viewport()->height());
    QCOMPARE(chosen->parent()->indexOfChild(chosen) - 1,
             chosen->parent()->indexOfChild(Dir1->itemAbove(chosen)));
    QStringList names;
    for (int i = 0; i < chosen->parent()->childCount(); ++i)
        if (!chosen->parent()->child(i)->text(0).startsWith(u'.'))
            names.append(chosen->parent()->child(i)->text(0));
    QStringList sorted = names;
    sorted.sort();
    QCOMPARE(names, sorted);
}

void tst_FormDirectory::largeFolder_userMovedMeanwhile_keepsTheView()
{
    constexpr int Count = 20'000; // more than one slice of reading
    const QDir beta(inFolder("Beta"));
    for (int i = 0; i < Count; ++i)
        QVERIFY(beta.mkdir(QStringLiteral("f%1").arg(i)));
    for (const bool byKey : {true, false}) {
        FolderTree tree(nullptr);
        tree.resize(300, 200);
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        QVERIFY(tree.setPath(inFolder("Beta/f10")));
        const QTreeWidgetItem *const parent = tree.currentItem()->parent();
        QTreeWidgetItem *const above = tree.itemAbove(tree.currentItem());
        const QPoint place = tree.visualItemRect(above).center();
        if (byKey)
            QTest::keyClick(&tree, Qt::Key_Up);
        else
            QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(tree.currentItem(), above);
        tree.scrollToTop(); // as by the wheel, which leaves the current folder alone
        QVERIFY(parent->childCount() < Count); // it is being read all the while
        QTRY_COMPARE(parent->childCount(), Count);
        QCOMPARE(tree.verticalScrollBar()->value(), 0);
        QVERIFY(tree.verticalScrollBar()->maximum() > 0);
    }
}

ARDIPHON_TEST(tst_FormDirectory, QApplication)
#include "tst_FormDirectory.moc"
