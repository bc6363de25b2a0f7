// What lines far down begin in, after edits anywhere above them. The seed may be given in
// ARDIPHON_TEST_SEED.

#include "language/Tokenizer.h"
#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;
using namespace EditorInput;

class tst_LineStates : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anyEdits_leaveWordsAndCommentsApart();

private:
    int below(int limit) { return int(m_random.bounded(limit)); }
    int anyLine() { return 1 + below(m_editor.LineCount()); }
    void change();
    bool isInComment(int line) const;
    bool showsWordIn(int line);

    QRandomGenerator m_random{randomSeed(7)};
    LEditOCX m_editor;
};

void tst_LineStates::init()
{
    m_editor.resize(400, 200);
    m_editor.SetText(
        QStringLiteral("word and some more words, all of them plain\r\n").repeated(3000));
    m_editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_editor));
}

void tst_LineStates::change()
{
    static const char *const pieces[] = {"/*", "*/",   "/",  "*",  "\"",
                                         ";",  "\r\n", "\r", "x ", "word\n"};
    const int line = anyLine();
    switch (below(5)) {
    case 0:
        select(m_editor, line, below(40), line + below(3), below(40));
        m_editor.SetSelText({});
        break;
    case 1:
        m_editor.Undo();
        break;
    case 2:
        select(m_editor, line, 0, std::min(line + below(900), m_editor.LineCount()), 0);
        m_editor.SetSelText(below(2) ? m_editor.SelText() + m_editor.SelText() : QString());
        break;
    default:
        goTo(m_editor, line, below(40));
        m_editor.SetSelText(QString::fromLatin1(pieces[below(int(std::size(pieces)))]));
    }
}

bool tst_LineStates::isInComment(int line) const
{
    LineState state = LineState::Text;
    for (int before = 1; before < line; ++before)
        state = stateBehind(m_editor.LineText(before).toUtf8() + '\n', state);
    return state == LineState::BlockComment;
}

bool tst_LineStates::showsWordIn(int line)
{
    goTo(m_editor, line, 0);
    m_editor.UpdateCurrentWord();
    return !m_editor.CurrentWord().isEmpty();
}

void tst_LineStates::anyEdits_leaveWordsAndCommentsApart()
{
    int comments = 0;
    for (int round = 0; round < 400; ++round) {
        if (m_editor.LineCount() < 2000 || m_editor.LineCount() > 20'000)
            init();
        for (int count = below(3); count >= 0; --count)
            change();
        if (below(3) == 0)
            m_editor.grab();
        for (int asked = 0; asked < 2; ++asked) {
            const int line = anyLine();
            if (!m_editor.LineText(line).startsWith(QStringLiteral("word")))
                continue;
            const bool isComment = isInComment(line);
            comments += isComment;
            QVERIFY2(showsWordIn(line) != isComment,
                     qPrintable(QStringLiteral("round %1, line %2").arg(round).arg(line)));
        }
    }
    QVERIFY(comments > 20);
}

ARDIPHON_TEST(tst_LineStates, QApplication)
#include "tst_LineStates.moc"
