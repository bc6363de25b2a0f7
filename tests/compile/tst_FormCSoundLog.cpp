#include "compile/CSoundDialog.h"
#include "compile/ui/ErrorJump.h"
#include "support/TestMain.h"
#include <QElapsedTimer>

using namespace ardiphon;

namespace {

QString selection(LEditOCX &editor)
{
    editor.GetSelection();
    return editor.SelText();
}

} // namespace

/// The log in the dialog: the line of the first error, the links, and a log without end.
class tst_FormCSoundLog : public QObject
{
    Q_OBJECT

private slots:
    void error_button_selectsTheLine();
    void error_beyondTheText_doesNoHarm();
    void error_inScore_selectsThere();
    void error_selectedInLog();
    void error_withoutLine_isSelectedAndLeadsNowhere();
    void error_farDownInALongLog_isSelected();
    void link_doubleClick_selectsTheLine();
    void link_pointer_showsIt();
    void link_otherLine_selectsItsWord();
    void link_clickBelowTheLog_isNone();
    void link_jump_showsTheLinesAround_data();
    void link_jump_showsTheLinesAround();
    void error_selectedInLog_showsTheLinesAround();
    void deluge_staysBoundedAndSaysSo();
};

void tst_FormCSoundLog::error_button_selectsTheLine()
{
    CSoundDialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("two two"));
    QCOMPARE(selection(dialog.score), QString());
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!QFile::exists(dialog.logFile()));
}

