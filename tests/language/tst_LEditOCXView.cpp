// The bookmarks, the scroll position, the fonts and the colours of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryFile>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCXView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void bookmark_followsEditsAboveIt();
    void bookmark_lineDeleted_movesToTheNext();
    void bookmark_allDeleted_isLineOne();
    void bookmark_badArguments_changeNothing();
    void bookmark_clearDocument_keepsItsLine();
    void bookmark_line_isDrawnInItsColors();
    void topLine_isClamped();
    void resized_reportsThatTheViewHasChanged();
    void positionToPixels_growsWithLineAndColumn();
    void font_setAndRead();
    void font_missingFamily_keepsItsName();
    void tabSize_movesTheTabStop();
    void tokenColors_areAskedForWhatIsSeen();
    void tokenColors_commentsAreNeverAsked();
    void tokenColors_commentOpened_recolorsBelow();
    void tokenColors_aNewAnswer_showsAtTheNextRepaint();
    void tokenColors_redraw_bringsNewAnswersToTheScreen();
    void tokenColors_wordAskedForBeforeThePaint_recolorsBelow();
    void tokenColors_moreThanTheStyles_areAllDrawn();
    void colors_areDrawn();

private:
    QColor pixel(int line, int column);
    QColor onScreen(int line, int column);

    std::unique_ptr<LEditOCX> m_editor;
};

void tst_LEditOCXView::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

// The colour behind a character, at its upper left corner.
QColor tst_LEditOCXView::pixel(int line, int column)
{
    const QPixmap picture = m_editor->grab();
    return picture.toImage().pixelColor(m_editor->PositionToPixels(line, column) + QPoint(1, 1));
}

// The same as the screen shows it; nothing is drawn for it.
QColor tst_LEditOCXView::onScreen(int line, int column)
{
    QCoreApplication::processEvents();
    const QPixmap picture = m_editor->screen()->grabWindow(m_editor->winId());
    return picture.toImage().pixelColor(m_editor->PositionToPixels(line, column) + QPoint(1, 1));
}

void tst_LEditOCXView::bookmark_followsEditsAboveIt()
{
    m_editor->SetText("1\r\n2\r\n3\r\n4\r\n5");
    m_editor->SetBookmarkLine(1, 4);
    m_editor->SetBookmarkLine(15, 4);
    goTo(*m_editor, 2, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->GetBookmarkLine(1), 5);
    m_editor->Undo();
    QCOMPARE(m_editor->GetBookmarkLine(1), 4);
    m_editor->Redo();
    QCOMPARE(m_editor->GetBookmarkLine(15), 5);
    select(*m_editor, 1, 0, 4, 0);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(m_editor->GetBookmarkLine(1), 2);
    goTo(*m_editor, 2, 0); // a line end before its text moves the bookmark with the text
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->GetBookmarkLine(1), 3);
    goTo(*m_editor, 5, 0); // below it
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->GetBookmarkLine(1), 3);
    m_editor->SetBookmarkLine(1, -1);
    QCOMPARE(m_editor->GetBookmarkLine(1), -1);
    QCOMPARE(m_editor->GetBookmarkLine(15), 3);
}

void tst_LEditOCXView::bookmark_lineDeleted_movesToTheNext()
{
    m_editor->SetText("1\r\n2\r\n3\r\n4");
    m_editor->SetBookmarkLine(1, 2);
    select(*m_editor, 2, 0, 3, 0);
    m_editor->SetSelText("");
    QCOMPARE(m_editor->Text(), "1\r\n3\r\n4");
    QCOMPARE(m_editor->GetBookmarkLine(1), 2);
}

void tst_LEditOCXView::bookmark_allDeleted_isLineOne()
{
    m_editor->SetText("1\r\n2\r\n3\r\n4");
    m_editor->SetBookmarkLine(1, 3);
    m_editor->SetText("");
    QCOMPARE(m_editor->GetBookmarkLine(1), 1);
}

void tst_LEditOCXView::bookmark_badArguments_changeNothing()
{
    m_editor->SetText("1\r\n2");
    m_editor->SetBookmarkLine(1, 2);
    for (int line : {0, -2, 3, INT_MAX, INT_MIN})
        m_editor->SetBookmarkLine(1, line);
    QCOMPARE(m_editor->GetBookmarkLine(1), 2);
    for (int index : {-1, 32, INT_MAX, INT_MIN}) {
        m_editor->SetBookmarkLine(index, 1);
        m_editor->SetBookmarkBackColor(index, Color());
        m_editor->ClearBookmarkForeColor(index);
        QCOMPARE(m_editor->GetBookmarkLine(index), -1);
    }
}

