#include "documents/CsdFixture.h"
#include "support/EditorInput.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QListView>

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
    void closing_comesOutWithItsLastLetter_data();
    void closing_comesOutWithItsLastLetter();
    void closing_off_staysAsItIs();
    void closing_isOneStepWithItsLetter();
    void closing_leavesTheLettersOneStep();
    void closing_thatGrows_goesBack();
    void closing_elseToElseif_staysOut();
    void closing_ofAHandIndentedLine_staysThere();
    void closing_indentedAgain_staysThere();
    void closing_elsewhere_movesNothing_data();
    void closing_elsewhere_movesNothing();
    void closing_atSeveralCarets_movesNothing();
    void closing_overASelection_movesNothing();
    void closing_takenFromTheList_comesOut();
    void closing_listGoesOn();
    void closing_inASplit_isInBothViews();
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

    /// The suggestions; null where there are none.
    QListView *list() const
    {
        auto *const view = m_window->findChild<QListView *>(QStringLiteral("ListCompletion"));
        return view && view->isVisible() ? view : nullptr;
    }
    void takeFromList(const QString &name)
    {
        for (int i = 0; i < 5 && list() && list()->currentIndex().data().toString() != name; ++i)
            EditorInput::press(*first(), Qt::Key_Down);
        QVERIFY(list());
        QCOMPARE(list()->currentIndex().data().toString(), name);
        EditorInput::press(*first(), Qt::Key_Tab);
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

void tst_IndentFeature::closing_comesOutWithItsLastLetter_data()
{
    QTest::addColumn<QByteArray>("above");
    QTest::addColumn<QString>("word");
    QTest::newRow("endin") << QByteArray("instr 1") << "endin";
    QTest::newRow("endop") << QByteArray("opcode foo, a, a") << "endop";
    QTest::newRow("endif") << QByteArray("if 1 == 1 then") << "endif";
    QTest::newRow("else") << QByteArray("if 1 == 1 then") << "else";
    QTest::newRow("elseif") << QByteArray("if 1 == 1 then") << "elseif";
    QTest::newRow("od") << QByteArray("while 1 == 1 do") << "od";
    QTest::newRow("enduntil") << QByteArray("until 1 == 1 do") << "enduntil";
    QTest::newRow("endsw") << QByteArray("switch 1") << "endsw";
}

void tst_IndentFeature::closing_comesOutWithItsLastLetter()
{
    QFETCH(QByteArray, above);
    QFETCH(QString, word);
    showOrchestra(above + "\r\n\t");
    caret(first(), 4, 1);
    const int shown = word == QLatin1String("elseif") ? 4 : int(word.size());
    EditorInput::type(*first(), word.left(shown - 1));
    QCOMPARE(first()->LineText(4), u'\t' + word.left(shown - 1));
    EditorInput::type(*first(), word.mid(shown - 1));
    QCOMPARE(first()->LineText(4), word);
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("4:%1-4:%1").arg(word.size()));
    EditorInput::press(*first(), Qt::Key_Return);
    QCOMPARE(first()->LineText(4), word);
}

void tst_IndentFeature::closing_off_staysAsItIs()
{
    showOrchestra({}, false);
    type("instr 1|\tx = 1|endin");
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tx = 1|\tendin"));
}

void tst_IndentFeature::closing_isOneStepWithItsLetter()
{
    showOrchestra();
    type("instr 1|endi");
    ShadowText shadow(*first());
    type("n");
    QCOMPARE(lines(2), QStringLiteral("instr 1|endin"));
    QCOMPARE(shadow.changes().size(), 1);
    QCOMPARE(shadow.faults(), QString());
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(lines(2), QStringLiteral("instr 1|\tendi"));
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(lines(2), QStringLiteral("instr 1|endin"));
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier);
    type("f");
    QCOMPARE(lines(2), QStringLiteral("instr 1|\tendif"));
}

