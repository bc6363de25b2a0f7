#include "documents/CsdFixture.h"
#include "support/EditorInput.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

using namespace ardiphon;

/// Indenting by blocks, as one types and by the command.
class tst_IndentFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void off_newLinesAreAsTheLineAbove();
    void on_linesStandByTheirBlocks();
    void on_enterIsOneStep();
    void on_restOfTheLineComesAlong();
    void on_scoreIsAsBefore();
    void on_splitGetsTheSame();
    void setting_holdsAtOnce();
    void reindent_doesThePiece();
    void reindent_doesTheSelection();
    void reindent_keepsCaretAndFolds();

private:
    /// Opens a piece with an empty line in its orchestra, and goes there.
    void showOrchestra(const QByteArray &lines = {}, bool indents = true)
    {
        m_program->config.IndentByBlocks = indents;
        m_program->config.AutoIndent = QStringLiteral("1");
        show("<CsoundSynthesizer>\r\n<CsInstruments>\r\n" + lines +
             "\r\n</CsInstruments>\r\n<CsScore>\r\n\r\n</CsScore>\r\n</CsoundSynthesizer>\r\n");
        caret(first(), 3, 0);
    }
    /// Types lines with "|" between them.
    void type(const char *text)
    {
        for (const QString &part : QString::fromLatin1(text).split(u'|')) {
            if (m_typed++ > 0)
                EditorInput::press(*first(), Qt::Key_Return);
            EditorInput::type(*first(), part);
        }
        m_typed = 0;
    }
    /// Lines from the third on.
    QString lines(int count) const
    {
        QStringList all;
        for (int line = 3; line < 3 + count; ++line)
            all.append(first()->LineText(line));
        return all.join(u'|');
    }

    int m_typed = 0;
};

void tst_IndentFeature::off_newLinesAreAsTheLineAbove()
{
    showOrchestra({}, false);
    type("instr 1|  if p4 > 0 then|x = 1|endif|endin|y");
    QCOMPARE(lines(6), QStringLiteral("instr 1|  if p4 > 0 then|  x = 1|  endif|  endin|  y"));
}

void tst_IndentFeature::on_linesStandByTheirBlocks()
{
    showOrchestra();
    type("instr 1|kx = p4|if kx > 0 then|ky = 1|else|ky = 2|endif|out ky|endin||instr 2");
    QCOMPARE(lines(11), QStringLiteral("instr 1|\tkx = p4|\tif kx > 0 then|\t\tky = 1|\telse|"
                                       "\t\tky = 2|\tendif|\tout ky|endin||instr 2"));
}

void tst_IndentFeature::on_enterIsOneStep()
{
    showOrchestra("instr 1\r\n\tendin");
    caret(first(), 4, 6);
    ShadowText shadow(*first());
    EditorInput::press(*first(), Qt::Key_Return);
    QCOMPARE(lines(3), QStringLiteral("instr 1|endin|"));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("5:0-5:0"));
    QCOMPARE(shadow.changes().size(), 1);
    QCOMPARE(shadow.faults(), QString());
    first()->Undo();
    QCOMPARE(lines(2), QStringLiteral("instr 1|\tendin"));
}

void tst_IndentFeature::on_restOfTheLineComesAlong()
{
    showOrchestra("instr 1 out 2");
    caret(first(), 3, 8);
    EditorInput::press(*first(), Qt::Key_Return);
    QCOMPARE(lines(2), QStringLiteral("instr 1 |\tout 2"));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("4:1-4:1"));
}

void tst_IndentFeature::on_scoreIsAsBefore()
{
    showOrchestra();
    caret(first(), 6, 0);
    type("  i 1 0 1|if|endif");
    QCOMPARE(first()->LineText(6), QStringLiteral("  i 1 0 1"));
    QCOMPARE(first()->LineText(7), QStringLiteral("  if"));
    QCOMPARE(first()->LineText(8), QStringLiteral("  endif"));
}

void tst_IndentFeature::on_splitGetsTheSame()
{
    showOrchestra();
    trigger("buttonSplit");
    QTRY_COMPARE(second()->Text(), first()->Text());
    type("instr 1|kx = 1|endin|");
    QCOMPARE(lines(4), QStringLiteral("instr 1|\tkx = 1|endin|"));
    QTRY_COMPARE(second()->Text(), first()->Text());
}

void tst_IndentFeature::setting_holdsAtOnce()
{
    showOrchestra({}, false);
    type("instr 1|");
    QCOMPARE(lines(2), QStringLiteral("instr 1|"));
    EditorInput::press(*first(), Qt::Key_Backspace);
    m_program->config.IndentByBlocks = true;
    type("|x");
    QCOMPARE(lines(2), QStringLiteral("instr 1|\tx"));
}

/// Whether new lines are indented or not.
void tst_IndentFeature::reindent_doesThePiece()
{
    showOrchestra("  instr 1\r\nkx = 1\r\n\t\t\tif kx == 1 then\r\nky = 1\r\nendif\r\n endin",
                  false);
    const QString before = first()->Text();
    ShadowText shadow(*first());
    trigger("menuStudioReindent");
    QCOMPARE(lines(6),
             QStringLiteral("instr 1|\tkx = 1|\tif kx == 1 then|\t\tky = 1|\tendif|endin"));
    QCOMPARE(shadow.changes().size(), 1);
    first()->Undo();
    QCOMPARE(first()->Text(), before);
}

void tst_IndentFeature::reindent_doesTheSelection()
{
    showOrchestra("instr 1\r\nkx = 1\r\nky = 1\r\nkz = 1\r\nendin");
    caret(first(), 5, 1, 6, 0);
    trigger("menuStudioReindent");
    QCOMPARE(lines(5), QStringLiteral("instr 1|kx = 1|\tky = 1|kz = 1|endin"));
}

void tst_IndentFeature::reindent_keepsCaretAndFolds()
{
    showOrchestra("instr 1\r\nkx = 1\r\nendin\r\ninstr 2\r\nky = 1\r\nendin");
    first()->FoldLines({{4, 5}});
    caret(first(), 7, 1);
    trigger("menuStudioReindent");
    QCOMPARE(lines(6), QStringLiteral("instr 1|\tkx = 1|endin|instr 2|\tky = 1|endin"));
    QCOMPARE(first()->HiddenUnder(3), (LineRun{4, 5}));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("7:2-7:2"));
}

ARDIPHON_TEST(tst_IndentFeature, QApplication)
#include "tst_IndentFeature.moc"