void tst_LEditOCXView::bookmark_clearDocument_keepsItsLine()
{
    m_editor->SetText("1\r\n2\r\n3");
    m_editor->SetBookmarkLine(1, 3);
    m_editor->ClearDocument();
    QCOMPARE(m_editor->GetBookmarkLine(1), 3);
    QTemporaryFile file;
    QVERIFY(file.open() && file.write("a\nb\nc\nd\n") == 8);
    file.close();
    QVERIFY(m_editor->LoadFile(file.fileName()));
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->GetBookmarkLine(1), 4);
}

void tst_LEditOCXView::bookmark_line_isDrawnInItsColors()
{
    int asked = 0;
    m_editor->SetGetTokenColors([&](TokenKind, const QString &) {
        ++asked;
        return TokenColors{Color::rgb(255, 255, 255), Color::rgb(0, 0, 0)};
    });
    m_editor->SetText("one\r\ntwo ; x\r\nthree");
    m_editor->SetBookmarkLine(2, 2);
    m_editor->SetBookmarkBackColor(2, Color::rgb(240, 0, 0));
    m_editor->SetBookmarkForeColor(2, Color::rgb(255, 255, 255));
    QCOMPARE(pixel(2, 0), QColor(240, 0, 0));
    QCOMPARE(pixel(1, 0), QColor(255, 255, 255));
    const QImage picture = m_editor->grab().toImage();
    QCOMPARE(picture.pixelColor(500, m_editor->PositionToPixels(2, 0).y() + 1), QColor(240, 0, 0));
    m_editor->ClearBookmarkBackColor(2);
    m_editor->ClearBookmarkForeColor(2);
    QCOMPARE(pixel(2, 0), QColor(255, 255, 255));
}

void tst_LEditOCXView::topLine_isClamped()
{
    m_editor->SetText(QString("x\r\n").repeated(200));
    QSignalSpy repaints(m_editor.get(), &LEditOCX::Repaint);
    m_editor->SetTopLine(50);
    QCOMPARE(m_editor->TopLine(), 50);
    QTRY_VERIFY(!repaints.isEmpty());
    repaints.clear();
    type(*m_editor, "x");
    QTRY_VERIFY(!repaints.isEmpty());
    m_editor->SetTopLine(-7);
    QCOMPARE(m_editor->TopLine(), 1);
    m_editor->SetTopLine(INT_MAX);
    QVERIFY(m_editor->TopLine() > 150 && m_editor->TopLine() <= 201);
    m_editor->SetTopLine(INT_MIN);
    QCOMPARE(m_editor->TopLine(), 1);
}

void tst_LEditOCXView::resized_reportsThatTheViewHasChanged()
{
    m_editor->SetText("one\r\ntwo");
    m_editor->grab();
    QCoreApplication::processEvents();
    QSignalSpy repaints(m_editor.get(), &LEditOCX::Repaint);
    m_editor->resize(m_editor->width() - 40, m_editor->height() - 40);
    QTRY_VERIFY(!repaints.isEmpty());
}

void tst_LEditOCXView::positionToPixels_growsWithLineAndColumn()
{
    m_editor->SetText("one\r\ntwo");
    const QPoint first = m_editor->PositionToPixels(1, 0);
    QCOMPARE(first.y(), 0);
    QVERIFY(first.x() >= 0 && first.x() < 10);
    QCOMPARE(m_editor->PositionToPixels(2, 0), first + QPoint(0, m_editor->LineHeight()));
    const int advance = m_editor->PositionToPixels(1, 1).x() - first.x();
    QVERIFY(advance > 0);
    QVERIFY(qAbs(m_editor->PositionToPixels(1, 3).x() - first.x() - 3 * advance) <= 3);
}

