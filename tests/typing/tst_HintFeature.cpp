#include "documents/CsdFixture.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextDocument>

using namespace ardiphon;

/// The hint at the caret, in a real window.
class tst_HintFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void typed_followsTheArguments();
    void score_hasTheNamesOfItsFields();
    void everyPlace_leavesTheLineFree();
    void escape_hidesUntilTheCallIsLeft();
    void escape_withoutHint_isNotTaken();
    void focus_staysInTheView();
    void otherFocus_hides();
    void scroll_hides();
    void windowThatMoves_hides();
    void setting_holdsAtOnce();
    void secondView_hasItsOwn();
    void typing_isTheSameWithAndWithout();

private:
    QLabel *hint() const { return m_window->findChild<QLabel *>(QStringLiteral("LabelHint")); }
    bool isShown() const { return hint()->isVisible(); }
    /// What is read there, with * around what is bold; "" where it is hidden.
    QString shown() const
    {
        if (!isShown())
            return QString();
        QString html = hint()->text();
        html.replace(QLatin1String("<b>"), QLatin1String("*"));
        html.replace(QLatin1String("</b>"), QLatin1String("*"));
        QTextDocument document;
        document.setHtml(html);
        return document.toPlainText();
    }
    void type(const char *text) { QTest::keyClicks(first()->focusProxy(), QLatin1String(text)); }
    void press(Qt::Key key, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(first()->focusProxy(), key, with);
    }
    /// Opens the piece and puts the caret into the second argument of its opcode.
    void showCall()
    {
        show(CalledPiece);
        caret(first(), 3, 14);
        QTRY_COMPARE(shown(), Called);
    }

    static inline const QByteArray CalledPiece =
        "<CsInstruments>\ninstr 1\na1 oscili .5, 440\nout a1\nicps = p4\nendin\n</CsInstruments>\n"
        "<CsScore>\ni 1 0 1 440\n</CsScore>\n";
    static inline const QString Called = QStringLiteral("ares oscili xamp, *xcps* [, ifn, iphs]");
};

void tst_HintFeature::typed_followsTheArguments()
{
    show("<CsInstruments>\ninstr 1\n\nendin\n");
    caret(first(), 3, 0);
    type("a1 oscili ");
    QTRY_COMPARE(shown(), QStringLiteral("ares oscili *xamp*, xcps [, ifn, iphs]"));
    type(".5, ");
    QTRY_COMPARE(shown(), Called);
    type("oscili:k(");
    QTRY_COMPARE(shown(), QStringLiteral("kres oscili *kamp*, kcps [, ifn, iphs]"));
    type("1, 2)");
    QTRY_COMPARE(shown(), Called);
    type(" ; 440,");
    QTRY_VERIFY(!isShown());
    QCOMPARE(first()->LineText(3), QStringLiteral("a1 oscili .5, oscili:k(1, 2) ; 440,"));
}

void tst_HintFeature::score_hasTheNamesOfItsFields()
{
    show(CalledPiece);
    caret(first(), 9, 9);
    QTRY_COMPARE(shown(),
                 QStringLiteral("instr 1:  p1 instrument  p2 start  p3 duration  *p4 icps*"));
    press(Qt::Key_Up);
    QTRY_VERIFY(!isShown());
}

void tst_HintFeature::everyPlace_leavesTheLineFree()
{
    show(CalledPiece);
    for (const QPoint at : {QPoint(0, 0), QPoint(400, 300), QPoint(600, 200)}) {
        m_window->move(at);
        for (const int line : {3, 9}) {
            caret(first(), 1, 0);
            QTRY_VERIFY(!isShown());
            caret(first(), line, 11);
            QTRY_VERIFY(isShown());
            const QPoint top =
                first()->mapToGlobal(QPoint(0, first()->PositionToPixels(line, 0).y()));
            const QRect row(top, QSize(first()->width(), first()->LineHeight()));
            QVERIFY(!hint()->geometry().intersects(row));
        }
    }
}

