#include "app/RecentFiles.h"
#include "documents/CsdDocumentFixture.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QMenuBar>
#include <QWindow>

using namespace ardiphon;

/// What comes into the CSD window from the recent list and from other programs, and how its name is
/// shown.
class tst_CsdArriving : public QObject, private CsdDocumentFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void recent_eachOfFour_isShownAndOpens_data();
    void recent_eachOfFour_isShownAndOpens();
    void recent_fiveOpened_showTheLastFour();
    void drop_offeredToBeMoved_isCopied();
    void drop_pageBeforeAFile_opensTheFile();
    void drop_withoutAFile_isNotTaken_data();
    void drop_withoutAFile_isNotTaken();
    void title_nameWithTheToolkitsMark_isShownWhole();
};

void tst_CsdArriving::recent_eachOfFour_isShownAndOpens_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    const char *const names[] = {"four.csd", "three.csd", "two.csd", "one.csd"};
    for (int i = 0; i < 4; ++i)
        QTest::newRow(names[i]) << i << QString::fromLatin1(names[i]);
}

void tst_CsdArriving::recent_eachOfFour_isShownAndOpens()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    for (const char *each : {"one.csd", "two.csd", "three.csd", "four.csd"})
        UpdateRecentFiles(m_program->config, m_program->settings,
                          m_program->write(QLatin1String(each), each));
    open();
    auto *entry = control<QAction>(qPrintable(QStringLiteral("menuLastFile(%1)").arg(index)));
    QVERIFY(entry->text().endsWith(QStringLiteral("] ") + name));
    entry->trigger();
    QCOMPARE(m_editor->Text(), name);
    QCOMPARE(m_program->config.CSDFileName, m_program->path(name));
}

/// The menu follows what is opened while it is there.
void tst_CsdArriving::recent_fiveOpened_showTheLastFour()
{
    open();
    for (const char *each : {"one.csd", "two.csd", "three.csd", "four.csd", "five.csd"})
        FileDrop::on(*m_window, {m_program->write(QLatin1String(each), each)});
    int index = 0;
    for (const char *each : {"five.csd", "four.csd", "three.csd", "two.csd"}) {
        const QString name = QStringLiteral("menuLastFile(%1)").arg(index++);
        QVERIFY(control<QAction>(qPrintable(name))->text().endsWith(QLatin1String(each)));
    }
}

/// Whoever drags a file away may delete it where it was moved to another program.
void tst_CsdArriving::drop_offeredToBeMoved_isCopied()
{
    open();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(m_program->write(QStringLiteral("one.csd"), "one"))});
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(m_window, &enter);
    QVERIFY(enter.isAccepted());
    QCOMPARE(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop({5, 5}, offered, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(m_window, &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
}

void tst_CsdArriving::drop_pageBeforeAFile_opensTheFile()
{
    open();
    const QUrl file = QUrl::fromLocalFile(m_program->write(QStringLiteral("one.csd"), "one"));
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://host/a.csd")), file});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &drop);
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
}

void tst_CsdArriving::drop_withoutAFile_isNotTaken_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("text") << QStringLiteral("instr 1") << QList<QUrl>();
    QTest::newRow("page") << QString() << QList<QUrl>{QUrl(QStringLiteral("https://host/a.csd"))};
    QTest::newRow("nothing") << QString() << QList<QUrl>();
}

/// Neither by the window nor, where it is no text, by the editor; no question comes.
void tst_CsdArriving::drop_withoutAFile_isNotTaken()
{
    QFETCH(QString, text);
    QFETCH(QList<QUrl>, urls);
    open(m_program->write(QStringLiteral("piece.csd"), "old"));
    type(QStringLiteral("x"));
    QMimeData data;
    if (!text.isEmpty())
        data.setText(text);
    if (!urls.isEmpty())
        data.setUrls(urls);
    QList<QWidget *> targets{m_window, m_window->menuBar()};
    if (text.isEmpty())
        targets.append(m_editor->focusProxy());
    for (QWidget *target : targets) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(target, &enter);
        QVERIFY(!enter.isAccepted());
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
        QCOMPARE(m_editor->Text(), QStringLiteral("xold"));
        QCOMPARE(m_program->config.CSDFileName, m_program->path(QStringLiteral("piece.csd")));
    }
}

void tst_CsdArriving::title_nameWithTheToolkitsMark_isShownWhole()
{
    const auto shown = [this] { return m_window->windowHandle()->title(); };
    const QString path = m_program->write(QStringLiteral("q[*][*].csd"), "x");
    UpdateRecentFiles(m_program->config, m_program->settings, path);
    open(m_program->write(QStringLiteral("q[*].csd"), "x"));
    QCOMPARE(shown(), m_program->path(QStringLiteral("q[*].csd")) + TitleEnd);
    trigger("menuLastFile(1)");
    QCOMPARE(shown(), ProgramFirst + path);
    type(QStringLiteral("x"));
    QTRY_COMPARE(shown(), ProgramFirst + path + u'*');
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(shown(), path + TitleEnd);
    trigger("menuFileProprieta");
    QTRY_VERIFY(m_window->findChild<QDialog *>(QStringLiteral("FileProperties")));
    const auto *dialog = m_window->findChild<QDialog *>(QStringLiteral("FileProperties"));
    QTRY_VERIFY(dialog->windowHandle());
    QCOMPARE(dialog->windowHandle()->title(), QStringLiteral("Properties of q[*][*].csd"));
}

ARDIPHON_TEST(tst_CsdArriving, QApplication)
#include "tst_CsdArriving.moc"