/// All other letters that are typed in a row are one step, as before.
void tst_IndentFeature::closing_leavesTheLettersOneStep()
{
    showOrchestra();
    type("instr 1|");
    type("kelse");
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(lines(2), QStringLiteral("instr 1|\t"));
}

void tst_IndentFeature::closing_thatGrows_goesBack()
{
    showOrchestra();
    type("while 1 == 1 do|od");
    QCOMPARE(lines(2), QStringLiteral("while 1 == 1 do|od"));
    type("d");
    QCOMPARE(lines(2), QStringLiteral("while 1 == 1 do|\todd"));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("4:4-4:4"));
    EditorInput::press(*first(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(lines(2), QStringLiteral("while 1 == 1 do|od"));
    type("d = 1|od");
    QCOMPARE(lines(3), QStringLiteral("while 1 == 1 do|\todd = 1|od"));
    type("| if 1 == 1 then|else");
    QCOMPARE(first()->LineText(7), QStringLiteral(" else"));
    type("where");
    QCOMPARE(first()->LineText(7), QStringLiteral("         elsewhere"));
}

void tst_IndentFeature::closing_elseToElseif_staysOut()
{
    showOrchestra();
    type("if 1 == 1 then|else");
    type("i");
    QCOMPARE(lines(2), QStringLiteral("if 1 == 1 then|elsei"));
    type("f");
    QCOMPARE(lines(2), QStringLiteral("if 1 == 1 then|elseif"));
    type("f");
    QCOMPARE(lines(2), QStringLiteral("if 1 == 1 then|\telseiff"));
}

void tst_IndentFeature::closing_ofAHandIndentedLine_staysThere()
{
    showOrchestra();
    type("instr 1|kx = 1|  endin");
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tkx = 1|\t  endin"));
    type("|");
    QCOMPARE(lines(4), QStringLiteral("instr 1|\tkx = 1|\t  endin|"));
}

/// Who moves it in again after it came out wants it there.
void tst_IndentFeature::closing_indentedAgain_staysThere()
{
    showOrchestra();
    type("instr 1|endin");
    caret(first(), 4, 0);
    EditorInput::press(*first(), Qt::Key_Tab);
    caret(first(), 4, 6);
    EditorInput::press(*first(), Qt::Key_Return);
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tendin|"));
}

void tst_IndentFeature::closing_elsewhere_movesNothing_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("word");
    QTest::newRow("if") << QByteArray("if 1 == 1 then\r\n\t") << 4 << "if";
    QTest::newRow("instr") << QByteArray("instr 1\r\n\t") << 4 << "instr";
    QTest::newRow("comment") << QByteArray("instr 1\r\n\t; ") << 4 << "endin";
    QTest::newRow("comment over lines") << QByteArray("instr 1\r\n/*\r\n\t") << 5 << "endin";
    QTest::newRow("text") << QByteArray("instr 1\r\n\t\"") << 4 << "endin";
    QTest::newRow("text over lines") << QByteArray("instr 1\r\nprints {{\r\n\t") << 5 << "endin";
    QTest::newRow("behind something") << QByteArray("instr 1\r\n\tx ") << 4 << "endin";
    QTest::newRow("score") << QByteArray("\r\n</CsInstruments>\r\n<CsScore>\r\ninstr 1\r\n\t") << 7
                           << "endin";
}

void tst_IndentFeature::closing_elsewhere_movesNothing()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, line);
    QFETCH(QString, word);
    showOrchestra(lines);
    const QString before = first()->LineText(line);
    caret(first(), line, int(before.size()));
    EditorInput::type(*first(), word);
    QCOMPARE(first()->LineText(line), before + word);
}

void tst_IndentFeature::closing_atSeveralCarets_movesNothing()
{
    showOrchestra("instr 1\r\n\tx\r\n\tendx");
    caret(first(), 4, 1, 4, 2);
    first()->SelectNextOccurrence();
    QVERIFY(first()->HasFurtherCarets());
    type("in");
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tin|\tendin"));
}

