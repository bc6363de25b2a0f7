#include "app/ui/PathLabel.h"
#include "app/ui/ToolTip.h"
#include "language/WordTables.h"
#include "support/ShownToolTip.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QTest>
#include <QToolTip>

using namespace ardiphon;

/// Tool tips of texts that come from outside.
class tst_ToolTip : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QToolTip::hideText(); }
    void text_isReadAsItIs_data();
    void text_isReadAsItIs();
    void opcodes_areReadAsTheyAre();
    void longText_fitsTheScreen_data();
    void longText_fitsTheScreen();
    void pathLabel_showsItsPath();

private:
    QWidget m_window;
    const QLabel *shown(const QString &tip)
    {
        m_window.show();
        QToolTip::hideText();
        QToolTip::showText(m_window.mapToGlobal(QPoint()), tip, &m_window);
        return toolTipWindow();
    }
};

void tst_ToolTip::text_isReadAsItIs_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"plain", "a & b", "\"a\"", "&amp;", "&lt;b&gt;", "<b>", "<html>",
                             "/m/<i>x</i>.csd", "/m/<img src=\"/dev/zero\">.orc", "a < b > c",
                             "two  blanks", "<b>two  blanks</b>", "<a\nb>", "<br>x", "'"})
        QTest::newRow(text) << QString::fromLatin1(text);
    QTest::newRow("long") << QStringLiteral("<b> & \"  ").repeated(40).trimmed();
}

void tst_ToolTip::text_isReadAsItIs()
{
    QFETCH(QString, text);
    const QLabel *const tip = shown(plainToolTip(text));
    QVERIFY(tip);
    QCOMPARE(readToolTip(tip->text()), text);
}

/// Many of their descriptions hold marks that markup gives a meaning of its own.
void tst_ToolTip::opcodes_areReadAsTheyAre()
{
    WordTables words;
    words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    int marked = 0;
    for (int i = 1; i <= words.OpcodeCount; ++i) {
        QVERIFY(words.ReadOpcodeRecord(i));
        for (const QString &field :
             {words.OpcodeRecord.Description, words.OpcodeRecord.Parameters}) {
            const QString text = field.trimmed();
            QCOMPARE(readToolTip(plainToolTip(text)), text);
            marked += text.contains(u'"') || text.contains(u'&') || text.contains(u'<');
        }
    }
    QVERIFY(marked > 50);
}

void tst_ToolTip::longText_fitsTheScreen_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QStringLiteral("parameter, ").repeated(60);
    QTest::newRow("path") << u'/' + QStringLiteral("folder/").repeated(100);
}

void tst_ToolTip::longText_fitsTheScreen()
{
    QFETCH(QString, text);
    const QLabel *const tip = shown(plainToolTip(text));
    QVERIFY(tip);
    QVERIFY2(tip->width() <= m_window.screen()->availableGeometry().width(),
             qPrintable(QString::number(tip->width())));
}

void tst_ToolTip::pathLabel_showsItsPath()
{
    PathLabel label(QStringLiteral("LabelInput"), nullptr);
    for (const char *path : {"/m/a & \"b\".wav", "/m/<html>.wav"}) {
        label.showPath(QLatin1String(path));
        QCOMPARE(readToolTip(label.toolTip()), QLatin1String(path));
    }
}

ARDIPHON_TEST(tst_ToolTip, QApplication)
#include "tst_ToolTip.moc"
