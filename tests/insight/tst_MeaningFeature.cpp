#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

using namespace ardiphon;

/// Views that are coloured as the language reads their text.
class tst_MeaningFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        start();
        prepare(m_program->config);
    }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void off_isTheTokensColours();
    void on_everyKindHasItsColour_data();
    void on_everyKindHasItsColour();
    void check_inTheSettings_countsAtOnce();
    void check_escape_keepsItForTheRun();
    void typing_colorsTheLinesBelow();
    void opcode_renamed_drawsItsUsesOnce();
    void comment_openedAbove_drawsOnce();
    void key_withoutOtherColours_drawsOnce();
    void split_bothViews();
    void project_eachByItsLanguage();
    void bookmark_keepsItsColours();
    void document_loaded_isColouredByItself();

private:
    static void prepare(ConfigurationBlock &config)
    {
        config.ColoursByMeaning = true;
        // Each kind has a back of its own, by which it is known again; comments have none.
        config.ColorOrchestraBK = Color::rgb(200, 200, 255);
        config.ColorCSDBK = Color::rgb(255, 200, 230);
        config.ColorFilesBK = Color::rgb(255, 220, 200);
        config.ColorMacroBK = Color::rgb(230, 200, 255);
        config.ColorInstrEndinBK = Color::rgb(200, 255, 255);
    }

    /// What the view shows on the screen, as the program left it there.
    static QImage onScreen(const LEditOCX &editor)
    {
        QApplication::processEvents();
        const QPoint at = editor.mapTo(editor.window(), QPoint());
        return editor.screen()
            ->grabWindow(editor.window()->winId(), at.x(), at.y(), editor.width(), editor.height())
            .toImage();
    }

    /// How the character is drawn: "opcode", "tag", "text", "macro", "body", "comment" or "plain".
    static QString look(const LEditOCX &editor, int line, int column)
    {
        static const std::pair<QRgb, const char *> backs[] = {
            {qRgb(200, 200, 255), "opcode"}, {qRgb(255, 200, 230), "tag"},
            {qRgb(255, 220, 200), "text"},   {qRgb(230, 200, 255), "macro"},
            {qRgb(200, 255, 255), "body"},   {qRgb(240, 0, 0), "bookmark"},
        };
        const QImage image = onScreen(editor);
        const QPoint at = editor.PositionToPixels(line, column);
        const QRgb back = image.pixel(at + QPoint(1, 1));
        for (const auto &[color, name] : backs)
            if (back == color)
                return QLatin1String(name);
        if (back != qRgb(255, 255, 255))
            return QStringLiteral("#%1").arg(back, 0, 16);
        const int right = editor.PositionToPixels(line, column + 1).x();
        for (int x = at.x(); x < right; ++x)
            for (int y = at.y(); y < at.y() + editor.LineHeight(); ++y)
                if (const QColor ink = image.pixelColor(x, y);
                    ink.green() > ink.red() + 60 && ink.green() > ink.blue() + 60)
                    return QStringLiteral("comment");
        return QStringLiteral("plain");
    }

    /// The same for the first letter of \a word, where it is the first of that kind in the text.
    static QString look(const LEditOCX &editor, const QString &word)
    {
        for (int line = 1; line <= editor.LineCount(); ++line) {
            const qsizetype column = editor.LineText(line).indexOf(word);
            if (column >= 0)
                return look(editor, line, int(column));
        }
        return QStringLiteral("not there");
    }

    /// Does \a steps in the settings, on the sheet "Studio".
    void inSettings(const std::function<void(QDialog &, QCheckBox &)> &steps)
    {
        QTimer::singleShot(0, m_window, [&steps] {
            auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            require(dialog != nullptr, "the settings do not show");
            QTest::mouseClick(controlIn<QPushButton>(*dialog, QStringLiteral("mostraStudio")),
                              Qt::LeftButton);
            steps(*dialog, *controlIn<QCheckBox>(*dialog, QStringLiteral("CheckColoursByMeaning")));
        });
        trigger("menuFilePreferenze");
    }
    static void click(QCheckBox &check)
    {
        QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
    }

    /// Waits until the model has read the text and what followed of it is drawn.
    static void settle() { QTest::qWait(60); }
};