void tst_HintFeature::escape_hidesUntilTheCallIsLeft()
{
    showCall();
    press(Qt::Key_Escape);
    QVERIFY(!isShown());
    press(Qt::Key_Right);
    type("1");
    QTest::qWait(100); // it would show after 30 ms
    QVERIFY(!isShown());
    caret(first(), 5, 0);
    QTest::qWait(100); // the caret rests outside of it
    caret(first(), 3, 14);
    QTRY_VERIFY(isShown());
}

void tst_HintFeature::escape_withoutHint_isNotTaken()
{
    show(CalledPiece);
    int keys = 0;
    connect(first(), &LEditOCX::KeyDown, this,
            [&](const EditorKey &key) { keys += key.KeyCode == Qt::Key_Escape ? 1 : 0; });
    caret(first(), 5, 0);
    press(Qt::Key_Escape);
    QCOMPARE(keys, 1);
    caret(first(), 3, 14);
    QTRY_VERIFY(isShown());
    press(Qt::Key_Escape);
    QCOMPARE(keys, 1);
}

void tst_HintFeature::focus_staysInTheView()
{
    showCall();
    QCOMPARE(QApplication::focusWidget(), first()->focusProxy());
    QVERIFY(hint()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    QCOMPARE(hint()->focusPolicy(), Qt::NoFocus);
    QVERIFY(hint()->testAttribute(Qt::WA_TransparentForMouseEvents));
}

void tst_HintFeature::otherFocus_hides()
{
    showCall();
    control<QLineEdit>("TextOpcode")->setFocus();
    QTRY_VERIFY(!isShown());
    first()->setFocus();
    QTRY_COMPARE(shown(), Called);
}

void tst_HintFeature::scroll_hides()
{
    show(CalledPiece + QByteArray("\n").repeated(500));
    caret(first(), 3, 14);
    QTRY_VERIFY(isShown());
    first()->SetTopLine(2);
    QTRY_VERIFY(!isShown());
}

void tst_HintFeature::windowThatMoves_hides()
{
    showCall();
    m_window->move(m_window->pos() + QPoint(20, 20));
    QTRY_VERIFY(!isShown());
    press(Qt::Key_Right);
    QTRY_COMPARE(shown(), Called);
    m_window->resize(m_window->size() - QSize(30, 30));
    QTRY_VERIFY(!isShown());
}

void tst_HintFeature::setting_holdsAtOnce()
{
    showCall();
    m_program->config.ArgumentHints = false;
    press(Qt::Key_Right);
    QTRY_VERIFY(!isShown());
    m_program->config.ArgumentHints = true;
    press(Qt::Key_Right);
    QTRY_COMPARE(shown(), Called);
}

void tst_HintFeature::secondView_hasItsOwn()
{
    showCall();
    trigger("buttonSplit");
    QTRY_VERIFY(second()->isVisible());
    second()->setFocus();
    caret(second(), 9, 9);
    QTRY_VERIFY(shown().contains(QLatin1String("*p4 icps*")));
}

void tst_HintFeature::typing_isTheSameWithAndWithout()
{
    QStringList texts;
    for (const bool isOn : {true, false}) {
        m_program->config.ArgumentHints = isOn;
        show("<CsInstruments>\ninstr 1\n\nendin\n");
        caret(first(), 3, 0);
        for (const char *part : {"a1 oscili .5, 4", "40, ", "outs oscili(a1, ", "k1 = p4"}) {
            type(part);
            QTest::qWait(50); // so that there is a hint, where there is one
            press(Qt::Key_Return);
        }
        texts.append(first()->Text());
        first()->ClearState(TextState);
        delete m_window;
    }
    QCOMPARE(texts[0], texts[1]);
}

ARDIPHON_TEST(tst_HintFeature, QApplication)
#include "tst_HintFeature.moc"