void tst_LEditOCXView::font_setAndRead()
{
    QCOMPARE(m_editor->FontName(), "Courier New");
    QSignalSpy repaints(m_editor.get(), &LEditOCX::Repaint);
    const int before = m_editor->LineHeight();
    m_editor->SetFontSize(20);
    QCOMPARE(m_editor->FontSize(), 20.0);
    QVERIFY(m_editor->LineHeight() > before);
    QVERIFY(!repaints.isEmpty());
    m_editor->SetFontSize(0);
    m_editor->SetFontSize(qQNaN());
    QCOMPARE(m_editor->FontSize(), 20.0);
    m_editor->SetFontName("DejaVu Sans Mono");
    m_editor->SetFontName("");
    QCOMPARE(m_editor->FontName(), "DejaVu Sans Mono");
    m_editor->SetText("iii");
    const QImage plain = m_editor->grab().toImage();
    const QList<void (LEditOCX::*)(bool)> flags{&LEditOCX::SetFontBold, &LEditOCX::SetFontItalic,
                                                &LEditOCX::SetFontUnderline,
                                                &LEditOCX::SetFontStrikethrough};
    for (const auto flag : flags) {
        (m_editor.get()->*flag)(true);
        QVERIFY(m_editor->grab().toImage() != plain);
        (m_editor.get()->*flag)(false);
        QVERIFY(m_editor->grab().toImage() == plain);
    }
}

void tst_LEditOCXView::font_missingFamily_keepsItsName()
{
    m_editor->SetFontName("No Such Font");
    QCOMPARE(m_editor->FontName(), "No Such Font");
    m_editor->SetText("iiii\r\nWWWW");
    QCOMPARE(m_editor->PositionToPixels(1, 4).x(), m_editor->PositionToPixels(2, 4).x());
}

void tst_LEditOCXView::tabSize_movesTheTabStop()
{
    m_editor->SetText("\tx\r\n1234");
    m_editor->SetTabSize(4);
    QCOMPARE(m_editor->TabSize(), 4);
    QCOMPARE(m_editor->PositionToPixels(1, 1).x(), m_editor->PositionToPixels(2, 4).x());
    m_editor->SetTabSize(0);
    m_editor->SetTabSize(-3);
    QCOMPARE(m_editor->TabSize(), 4);
}

void tst_LEditOCXView::tokenColors_areAskedForWhatIsSeen()
{
    QStringList asked;
    m_editor->SetGetTokenColors([&](TokenKind kind, const QString &text) {
        if (kind == TokenKind::Word)
            asked.append(text);
        return TokenColors{Color::rgb(255, 255, 255), Color::rgb(0, 0, 0)};
    });
    QString text = "/* over\r\n";
    for (int line = 2; line < 5000; ++line)
        text += line == 2500 ? QString("*/\r\n") : QString("w%1\r\n").arg(line);
    m_editor->SetText(text);
    m_editor->grab();
    QVERIFY(asked.isEmpty());
    goTo(*m_editor, 4990, 0);
    m_editor->grab();
    QVERIFY(asked.contains("w4990"));
    QVERIFY(!asked.contains("w4000"));
    asked.clear();
    m_editor->SetTopLine(2495);
    m_editor->grab();
    QVERIFY(asked.contains("w2501"));
    QVERIFY(!asked.contains("w2499"));
}

void tst_LEditOCXView::tokenColors_commentsAreNeverAsked()
{
    QStringList asked;
    m_editor->SetGetTokenColors([&](TokenKind kind, const QString &text) {
        asked.append(QString::number(int(kind), 16) + ' ' + text);
        return TokenColors{};
    });
    m_editor->SetText("a = \"q\" 0dbfs ; no /* no\r\n/* no */ b");
    m_editor->grab();
    asked.removeDuplicates();
    QCOMPARE(asked, QStringList({"1 a", "8000 =", "6001 \"q\"", "0 0dbfs", "1 b"}));
}

void tst_LEditOCXView::tokenColors_commentOpened_recolorsBelow()
{
    QStringList asked;
    m_editor->SetBackColor(Color::rgb(1, 2, 3));
    m_editor->SetGetTokenColors([&](TokenKind, const QString &text) {
        asked.append(text);
        return TokenColors{Color::rgb(0, 200, 0), Color::rgb(0, 0, 0)};
    });
    m_editor->SetText("one\r\n\r\nword");
    QCOMPARE(pixel(3, 0), QColor(0, 200, 0));
    goTo(*m_editor, 1, 0);
    type(*m_editor, "/*");
    QCOMPARE(pixel(3, 0), QColor(1, 2, 3));
    QCoreApplication::processEvents();
    asked.clear();
    // Only the first line changes, and yet the third is drawn again.
    m_editor->Undo();
    QTRY_VERIFY(asked.contains("word"));
    QCOMPARE(pixel(3, 0), QColor(0, 200, 0));
}