void tst_FormCSoundLog::error_beyondTheText_doesNoHarm()
{
    CSoundDialog dialog(QStringLiteral("errors"));
    dialog.orchestra.SetText(QStringLiteral("one"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.orchestra.Text(), QStringLiteral("one"));
}

void tst_FormCSoundLog::error_inScore_selectsThere()
{
    CSoundDialog dialog(QStringLiteral("scored"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.score), QStringLiteral("i2 0 1 2"));
    QCOMPARE(selection(dialog.orchestra), QString());
}

void tst_FormCSoundLog::error_selectedInLog()
{
    CSoundDialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    QCOMPARE(dialog.output->textCursor().selectedText(),
             QStringLiteral("error: syntax error, line 2"));
}

void tst_FormCSoundLog::error_withoutLine_isSelectedAndLeadsNowhere()
{
    CSoundDialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    QCOMPARE(dialog.output->textCursor().selectedText(), QStringLiteral("error: syntax error"));
    QVERIFY(!dialog.goToError()->isVisible());
    dialog.goToError()->click();
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(selection(dialog.orchestra), QString());
}

void tst_FormCSoundLog::error_farDownInALongLog_isSelected()
{
    LinkedOutput output([](const QStringList &, qsizetype) { return false; }, 1, nullptr);
    const QString line = QStringLiteral("a line of many\r\n");
    const QString text = line.repeated(60'000) + QStringLiteral("the error\r\n") + line;
    output.setText(text);
    output.insertBanner(0);
    output.show();
    output.select(output.text().indexOf(QLatin1String("error")), 5);
    QVERIFY(!output.textCursor().hasSelection()); // as far as that it is not there yet
    QTRY_COMPARE(output.textCursor().selectedText(), QStringLiteral("error"));
    QCOMPARE(output.textCursor().blockNumber(), 60'007);
    // A new text drops what was to be selected in the old one.
    output.setText(text);
    output.select(text.indexOf(QLatin1String("error")), 5);
    output.setText(line.repeated(60'003));
    QTRY_COMPARE(output.document()->blockCount(), 60'004);
    QVERIFY(!output.textCursor().hasSelection());
}

void tst_FormCSoundLog::link_doubleClick_selectsTheLine()
{
    CSoundDialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    QVERIFY(!dialog.goToError()->isVisible()); // its rules find nothing in such a log
    dialog.doubleClick(QStringLiteral(" from file"));
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("two two"));
    QVERIFY(!dialog.form->isVisible());

    dialog.show();
    dialog.click("Compila");
    dialog.doubleClick(QStringLiteral("in line 1"));
    QCOMPARE(selection(dialog.score), QStringLiteral("i1 0 1"));
    QVERIFY(!dialog.form->isVisible());
}

void tst_FormCSoundLog::link_pointer_showsIt()
{
    CSoundDialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    const auto moveTo = [&](int block) {
        const QTextCursor cursor(dialog.output->document()->findBlockByNumber(block));
        QTest::mouseMove(dialog.output->viewport(), dialog.output->cursorRect(cursor).center());
        return dialog.output->viewport()->cursor().shape();
    };
    const QStringList lines = dialog.text().split(QStringLiteral("\r\n"));
    const int link = int(lines.indexOf(QRegularExpression(QStringLiteral("^ from file.*"))));
    QTRY_COMPARE(moveTo(link), Qt::PointingHandCursor);
    QTRY_COMPARE(moveTo(link - 1), Qt::IBeamCursor);
    // Only the link is underlined.
    const auto hasLine = [&](int block) {
        const QTextCursor cursor(dialog.output->document()->findBlockByNumber(block));
        QRect row = dialog.output->cursorRect(cursor);
        row.setWidth(60);
        const QImage image = dialog.output->viewport()->grab(row).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == QColor(0, 0, 220))
                    return true;
        return false;
    };
    QVERIFY(hasLine(link));
    QVERIFY(!hasLine(link - 1));
}

void tst_FormCSoundLog::link_otherLine_selectsItsWord()
{
    CSoundDialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    dialog.doubleClick(QStringLiteral("error"));
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.output->textCursor().selectedText(), QStringLiteral("error"));
}

/// The last line is a link, and the nearest to what is below it.
void tst_FormCSoundLog::link_clickBelowTheLog_isNone()
{
    int chosen = 0;
    LinkedOutput output([](const QStringList &lines,
                           qsizetype index) { return lines[index] == QLatin1String("link"); },
                        1, nullptr);
    connect(&output, &LinkedOutput::linkChosen, this, [&chosen] { ++chosen; });
    output.resize(400, 400);
    output.setText(QStringLiteral("first\r\nlink"));
    output.show();
    const QRect line = output.cursorRect(QTextCursor(output.document()->lastBlock()));
    const auto doubleClick = [&](int y) {
        QTest::mouseMove(output.viewport(), QPoint(line.x() + 10, y));
        QTest::mouseDClick(output.viewport(), Qt::LeftButton, {}, QPoint(line.x() + 10, y));
    };
    for (const int below : {line.height(), 2 * line.height(), 300}) {
        doubleClick(line.bottom() + below);
        QCOMPARE(output.viewport()->cursor().shape(), Qt::IBeamCursor);
        QCOMPARE(output.viewport()->toolTip(), QString());
    }
    QCOMPARE(chosen, 0);
    doubleClick(line.center().y());
    QCOMPARE(chosen, 1);
    // A long log is no slower to click on than a short one: nothing looks for the link through it.
    output.setText(QStringLiteral("link\r\n").repeated(200'000) + QStringLiteral("link"));
    QTRY_COMPARE_WITH_TIMEOUT(output.document()->blockCount(), 200'001, 20'000);
    output.moveCursor(QTextCursor::End);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i)
        doubleClick(output.viewport()->height() - 1);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void tst_FormCSoundLog::link_jump_showsTheLinesAround_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("top");
    for (const int line : {1, 2, 20, 100, 199, 200})
        for (const int top : {1, 90, 180})
            QTest::addRow("line %d from %d", line, top) << line << top;
}

void tst_FormCSoundLog::link_jump_showsTheLinesAround()
{
    QFETCH(int, line);
    QFETCH(int, top);
    LEditOCX editor;
    editor.resize(400, 300);
    editor.show();
    editor.SetText(QStringLiteral("i1 0 1\r\n").repeated(199) + QStringLiteral("i1 0 1"));
    editor.SetTopLine(top);
    jumpToErrorLine(editor, line);
    editor.GetSelection();
    QCOMPARE(editor.SelStartLine, line);
    QCOMPARE(editor.SelText(), QStringLiteral("i1 0 1"));
    const int first = editor.TopLine();
    const int last = first + editor.height() / editor.LineHeight() - 1;
    QVERIFY2(first <= std::max(1, line - 3), qPrintable(QString::number(first)));
    QVERIFY2(last >= std::min(200, line + 3), qPrintable(QString::number(last)));
    // Where it was seen well, nothing moves.
    const int seen = editor.TopLine();
    jumpToErrorLine(editor, line);
    QCOMPARE(editor.TopLine(), seen);
}

void tst_FormCSoundLog::error_selectedInLog_showsTheLinesAround()
{
    CompilerOutput output;
    output.resize(400, 300);
    output.show();
    const QString line = QStringLiteral("a line of many\r\n");
    output.setText(line.repeated(100) + QStringLiteral("the error\r\n") + line.repeated(100));
    output.select(output.text().indexOf(QLatin1String("error")), 5);
    const QRect caret = output.cursorRect();
    QVERIFY(caret.top() >= 3 * caret.height());
    QVERIFY(caret.bottom() <= output.viewport()->height() - 3 * caret.height());
}

void tst_FormCSoundLog::deluge_staysBoundedAndSaysSo()
{
    CSoundDialog dialog(QStringLiteral("deluge"));
    dialog.click("Compila");
    QVERIFY(dialog.goToError()->isVisible());
    QVERIFY(dialog.text().size() < 20'000'000);
    static const QRegularExpression said(
        QStringLiteral("\\[\\.\\.\\. \\d{9} bytes of the log are not shown here \\.\\.\\.\\]"));
    QVERIFY(dialog.text().contains(said));
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("three"));
}

ARDIPHON_TEST(tst_FormCSoundLog, QApplication)
#include "tst_FormCSoundLog.moc"
