// The colours far behind in a very long line, as they are drawn.

#include "language/Tokenizer.h"
#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QAbstractScrollArea>
#include <QRandomGenerator>
#include <QScrollBar>

#include <memory>

using namespace ardiphon;
using namespace EditorInput;

class tst_LongLines : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void far_tokens_haveTheirColors();
    void far_commentsAndQuotes_beginLongBefore_data();
    void far_commentsAndQuotes_beginLongBefore();
    void far_commentMarks_areNowhereCut();
    void far_edits_recolorWhatFollows();
    void far_editsAtTheLinesStart_recolorItsEnd();
    void far_blockComment_goesOnInTheNextLine();
    void far_selection_isDrawnInItsColors();
    void far_bookmarkedLine_isDrawnInItsColors();
    void far_textThatMovesToTheFront_keepsNoColor();
    void far_textThatMovesBack_keepsNoColor();
    void far_newColors_showAtTheNextRepaint();
    void far_withoutTokenColors_commentsAreStillTold();
    void far_scrolledSideways_colorsWhatComesIntoView();
    void far_tokens_areAskedForOnlyWhereSeen();
    void far_everyColumn_isColoredAsTokenized();

private:
    QString look(int line, int column);

    std::unique_ptr<LEditOCX> m_editor;
    int m_asked = 0;
};