void tst_LEditOCXView::tokenColors_aNewAnswer_showsAtTheNextRepaint()
{
    Color back = Color::rgb(0, 200, 0);
    m_editor->SetGetTokenColors([&](TokenKind, const QString &) {
        return TokenColors{back, Color::rgb(0, 0, 0)};
    });
    m_editor->SetText("word");
    QCOMPARE(pixel(1, 0), QColor(0, 200, 0));
    back = Color::rgb(200, 0, 0);
    QCOMPARE(pixel(1, 0), QColor(200, 0, 0));
}

void tst_LEditOCXView::tokenColors_redraw_bringsNewAnswersToTheScreen()
{
    Color back = Color::rgb(0, 200, 0);
    m_editor->SetGetTokenColors([&](TokenKind, const QString &) {
        return TokenColors{back, Color::rgb(0, 0, 0)};
    });
    m_editor->SetText("\r\n\r\nword"); // not beside the caret, whose line is drawn as it blinks
    QTRY_COMPARE(onScreen(3, 2), QColor(0, 200, 0));
    back = Color::rgb(200, 0, 0);
    m_editor->Redraw();
    QTRY_COMPARE(onScreen(3, 2), QColor(200, 0, 0));
    m_editor->SetGetTokenColors([](TokenKind, const QString &) {
        return TokenColors{Color::rgb(0, 0, 200), Color::rgb(0, 0, 0)};
    });
    QTRY_COMPARE(onScreen(3, 2), QColor(0, 0, 200));
}

/// The word at a caret that is not in view may be asked for between a change and what it has drawn.
void tst_LEditOCXView::tokenColors_wordAskedForBeforeThePaint_recolorsBelow()
{
    m_editor->SetBackColor(Color::rgb(1, 2, 3));
    m_editor->SetGetTokenColors([](TokenKind, const QString &) {
        return TokenColors{Color::rgb(0, 200, 0), Color::rgb(0, 0, 0)};
    });
    const QString text = QStringLiteral("\r\nword").repeated(200);
    m_editor->SetText(text);
    goTo(*m_editor, 150, 2);
    m_editor->SetTopLine(1);
    QTRY_COMPARE(onScreen(5, 2), QColor(0, 200, 0));
    m_editor->SetText("/*" + text);
    m_editor->UpdateCurrentWord();
    QCOMPARE(m_editor->CurrentWord(), "");
    QTRY_COMPARE(onScreen(5, 2), QColor(1, 2, 3));
}

void tst_LEditOCXView::tokenColors_moreThanTheStyles_areAllDrawn()
{
    m_editor->SetGetTokenColors([](TokenKind, const QString &text) {
        return TokenColors{Color::rgb(text.mid(1).toUInt() % 256, text.mid(1).toUInt() / 256, 77),
                           Color::rgb(0, 0, 0)};
    });
    QString text;
    for (int line = 1; line <= 600; ++line)
        text += QString("w%1\r\n").arg(line);
    m_editor->SetText(text);
    for (int top = 1; top <= 580; top += 10) {
        m_editor->SetTopLine(top);
        QTRY_COMPARE(pixel(top + 3, 0), QColor((top + 3) % 256, (top + 3) / 256, 77));
    }
}

void tst_LEditOCXView::colors_areDrawn()
{
    m_editor->SetBackColor(Color::rgb(10, 20, 30));
    m_editor->SetSelectionBackColor(Color::rgb(40, 50, 60));
    m_editor->SetSelectionForeColor(Color::rgb(255, 255, 255));
    m_editor->SetText("xx ; yy");
    select(*m_editor, 1, 0, 1, 2);
    QCOMPARE(pixel(1, 0), QColor(40, 50, 60));
    QCOMPARE(pixel(1, 5), QColor(10, 20, 30));
    m_editor->SetForeColor(Color::rgb(0, 255, 0));
    const QImage picture = m_editor->grab().toImage();
    const QPoint comment = m_editor->PositionToPixels(1, 5);
    bool green = false;
    for (int x = comment.x(); x < comment.x() + 20; ++x) {
        for (int y = 0; y < m_editor->LineHeight(); ++y)
            green |= picture.pixelColor(x, y).green() > 150;
    }
    QVERIFY(green);
}

ARDIPHON_TEST(tst_LEditOCXView, QApplication)
#include "tst_LEditOCXView.moc"