void tst_IndentFeature::closing_overASelection_movesNothing()
{
    showOrchestra("instr 1\r\n\tendi  ");
    caret(first(), 4, 5, 4, 7);
    type("n");
    QCOMPARE(lines(2), QStringLiteral("instr 1|\tendin"));
}

void tst_IndentFeature::closing_takenFromTheList_comesOut()
{
    showOrchestra();
    type("instr 1|kx = 1|endi");
    ShadowText shadow(*first());
    takeFromList(QStringLiteral("endin"));
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tkx = 1|endin"));
    QCOMPARE(EditorInput::selection(*first()), QStringLiteral("5:5-5:5"));
    QCOMPARE(shadow.changes().size(), 1);
    first()->Undo();
    QCOMPARE(lines(3), QStringLiteral("instr 1|\tkx = 1|\tendi"));
}

/// The list stays with a word whose blanks change, and stays away where it was sent away.
void tst_IndentFeature::closing_listGoesOn()
{
    showOrchestra();
    type("if 1 == 1 then|els");
    QVERIFY(list());
    type("e");
    QCOMPARE(lines(2), QStringLiteral("if 1 == 1 then|else"));
    QVERIFY(list());
    type("i");
    QVERIFY(list());
    QCOMPARE(list()->currentIndex().data().toString(), QStringLiteral("elseif"));
    EditorInput::press(*first(), Qt::Key_Tab);
    QCOMPARE(lines(2), QStringLiteral("if 1 == 1 then|elseif"));

    type("|els");
    QVERIFY(list());
    EditorInput::press(*first(), Qt::Key_Escape);
    type("e");
    QCOMPARE(lines(3), QStringLiteral("if 1 == 1 then|elseif|else"));
    QVERIFY(!list());

    m_program->config.CompletionWhileTyping = false;
    type("|fi");
    QVERIFY(!list());
    trigger("menuStudioComplete");
    QVERIFY(list());
    type("l");
    QCOMPARE(lines(4), QStringLiteral("if 1 == 1 then|elseif|else|\tfil"));
    QVERIFY(list());
}

void tst_IndentFeature::closing_inASplit_isInBothViews()
{
    showOrchestra();
    trigger("buttonSplit");
    QTRY_COMPARE(second()->Text(), first()->Text());
    type("instr 1|while 1 == 1 do|");
    QTRY_COMPARE(second()->Text(), first()->Text());
    type("od");
    QCOMPARE(lines(3), QStringLiteral("instr 1|\twhile 1 == 1 do|\tod"));
    QCOMPARE(second()->Text(), first()->Text());
    type("d");
    QCOMPARE(lines(3), QStringLiteral("instr 1|\twhile 1 == 1 do|\t\todd"));
    QCOMPARE(second()->Text(), first()->Text());
    type("|endi");
    QTRY_COMPARE(second()->Text(), first()->Text());
    second()->setFocus();
    caret(second(), 6, second()->LineLength(6));
    EditorInput::type(*second(), QStringLiteral("f"));
    QCOMPARE(second()->LineText(6), QStringLiteral("\t\tendif"));
    caret(second(), 6, 2, 6, 7);
    EditorInput::press(*second(), Qt::Key_Delete);
    QTRY_COMPARE(second()->Text(), first()->Text());
    EditorInput::type(*second(), QStringLiteral("od"));
    QCOMPARE(second()->LineText(6), QStringLiteral("\tod"));
    QCOMPARE(second()->Text(), first()->Text());

    first()->setFocus();
    caret(first(), 6, 1, 6, 3);
    EditorInput::press(*first(), Qt::Key_Delete);
    QTRY_COMPARE(second()->Text(), first()->Text());
    type("endi");
    takeFromList(QStringLiteral("endin"));
    QCOMPARE(first()->LineText(6), QStringLiteral("endin"));
    QCOMPARE(second()->Text(), first()->Text());
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