namespace {

const QByteArray MeantPiece = "<CsoundSynthesizer>\n"
                              "<CsInstruments>\n"
                              "// two strokes /* no block\n"
                              "#define LOUD(amp) #oscili $amp#\n"
                              "opcode twice, a, a\n"
                              "endop\n"
                              "instr 1\n"
                              "asig twice p4\n"
                              "again: Sone = {{ first\n"
                              "oscil3 ; second }} + R\"(third\n"
                              "fourth )\"\n"
                              "asig moogladder asig, $LOUD(7) /* block\n"
                              "vco2 */ + \"quote\"\n"
                              "f 1 0\n"
                              "kgoto again\n"
                              "endin\n"
                              "</CsInstruments>\n"
                              "<CsScore>\n"
                              "i1 0 1 buzz // out\n"
                              "</CsScore>\n";

/// Counts how often a view is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(LEditOCX &editor) : m_editor(editor)
    {
        for (QWidget *part : editor.findChildren<QWidget *>())
            if (part->objectName() == QLatin1String("qt_scrollarea_viewport"))
                part->installEventFilter(this);
    }
    /// Since the last time; only paints of nearly all lines.
    int take()
    {
        QApplication::processEvents();
        return std::exchange(m_count, 0);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        const bool isLarge =
            event->type() == QEvent::Paint &&
            static_cast<QPaintEvent *>(event)->rect().height() > m_editor.height() / 2;
        m_count += isLarge ? 1 : 0;
        return false;
    }

private:
    LEditOCX &m_editor;
    int m_count = 0;
};

} // namespace

void tst_MeaningFeature::off_isTheTokensColours()
{
    m_program->config.ColoursByMeaning = false;
    show(MeantPiece);
    settle();
    QCOMPARE(look(*first(), "two strokes"), "plain");
    QCOMPARE(look(*first(), "no block"), "comment");
    QCOMPARE(look(*first(), "#define"), "comment");
    QCOMPARE(look(*first(), "vco2"), "comment");
    QCOMPARE(look(*first(), "quote"), "text");
    QCOMPARE(look(*first(), "f 1 0"), "opcode");
    QCOMPARE(look(*first(), "buzz"), "opcode");
    QCOMPARE(look(*first(), "out"), "opcode");
}

void tst_MeaningFeature::on_everyKindHasItsColour_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("drawn");

    const auto row = [](const char *word, const char *drawn) {
        QTest::newRow(word) << QString::fromLatin1(word) << QString::fromLatin1(drawn);
    };
    row("<CsInstruments>", "tag");
    row("// two", "comment");
    row("no block", "comment");
    row("#define", "opcode");
    row("LOUD(amp", "macro");
    row("amp)", "macro");
    row("oscili", "opcode");
    row("$amp", "macro");
    row("twice,", "opcode");
    row("a, a", "plain");
    row("instr 1", "body");
    row("twice p4", "opcode");
    row("p4", "macro");
    row("again:", "body");
    row("= {{", "plain");
    row("{{ first", "text");
    row("first", "text");
    row("oscil3", "text");
    row("; second", "text");
    row("R\"(third", "text");
    row("fourth", "text");
    row("asig moog", "plain");
    row("moogladder", "opcode");
    row("$LOUD", "macro");
    row("/* block", "comment");
    row("vco2", "comment");
    row("quote", "text");
    row("f 1 0", "plain");
    row("kgoto", "opcode");
    row("endin", "body");
    row("</CsScore>", "tag");
    row("i1 0", "opcode");
    row("1 0 1", "plain");
    row("buzz", "plain");
    row("// out", "comment");
}