namespace {

constexpr int Styled = 1 << 14; // a line is styled up to here
const QString Front = QStringLiteral("w ").repeated(10'000);

const Color White = Color::rgb(255, 255, 255);
const Color Yellow = Color::rgb(255, 255, 0);
const Color Red = Color::rgb(240, 0, 0);
const Color Blue = Color::rgb(0, 0, 255);
const Color Green = Color::rgb(0, 140, 0);
const Color Black = Color::rgb(0, 0, 0);
const Color Magenta = Color::rgb(255, 0, 255);
const Color Gray = Color::rgb(150, 150, 150);

TokenColors colorsOfKind(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Word:
        return {White, Blue};
    case TokenKind::Quoted:
        return {Yellow, Green};
    case TokenKind::Operator:
        return {White, Magenta};
    default:
        return {White, Black};
    }
}

QString nameOf(QColor seen)
{
    const std::pair<const char *, Color> named[] = {
        {"white", White}, {"yellow", Yellow}, {"red", Red},         {"blue", Blue},
        {"green", Green}, {"black", Black},   {"magenta", Magenta}, {"gray", Gray}};
    QString best;
    int least = 1000;
    for (const auto &[name, color] : named) {
        const int distance = std::abs(seen.red() - color.red()) +
                             std::abs(seen.green() - color.green()) +
                             std::abs(seen.blue() - color.blue());
        if (distance < least) {
            least = distance;
            best = QLatin1String(name);
        }
    }
    return best;
}

int distance(QColor one, QColor other)
{
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

} // namespace

void tst_LongLines::init()
{
    m_asked = 0;
    m_editor = std::make_unique<LEditOCX>();
    m_editor->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    m_editor->SetFontSize(24);
    m_editor->SetBackColor(White);
    m_editor->SetForeColor(Red);
    m_editor->SetGetTokenColors([this](TokenKind kind, const QString &) {
        ++m_asked;
        return colorsOfKind(kind);
    });
    m_editor->resize(600, 200);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

/// Brings a column into view, and gives "ink on ground" of its character.
QString tst_LongLines::look(int line, int column)
{
    m_editor->grab(); // a line that was never drawn is measured otherwise
    goTo(*m_editor, line, std::max(column - 8, 0));
    goTo(*m_editor, line, column + 8);
    const QImage picture = m_editor->grab().toImage();
    const QPoint at = m_editor->PositionToPixels(line, column);
    const int width = m_editor->PositionToPixels(line, column + 1).x() - at.x();
    const QColor ground = picture.pixelColor(at + QPoint(2, 0)); // the edge may be of both
    QColor ink = ground;
    for (int y = at.y(); y < at.y() + m_editor->LineHeight(); ++y)
        for (int x = at.x() + 2; x < at.x() + width - 2; ++x)
            if (distance(picture.pixelColor(x, y), ground) > distance(ink, ground))
                ink = picture.pixelColor(x, y);
    return nameOf(ink) + QStringLiteral(" on ") + nameOf(ground);
}

void tst_LongLines::far_tokens_haveTheirColors()
{
    m_editor->SetText(Front + QStringLiteral("MM \"MM\" = 88 ; MM\r\nMM"));
    QCOMPARE(look(1, 0), QStringLiteral("blue on white"));
    QCOMPARE(look(1, 20'000), QStringLiteral("blue on white"));
    QCOMPARE(look(1, 20'004), QStringLiteral("green on yellow"));
    QCOMPARE(look(1, 20'008), QStringLiteral("magenta on white"));
    QCOMPARE(look(1, 20'010), QStringLiteral("black on white"));
    QCOMPARE(look(1, 20'015), QStringLiteral("red on white"));
    QCOMPARE(look(2, 0), QStringLiteral("blue on white"));
    // Around the place to which a line is styled.
    for (int column = Styled - 6; column < Styled + 6; column += 2)
        QCOMPARE(look(1, column), QStringLiteral("blue on white"));
}

void tst_LongLines::far_commentsAndQuotes_beginLongBefore_data()
{
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("inside");
    QTest::addColumn<QString>("behind");
    QTest::newRow("quoted") << "\""
                            << "\""
                            << "green on yellow"
                            << "blue on white";
    QTest::newRow("comment") << "/*"
                             << "*/"
                             << "red on white"
                             << "blue on white";
    QTest::newRow("line comment") << ";"
                                  << "*/"
                                  << "red on white"
                                  << "red on white";
    QTest::newRow("closed at once") << "/**/"
                                    << ""
                                    << "blue on white"
                                    << "blue on white";
}

void tst_LongLines::far_commentsAndQuotes_beginLongBefore()
{
    QFETCH(QString, begin);
    QFETCH(QString, end);
    for (const int before : {1, 16'380, 20'000}) {
        m_editor->SetText(QStringLiteral("M ").repeated(before / 2) + begin +
                          QStringLiteral("M ").repeated(30'000) + end +
                          QStringLiteral(" M").repeated(100));
        const int inside = before / 2 * 2 + int(begin.size());
        for (const int column : {2, 16'000, 16'384, 33'000, 59'990})
            QTEST(look(1, inside + column), "inside");
        QTEST(look(1, inside + 60'000 + int(end.size()) + 21), "behind");
    }
}

/// The line is read in parts, and none ends inside a mark.
void tst_LongLines::far_commentMarks_areNowhereCut()
{
    const QString words = QStringLiteral("M ").repeated(20'000);
    for (int at = Styled - 3; at < Styled + 3; ++at) {
        m_editor->SetText(words.first(at) + QStringLiteral("/* ") + words);
        QCOMPARE(look(1, at + 3 + 4000), QStringLiteral("red on white"));
        m_editor->SetText(QStringLiteral("/*") + words.first(at - 2) + QStringLiteral("*/ ") +
                          words);
        QCOMPARE(look(1, at + 3 + 4000), QStringLiteral("blue on white"));
    }
}

void tst_LongLines::far_edits_recolorWhatFollows()
{
    m_editor->SetText(Front + QStringLiteral("MM MM MM MM"));
    QCOMPARE(look(1, 20'006), QStringLiteral("blue on white"));
    goTo(*m_editor, 1, 20'002);
    type(*m_editor, QStringLiteral("\""));
    QCOMPARE(look(1, 20'007), QStringLiteral("green on yellow"));
    QCOMPARE(look(1, 20'006), QStringLiteral("yellow on yellow"));
    QCOMPARE(look(1, 20'000), QStringLiteral("blue on white"));
    m_editor->Undo();
    QCOMPARE(look(1, 20'006), QStringLiteral("blue on white"));
    QCOMPARE(look(1, 20'005), QStringLiteral("white on white")); // the blank too
    goTo(*m_editor, 1, 20'002);
    type(*m_editor, QStringLiteral(";"));
    QCOMPARE(look(1, 20'007), QStringLiteral("red on white"));
}

void tst_LongLines::far_editsAtTheLinesStart_recolorItsEnd()
{
    m_editor->SetText(QStringLiteral("x\r\n") + Front + Front + QStringLiteral("MM MM MM MM"));
    QCOMPARE(look(2, 40'000), QStringLiteral("blue on white"));
    for (const int line : {2, 1}) { // a comment that is opened in the line before goes on
        goTo(*m_editor, line, 0);
        type(*m_editor, QStringLiteral("/*"));
        QCOMPARE(look(2, 40'003), QStringLiteral("red on white"));
        m_editor->Undo();
        QCOMPARE(look(2, 40'003), QStringLiteral("blue on white"));
    }
}

void tst_LongLines::far_blockComment_goesOnInTheNextLine()
{
    m_editor->SetText(Front + QStringLiteral("/* MM\r\nMM ") + Front +
                      QStringLiteral("*/ MM\r\nMM"));
    QCOMPARE(look(1, 20'003), QStringLiteral("red on white"));
    QCOMPARE(look(2, 0), QStringLiteral("red on white"));
    QCOMPARE(look(2, 19'997), QStringLiteral("red on white"));
    QCOMPARE(look(2, 20'006), QStringLiteral("blue on white"));
    QCOMPARE(look(3, 0), QStringLiteral("blue on white"));
}

void tst_LongLines::far_selection_isDrawnInItsColors()
{
    m_editor->SetText(Front + QStringLiteral("\"MMMMMMMM\" MM"));
    m_editor->SetSelectionBackColor(Gray);
    m_editor->SetSelectionForeColor(Black);
    select(*m_editor, 1, 20'003, 1, 20'006);
    const QImage picture = m_editor->grab().toImage();
    const auto ground = [&](int column) {
        return nameOf(picture.pixelColor(m_editor->PositionToPixels(1, column) + QPoint(1, 0)));
    };
    QCOMPARE(ground(20'002), QStringLiteral("yellow"));
    QCOMPARE(ground(20'003), QStringLiteral("gray"));
    QCOMPARE(ground(20'005), QStringLiteral("gray"));
    QCOMPARE(ground(20'006), QStringLiteral("yellow"));
    QCOMPARE(look(1, 20'004), QStringLiteral("green on yellow")); // and none any more
}

void tst_LongLines::far_bookmarkedLine_isDrawnInItsColors()
{
    m_editor->SetText(Front + QStringLiteral("MM \"MM\" ; MM"));
    m_editor->SetBookmarkLine(1, 1);
    m_editor->SetBookmarkBackColor(1, Red);
    m_editor->SetBookmarkForeColor(1, White);
    for (const int column : {20'000, 20'004, 20'010})
        QCOMPARE(look(1, column), QStringLiteral("white on red"));
    m_editor->ClearBookmarkBackColor(1);
    m_editor->ClearBookmarkForeColor(1);
    QCOMPARE(look(1, 20'004), QStringLiteral("green on yellow"));
}

void tst_LongLines::far_textThatMovesToTheFront_keepsNoColor()
{
    m_editor->SetText(Front + QStringLiteral("\"MM MM\" MM"));
    QCOMPARE(look(1, 20'002), QStringLiteral("green on yellow"));
    select(*m_editor, 1, 0, 1, 20'001);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(m_editor->Text(), QStringLiteral("MM MM\" MM"));
    QCOMPARE(look(1, 0), QStringLiteral("blue on white"));
    QCOMPARE(look(1, 3), QStringLiteral("blue on white"));
    QCOMPARE(look(1, 7), QStringLiteral("green on yellow"));
}

void tst_LongLines::far_textThatMovesBack_keepsNoColor()
{
    m_editor->SetText(QStringLiteral("MM \"MM MM\" M") + QStringLiteral(" M").repeated(20'000));
    QCOMPARE(look(1, 4), QStringLiteral("green on yellow"));
    goTo(*m_editor, 1, 0);
    m_editor->SetSelText(Front + QStringLiteral("; "));
    QCOMPARE(look(1, 20'006), QStringLiteral("red on white"));
}

void tst_LongLines::far_newColors_showAtTheNextRepaint()
{
    m_editor->SetText(Front + QStringLiteral("MM ; MM"));
    QCOMPARE(look(1, 20'000), QStringLiteral("blue on white"));
    m_editor->SetGetTokenColors([](TokenKind, const QString &) {
        return TokenColors{White, Magenta};
    });
    m_editor->SetForeColor(Green);
    QCOMPARE(look(1, 20'000), QStringLiteral("magenta on white"));
    QCOMPARE(look(1, 20'005), QStringLiteral("green on white"));
}

void tst_LongLines::far_withoutTokenColors_commentsAreStillTold()
{
    m_editor->SetGetTokenColors({});
    m_editor->SetText(Front + QStringLiteral("MM ; MM"));
    QCOMPARE(look(1, 0), QStringLiteral("black on white"));
    QCOMPARE(look(1, 20'000), QStringLiteral("black on white"));
    QCOMPARE(look(1, 20'005), QStringLiteral("red on white"));
}

/// Without a caret that moves there: the scroll bar of the view.
void tst_LongLines::far_scrolledSideways_colorsWhatComesIntoView()
{
    m_editor->SetText(QStringLiteral("\"MM\" ").repeated(10'000));
    QCOMPARE(look(1, 49'995), QStringLiteral("green on yellow")); // lets the view know the width
    goTo(*m_editor, 1, 0);
    auto *view = qobject_cast<QAbstractScrollArea *>(m_editor->focusProxy());
    QVERIFY(view);
    for (const int column : {30'000, 20'000, 45'000}) {
        const QPoint begin = m_editor->PositionToPixels(1, 0);
        const QPoint wanted = m_editor->PositionToPixels(1, column);
        view->horizontalScrollBar()->setValue(wanted.x() - begin.x());
        const QImage picture = m_editor->grab().toImage();
        for (int letter = column + 5; letter < column + 15; letter += 5)
            QCOMPARE(nameOf(picture.pixelColor(m_editor->PositionToPixels(1, letter + 1))),
                     QStringLiteral("yellow"));
    }
}

void tst_LongLines::far_tokens_areAskedForOnlyWhereSeen()
{
    m_editor->SetText(QStringLiteral("M ").repeated(500'000));
    look(1, 900'000);
    m_asked = 0;
    look(1, 500'000);
    QVERIFY2(m_asked > 0 && m_asked < 40'000, qPrintable(QString::number(m_asked)));
    // What is drawn asks for no further drawing.
    m_editor->clearFocus();
    m_editor->repaint();
    QTRY_VERIFY((m_asked = 0, QCoreApplication::processEvents(), m_asked) == 0);
}

/// Any text is coloured as the tokens of the whole line would have it.
void tst_LongLines::far_everyColumn_isColoredAsTokenized()
{
    QRandomGenerator random(randomSeed(14));
    const QStringList pieces{"MM ", "MM,", "88 ", "=",   "\"MM MM\" ", "/* MM */ ", "\"",
                             "/*",  "*/",  "MMM", " / ", " * ",        "$M. ",      "MMMMMMM "};
    for (int round = 0; round < 12; ++round) {
        QString text;
        const int rare = 6 + random.bounded(300); // how rarely an unclosed quote or comment comes
        while (text.size() < 60'000) {
            const int piece = random.bounded(int(pieces.size()));
            if ((piece < 6 || piece > 8) || random.bounded(rare) == 0)
                text += pieces[piece];
        }
        m_editor->SetText(text);
        const QByteArray bytes = text.toUtf8();
        LineState state = LineState::Text;
        const QList<Token> tokens = tokenizeLine(bytes, state);
        for (int probe = 0; probe < 25; ++probe) {
            const Token &token = tokens[random.bounded(int(tokens.size()))];
            const int column = int(token.start + random.bounded(int(token.length)));
            const char shown = bytes[column];
            if (shown != 'M' && shown != '8')
                continue;
            const TokenColors expected =
                token.comment ? TokenColors{White, Red} : colorsOfKind(token.kind);
            const auto named = [](Color color) {
                return nameOf(QColor(color.red(), color.green(), color.blue()));
            };
            QCOMPARE(look(1, column), named(expected.fore) + " on " + named(expected.back));
        }
    }
}

ARDIPHON_TEST(tst_LongLines, QApplication)
#include "tst_LongLines.moc"