void tst_MeaningFeature::on_everyKindHasItsColour()
{
    QFETCH(QString, word);
    show(MeantPiece);
    settle();
    QTEST(look(*first(), word), "drawn");
}

void tst_MeaningFeature::check_inTheSettings_countsAtOnce()
{
    m_program->config.ColoursByMeaning = false;
    show(MeantPiece);
    QString on;
    QImage before;
    QImage again;
    inSettings([&](QDialog &dialog, QCheckBox &check) {
        require(!check.isChecked(), "it is on");
        before = onScreen(*first());
        click(check);
        on = look(*first(), "two strokes");
        click(check);
        again = onScreen(*first());
        click(check);
        QTest::mouseClick(controlIn<QPushButton>(dialog, QStringLiteral("Command1")),
                          Qt::LeftButton);
    });
    QCOMPARE(on, "comment");
    const QRect behindCaret = before.rect().adjusted(6, 0, 0, 0);
    QCOMPARE(again.copy(behindCaret), before.copy(behindCaret));
    QCOMPARE(look(*first(), "two strokes"), "comment");
    QCOMPARE(ReadRegistryString(m_program->settings, registry::StudioKey, "ColoursByMeaning"), "1");
}

void tst_MeaningFeature::check_escape_keepsItForTheRun()
{
    show(MeantPiece);
    inSettings([&](QDialog &dialog, QCheckBox &check) {
        require(check.isChecked(), "it is off");
        click(check);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QCOMPARE(look(*first(), "two strokes"), "plain");
    QCOMPARE(ReadRegistryString(m_program->settings, registry::StudioKey, "ColoursByMeaning"), "");
}

void tst_MeaningFeature::typing_colorsTheLinesBelow()
{
    show("<CsInstruments>\n\ninstr 1\nendin\n</CsInstruments>\n");
    caret(first(), 2, 0);
    QTest::keyClicks(first()->focusProxy(), "{{");
    QCOMPARE(look(*first(), "instr 1"), "text");
    QCOMPARE(look(*first(), "</CsIns"), "tag");
    QTest::keyClicks(first()->focusProxy(), "}}");
    QCOMPARE(look(*first(), "instr 1"), "body");
    QTest::keyClicks(first()->focusProxy(), "/*");
    QCOMPARE(look(*first(), "endin"), "comment");
    first()->Undo();
    first()->Undo();
    QCOMPARE(look(*first(), "endin"), "body");
}

void tst_MeaningFeature::opcode_renamed_drawsItsUsesOnce()
{
    show("<CsInstruments>\nopcode mine, i, i\nendop\ninstr 1\na1 mine 1\na2 miner 1\nendin\n");
    settle();
    QCOMPARE(look(*first(), 5, 3), "opcode");
    QCOMPARE(look(*first(), 6, 3), "plain");
    PaintCounter paints(*first());
    caret(first(), 2, 11);
    settle();
    paints.take();
    QTest::keyClick(first()->focusProxy(), Qt::Key_R);
    QTRY_COMPARE(look(*first(), 6, 3), "opcode");
    settle();
    QCOMPARE(look(*first(), 5, 3), "plain");
    QVERIFY(paints.take() <= 2); // for the key, and when the model has read it
}

/// In the other view, where the comment is not to be seen.
void tst_MeaningFeature::comment_openedAbove_drawsOnce()
{
    show("<CsInstruments>\n\n" + QByteArray("a1 oscili 1\n").repeated(3000));
    trigger("buttonSplit");
    settle();
    second()->SetTopLine(2500);
    settle();
    QCOMPARE(look(*second(), 2505, 3), "opcode");
    PaintCounter paints(*second());
    caret(first(), 2, 0);
    first()->SetSelText("/*"); // as a paste does; what types would change both
    second()->SetTextOf(*first());
    paints.take();
    QTRY_COMPARE(look(*second(), 2505, 3), "comment");
    settle();
    QVERIFY(paints.take() <= 2);
    settle();
    QCOMPARE(paints.take(), 0);
}

void tst_MeaningFeature::key_withoutOtherColours_drawsOnce()
{
    show(MeantPiece);
    settle();
    caret(first(), 8, 0);
    settle();
    PaintCounter paints(*first());
    QTest::keyClick(first()->focusProxy(), Qt::Key_A);
    settle();
    QCOMPARE(paints.take(), 0); // but for its line
}

void tst_MeaningFeature::split_bothViews()
{
    show(MeantPiece);
    trigger("buttonSplit");
    settle();
    for (LEditOCX *const editor : {first(), second()}) {
        QCOMPARE(look(*editor, "two strokes"), "comment");
        QCOMPARE(look(*editor, "twice,"), "opcode");
    }
    second()->setFocus();
    caret(second(), 3, 0);
    QTest::keyClicks(second()->focusProxy(), "{{");
    settle();
    QCOMPARE(look(*first(), "two strokes"), "text");
    QCOMPARE(look(*second(), "two strokes"), "text");
    QCOMPARE(look(*second(), "twice,"), "text");
    inSettings([](QDialog &dialog, QCheckBox &check) {
        click(check);
        dialog.reject();
    });
    QCOMPARE(look(*first(), "two strokes"), "plain");
    QCOMPARE(look(*second(), "two strokes"), "plain");
}

void tst_MeaningFeature::project_eachByItsLanguage()
{
    ProjectWindow project;
    prepare(project.config);
    project.showPair("opcode mine, i, i\nendop\ninstr 1 // one\na1 mine p4\ni 1\nendin\n",
                     "i1 0 1 oscili instr // two\n#define N #3#\ni \"a\" $N\n{ 3 K\ne mine\n");
    settle();
    const LEditOCX &orchestra = *project.orchestra;
    QCOMPARE(look(orchestra, "instr"), "body");
    QCOMPARE(look(orchestra, "// one"), "comment");
    QCOMPARE(look(orchestra, "mine p4"), "opcode");
    QCOMPARE(look(orchestra, "p4"), "macro");
    QCOMPARE(look(orchestra, "1 mine"), "plain");
    const LEditOCX &score = *project.score;
    QCOMPARE(look(score, "i1"), "tag"); // as a statement is drawn in a score
    QCOMPARE(look(score, "1 0"), "plain");
    QCOMPARE(look(score, "oscili"), "plain");
    QCOMPARE(look(score, "instr"), "plain");
    QCOMPARE(look(score, "// two"), "comment");
    QCOMPARE(look(score, "#define"), "plain");
    QCOMPARE(look(score, "N #3"), "macro");
    QCOMPARE(look(score, "\"a\""), "text");
    QCOMPARE(look(score, "$N"), "macro");
    QCOMPARE(look(score, "K"), "macro");
    QCOMPARE(look(score, "mine"), "plain");
}

void tst_MeaningFeature::bookmark_keepsItsColours()
{
    show(MeantPiece);
    settle();
    caret(first(), 8, 0);
    QTest::keyClick(first()->focusProxy(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(look(*first(), 8, 5), "bookmark");
    QTest::keyClick(first()->focusProxy(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(look(*first(), 8, 5), "opcode");
}

void tst_MeaningFeature::document_loaded_isColouredByItself()
{
    show("<CsInstruments>\nopcode mine, i, i\nendop\na1 mine 1\n/*\n");
    settle();
    QCOMPARE(look(*first(), 4, 3), "opcode");
    QVERIFY(first()->LoadFile(
        m_program->write("other.csd", "<CsInstruments>\na1 mine 1\na1 oscili 1")));
    settle();
    QCOMPARE(look(*first(), 2, 3), "plain");
    QCOMPARE(look(*first(), 3, 3), "opcode");
    first()->ClearDocument();
    QTest::keyClicks(first()->focusProxy(), "; x");
    QCOMPARE(look(*first(), 1, 2), "comment");
}

ARDIPHON_TEST(tst_MeaningFeature, QApplication)
#include "tst_MeaningFeature.moc"
