// What all forms of the analysis tools have in common, on the form of HETRO.

#include "analysis/ShownForm.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QRandomGenerator>

#include <map>

using namespace ardiphon;

namespace {

const QString csoundIsMissing =
    QStringLiteral("Cannot find CSound.exe!\r\nSelect File->Settings->Csound.exe!");
const QString defaultFlags = QStringLiteral("-b0.0 -d0.0 -M32767 -m64 -c1 -h10 -n256");

/// Whether \a text is allowed in a numeric field, checked character by character.
bool slowIsNumber(const QString &text)
{
    int points = 0;
    for (const QChar c : text) {
        if (!QStringLiteral("-./0123456789").contains(c))
            return false;
        points += c == u'.';
    }
    return points < 2;
}

/// Two numeric fields as a user knows them: plain texts with a caret, without any undo.
struct SlowFields
{
    std::array<QString, 2> text{QStringLiteral("0.0"), QStringLiteral("0.0")};
    std::array<int, 2> caret{3, 3};
    size_t now = 0;
    QString remembered;
    int rememberedCaret = 0;

    void keyDown()
    {
        remembered = text[now];
        rememberedCaret = caret[now];
    }
    void replaceBy(const QString &wanted, int wantedCaret)
    {
        const bool changes = wanted != text[now];
        const bool refused = changes && !slowIsNumber(wanted);
        text[now] = refused ? remembered : wanted;
        caret[now] = refused ? rememberedCaret : wantedCaret;
    }
    void insert(const QString &piece)
    {
        replaceBy(QString(text[now]).insert(caret[now], piece), caret[now] + int(piece.size()));
    }
    void erase(int from)
    {
        if (from >= 0 && from < text[now].size())
            replaceBy(QString(text[now]).remove(from, 1), from);
    }
    void leave()
    {
        if (text[now].isEmpty()) {
            text[now] = QStringLiteral("0.0");
            caret[now] = 3;
        }
        now = 1 - now;
    }
};

} // namespace

class tst_ToolForm : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_form = std::make_unique<ShownForm>(Hetro); }
    void cleanup()
    {
        QCOMPARE(m_form->program.dialogs.verify(), QString());
        m_form.reset();
    }

    void browse_asksForAnyFile();
    void browse_takesThePathAndProposesTheOutput();
    void browse_cancel_changesNothing();
    void analyze_startsTheToolInItsFolder();
    void analyze_again_runsWithChangedValues();
    void analyze_obstacles_comeInOrder();
    void analyze_emptyFieldWithTheFocus_getsItsDefault_data();
    void analyze_emptyFieldWithTheFocus_getsItsDefault();
    void analyze_missingInput_startsAllTheSame();
    void typing_letter_changesNothing();
    void typing_secondPoint_isRefused();
    void typing_oddNumbers_areTaken();
    void paste_letters_isRefusedAsAWhole();
    void paste_byMouse_refused_keepsThatField();
    void paste_refused_undoStillWorks();
    void paste_overASelection_refused_keepsIt();
    void paste_beforeAnyKey_keepsTheField();
    void paste_longText();
    void emptyField_getsItsDefaultWhenLeft();
    void emptyField_underAMenuOrAnotherProgram_staysEmpty();
    void randomKeys_matchTheSlowModel();
    void moreFlags_checkEnables_textStays();
    void revert_keepsTheFiles();
    void hint_disablesTheButtons();
    void hint_escape_closesOnlyTheHint();
    void hint_escapeInThePanel_closesOnlyTheHint();
    void hint_coversNoControlByHalf();
    void hint_isTakenBackByItsButton();
    void hint_beforeAny_isByTheFirstMark();
    void hint_liesBesideItsField_data();
    void hint_liesBesideItsField();
    void escape_closesTheForm();
    void exit_closes_andTheNextFormHasDefaults();
    void return_startsNothing();

private:
    std::unique_ptr<ShownForm> m_form;
};

void tst_ToolForm::browse_asksForAnyFile()
{
    m_form->browse(std::nullopt);
    const FileQuestion question = m_form->program.dialogs.fileQuestions.constFirst();
    QCOMPARE(question.filter, QStringLiteral("All Files |*.*"));
    QCOMPARE(question.proposedName, QString());
}

void tst_ToolForm::browse_takesThePathAndProposesTheOutput()
{
    m_form->browse(QStringLiteral("/sound/a.aiff"));
    QCOMPARE(m_form->label("LabelInput"), QStringLiteral("/sound/a.aiff"));
    QCOMPARE(m_form->text("TextOutput")->text(), QStringLiteral("/sound/a.ahet"));
}

void tst_ToolForm::browse_cancel_changesNothing()
{
    m_form->browse(QStringLiteral("/sound/a.wav"));
    m_form->type(m_form->text("TextOutput"), QStringLiteral("mine"));
    m_form->browse(std::nullopt);
    QCOMPARE(m_form->label("LabelInput"), QStringLiteral("/sound/a.wav"));
    QCOMPARE(m_form->text("TextOutput")->text(), QStringLiteral("mine"));
}

void tst_ToolForm::analyze_startsTheToolInItsFolder()
{
    m_form->browse(QStringLiteral("/my sound/a.wav"));
    m_form->click("CommandAnalyze");
    const QStringList expected{QStringLiteral("/my apps/csound"),
                               QStringLiteral("-U hetro ") + defaultFlags +
                                   QStringLiteral(" \"/my sound/a.wav\" \"/my sound/a.het\""),
                               QStringLiteral("/my apps")};
    QCOMPARE(m_form->starts, QList<QStringList>{expected});
    QVERIFY(m_form->form->isVisible());
}

void tst_ToolForm::analyze_again_runsWithChangedValues()
{
    m_form->browse(QStringLiteral("a.wav"));
    m_form->analyze();
    m_form->type(4, QStringLiteral("500"));
    m_form->type(8, QStringLiteral("44100"));
    m_form->tick("CheckMoreFlags");
    m_form->type(m_form->text("TextMoreFlags"), QStringLiteral("-x"));
    m_form->program.config.FileCSound = QStringLiteral("csound"); // read at each start
    QCOMPARE(m_form->analyze(), QStringLiteral("-U hetro ") + defaultFlags +
                                    QStringLiteral(" -l500 -s44100 -x \"a.wav\" \"a.het\""));
    QCOMPARE(m_form->starts.constLast().constFirst(), QStringLiteral("csound"));
    QCOMPARE(m_form->starts.constLast().constLast(), QString());
    QCOMPARE(m_form->field(4)->text(), QStringLiteral("500"));
}

void tst_ToolForm::analyze_obstacles_comeInOrder()
{
    ScriptedDialogs &dialogs = m_form->program.dialogs;
    m_form->program.config.FileCSound.clear();
    dialogs.expect({.text = csoundIsMissing});
    m_form->click("CommandAnalyze");
    m_form->program.config.FileCSound = QStringLiteral("csound");
    dialogs.expect({.text = QStringLiteral("No Input File!"), .icon = MessageIcon::Information});
    m_form->click("CommandAnalyze");
    m_form->browse(QStringLiteral("a.wav"));
    m_form->text("TextOutput")->clear();
    dialogs.expect({.text = QStringLiteral("No Output File!"), .icon = MessageIcon::Information});
    m_form->click("CommandAnalyze");
    QVERIFY(m_form->starts.isEmpty());
}

void tst_ToolForm::analyze_emptyFieldWithTheFocus_getsItsDefault_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("mouse") << false;
    QTest::newRow("access key") << true;
}

void tst_ToolForm::analyze_emptyFieldWithTheFocus_getsItsDefault()
{
    QFETCH(bool, byKey);
    m_form->browse(QStringLiteral("a.wav"));
    m_form->type(7, QString());
    QCOMPARE(m_form->field(7)->text(), QString());
    if (byKey)
        QTest::keyClick(m_form->field(7), Qt::Key_A, Qt::AltModifier);
    else
        m_form->click("CommandAnalyze");
    QTRY_COMPARE(m_form->starts.size(), 1);
    QVERIFY(m_form->starts[0][1].contains(QStringLiteral(" -n256 ")));
}

void tst_ToolForm::analyze_missingInput_startsAllTheSame()
{
    const QString path = m_form->program.write(QStringLiteral("a.wav"), "x");
    m_form->browse(path);
    QVERIFY(QFile::remove(path));
    QVERIFY(m_form->analyze().contains(path));
}

void tst_ToolForm::typing_letter_changesNothing()
{
    QLineEdit *const field = m_form->field(2);
    m_form->type(2, QStringLiteral("123"));
    field->setCursorPosition(1);
    for (const char *keys : {"a", "+", " ", ":", ","}) {
        QTest::keyClicks(field, QLatin1String(keys));
        QCOMPARE(field->text(), QStringLiteral("123"));
        QCOMPARE(field->cursorPosition(), 1);
    }
    QTest::keyClicks(field, QStringLiteral("9"));
    QCOMPARE(field->text(), QStringLiteral("1923"));
}

void tst_ToolForm::typing_secondPoint_isRefused()
{
    m_form->type(0, QStringLiteral("1.2.3"));
    QCOMPARE(m_form->field(0)->text(), QStringLiteral("1.23"));
}

void tst_ToolForm::typing_oddNumbers_areTaken()
{
    for (const char *text : {"1-2", "--", "/", ".", "-/9."}) {
        m_form->type(0, QLatin1String(text));
        QCOMPARE(m_form->field(0)->text(), QLatin1String(text));
    }
}

void tst_ToolForm::paste_letters_isRefusedAsAWhole()
{
    QApplication::clipboard()->setText(QStringLiteral("12a"));
    m_form->type(0, QStringLiteral("7"));
    QTest::keyClick(m_form->field(0), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_form->field(0)->text(), QStringLiteral("7"));
    QApplication::clipboard()->setText(QStringLiteral("12"));
    QTest::keyClick(m_form->field(0), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_form->field(0)->text(), QStringLiteral("712"));
}

/// The last key press may have been long ago, and in another field.
void tst_ToolForm::paste_byMouse_refused_keepsThatField()
{
    m_form->type(0, QStringLiteral("75"));
    QLineEdit *const field = m_form->field(2);
    QTest::mouseClick(field, Qt::LeftButton);
    field->setCursorPosition(2);
    QApplication::clipboard()->setText(QStringLiteral("12a"));
    field->paste();
    QCOMPARE(field->text(), QStringLiteral("32767"));
    QCOMPARE(field->cursorPosition(), 2);
    QApplication::clipboard()->setText(QStringLiteral("99"));
    field->paste();
    QCOMPARE(field->text(), QStringLiteral("3299767"));
    QApplication::clipboard()->setText(QStringLiteral("1.2.3"));
    field->paste();
    QCOMPARE(field->text(), QStringLiteral("3299767"));
    QCOMPARE(field->cursorPosition(), 4);
    QCOMPARE(m_form->field(0)->text(), QStringLiteral("75"));
}

void tst_ToolForm::paste_refused_undoStillWorks()
{
    QLineEdit *const field = m_form->field(2);
    const auto paste = [&](const char *text) {
        QApplication::clipboard()->setText(QLatin1String(text));
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    };
    m_form->type(2, QStringLiteral("12"));
    paste("34");
    paste("12a");
    QCOMPARE(field->text(), QStringLiteral("1234"));
    for (const char *before : {"12", "32767"}) {
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field->text(), QLatin1String(before));
    }
    for (const char *again : {"12", "1234"}) {
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(field->text(), QLatin1String(again));
    }
}

void tst_ToolForm::paste_overASelection_refused_keepsIt()
{
    QLineEdit *const field = m_form->field(2);
    QTest::mouseClick(field, Qt::LeftButton);
    field->setSelection(1, 3);
    QApplication::clipboard()->setText(QStringLiteral("x"));
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field->text(), QStringLiteral("32767"));
}

void tst_ToolForm::paste_beforeAnyKey_keepsTheField()
{
    QApplication::clipboard()->setText(QStringLiteral("12a"));
    m_form->field(0)->paste();
    QCOMPARE(m_form->field(0)->text(), QStringLiteral("0.0"));
}

void tst_ToolForm::paste_longText()
{
    const QString digits(10000, u'7');
    QApplication::clipboard()->setText(digits);
    m_form->type(0, QString());
    QTest::keyClick(m_form->field(0), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_form->field(0)->text(), digits);
    QTest::keyClicks(m_form->field(0), QStringLiteral("x"));
    QCOMPARE(m_form->field(0)->text(), digits);
    QCOMPARE(m_form->field(0)->cursorPosition(), 10000);
    m_form->browse(QLatin1Char('/') + digits);
    QVERIFY(m_form->analyze().startsWith(QStringLiteral("-U hetro -b") + digits));
    QVERIFY(m_form->form->width() < 1000);
}

void tst_ToolForm::emptyField_getsItsDefaultWhenLeft()
{
    const std::map<int, QString> expected = {{0, "0.0"}, {1, "0.0"}, {2, "32767"},
                                             {3, "64"},  {4, "0"},   {5, "1"},
                                             {6, "10"},  {7, "256"}, {8, "10000"}};
    for (const auto &[index, text] : expected) {
        m_form->type(index, QString());
        QCOMPARE(m_form->field(index)->text(), QString());
        QTest::keyClick(m_form->field(index), Qt::Key_Tab);
        QCOMPARE(m_form->field(index)->text(), text);
    }
}

void tst_ToolForm::emptyField_underAMenuOrAnotherProgram_staysEmpty()
{
    m_form->type(0, QString());
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(m_form->field(0), &out);
        QCOMPARE(m_form->field(0)->text(), QString());
    }
}

void tst_ToolForm::randomKeys_matchTheSlowModel()
{
    const QStringList pieces{"1", "-", "/", ".", "a", "+", " ", "12a", "3.4", "-5", "", "0..1"};
    QRandomGenerator random(randomSeed(20021));
    SlowFields model;
    QList<QLineEdit *> fields{m_form->field(0), m_form->field(1)};
    QTest::mouseClick(fields[0], Qt::LeftButton);
    fields[0]->setCursorPosition(3);
    fields[1]->setCursorPosition(3);
    for (int step = 0; step < 3000; ++step) {
        QLineEdit *const field = fields[qsizetype(model.now)];
        int &caret = model.caret[model.now];
        const QString piece = pieces[random.bounded(pieces.size())];
        const int action = random.bounded(8);
        if (action != 7)
            model.keyDown();
        if (action == 0) {
            QTest::keyClick(field, Qt::Key_Backspace);
            model.erase(caret - 1);
        } else if (action == 1) {
            QTest::keyClick(field, Qt::Key_Delete);
            model.erase(caret);
        } else if (action == 2) {
            QTest::keyClick(field, Qt::Key_Left);
            caret = qMax(caret - 1, 0);
        } else if (action == 3) {
            QTest::keyClick(field, Qt::Key_Home);
            caret = 0;
        } else if (action == 4) {
            QApplication::clipboard()->setText(piece);
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
            if (!piece.isEmpty())
                model.insert(piece);
        } else if (action == 5 || action == 6) {
            const QString key = piece.isEmpty() ? QStringLiteral("8") : piece.left(1);
            QTest::keyClicks(field, key);
            model.insert(key);
        } else {
            model.leave();
            fields[qsizetype(model.now)]->setFocus(Qt::MouseFocusReason);
        }
        for (const size_t each : {0u, 1u}) {
            QCOMPARE(fields[qsizetype(each)]->text(), model.text[each]);
            QVERIFY(slowIsNumber(model.text[each]));
        }
        QCOMPARE(fields[qsizetype(model.now)]->cursorPosition(), model.caret[model.now]);
    }
}

void tst_ToolForm::moreFlags_checkEnables_textStays()
{
    QLineEdit *const more = m_form->text("TextMoreFlags");
    QVERIFY(!more->isEnabled());
    QCOMPARE(more->text(), QString());
    m_form->tick("CheckMoreFlags");
    QVERIFY(more->isEnabled());
    m_form->type(more, QStringLiteral("-x"));
    m_form->tick("CheckMoreFlags");
    QVERIFY(!more->isEnabled());
    QCOMPARE(more->text(), QStringLiteral("-x"));
}

void tst_ToolForm::revert_keepsTheFiles()
{
    m_form->browse(QStringLiteral("/s/a.wav"));
    m_form->type(m_form->text("TextOutput"), QStringLiteral("mine"));
    for (int index = 0; index < 9; ++index)
        m_form->type(index, QStringLiteral("77"));
    m_form->tick("CheckMoreFlags");
    m_form->type(m_form->text("TextMoreFlags"), QStringLiteral("-x"));
    m_form->click("CommandRevert");
    QCOMPARE(m_form->text("TextMoreFlags")->text(), QString());
    QVERIFY(!m_form->text("TextMoreFlags")->isEnabled());
    QVERIFY(!m_form->button("CheckMoreFlags")->isChecked());
    QCOMPARE(m_form->analyze(),
             QStringLiteral("-U hetro ") + defaultFlags + QStringLiteral(" \"/s/a.wav\" \"mine\""));
    QCOMPARE(m_form->field(4)->text(), QStringLiteral("0"));
    QCOMPARE(m_form->field(8)->text(), QStringLiteral("10000"));
}

void tst_ToolForm::hint_disablesTheButtons()
{
    m_form->browse(QStringLiteral("a.wav"));
    QVERIFY(!m_form->frame()->isVisible());
    m_form->help(0);
    QVERIFY(m_form->frame()->isVisible());
    for (const char *name : {"CommandRevert", "CommandExit", "CommandAnalyze"}) {
        QVERIFY2(!m_form->button(name)->isEnabled(), name);
        m_form->click(name);
    }
    QTest::keyClick(m_form->form.get(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(m_form->starts.isEmpty());
    QVERIFY(m_form->form->isVisible());
}

void tst_ToolForm::hint_escape_closesOnlyTheHint()
{
    m_form->help(1);
    QTest::keyClick(m_form->field(0), Qt::Key_Escape);
    QVERIFY(m_form->form->isVisible());
    QVERIFY(!m_form->frame()->isVisible());
    for (const char *name : {"CommandRevert", "CommandExit", "CommandAnalyze"})
        QVERIFY2(m_form->button(name)->isEnabled(), name);
    QTest::keyClick(m_form->field(0), Qt::Key_Escape);
    QVERIFY(!m_form->form->isVisible());
}

void tst_ToolForm::hint_escapeInThePanel_closesOnlyTheHint()
{
    for (const char *name : {"Text1", "Command5"}) {
        m_form->help(1);
        QTest::keyClick(m_form->control<QWidget>(QLatin1String(name)), Qt::Key_Escape);
        QVERIFY2(!m_form->frame()->isVisible(), name);
        QVERIFY2(m_form->form->isVisible(), name);
    }
}

void tst_ToolForm::hint_coversNoControlByHalf()
{
    m_form = std::make_unique<ShownForm>(CVAnal); // it is low enough for the panel to reach the end
    for (int i = 0; i < 4; ++i) {
        m_form->help(i);
        const int bottom = m_form->frame()->geometry().bottom();
        const QRect exit = m_form->button("CommandExit")->geometry();
        QVERIFY(bottom < exit.top() || bottom >= exit.bottom());
    }
}

void tst_ToolForm::hint_isTakenBackByItsButton()
{
    m_form->help(1);
    m_form->help(2);
    QCOMPARE(m_form->frame()->title(), QStringLiteral("MaxAmp:"));
    m_form->click("Command5");
    QVERIFY(!m_form->frame()->isVisible());
    QVERIFY(m_form->button("CommandAnalyze")->isEnabled());
}

void tst_ToolForm::hint_beforeAny_isByTheFirstMark()
{
    const QRect panel = m_form->frame()->geometry();
    const QRect mark = m_form->button("ImageHelp(0)")->geometry();
    QVERIFY(panel.right() < mark.left() && mark.left() - panel.right() < 30);
    QVERIFY(panel.top() > mark.bottom() && panel.top() - mark.bottom() < 12);
}

void tst_ToolForm::hint_liesBesideItsField_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    for (const AnalysisTool *tool : {&Hetro, &LPAnal, &PVAnal, &PVLook, &CVAnal, &DNoise})
        QTest::newRow(tool->form) << tool;
}

/// The field that is explained is seen whole, right above or below the panel; of the others of its
/// frame none is covered by half, and every mark can be pressed.
void tst_ToolForm::hint_liesBesideItsField()
{
    QFETCH(const AnalysisTool *, tool);
    m_form = std::make_unique<ShownForm>(*tool);
    const QWidget *const form = m_form->form.get();
    const auto placeOf = [form](const QWidget *each) {
        return QRect(each->mapTo(form, QPoint()), each->size());
    };
    const auto check = [&](int hint) {
        const auto *const mark =
            m_form->control<QWidget>(QStringLiteral("ImageHelp(%1)").arg(hint));
        const QRect panel = m_form->frame()->geometry();
        const QRect line = placeOf(mark);
        const QByteArray name = QByteArray::number(hint);
        QVERIFY2(form->rect().contains(panel), name.constData());
        QVERIFY2(panel.height() >= m_form->frame()->minimumSizeHint().height(), name.constData());
        QVERIFY2(panel.top() > line.bottom() ? panel.top() - line.bottom() < 12
                                             : line.top() - panel.bottom() < 12,
                 name.constData());
        QVERIFY2(line.left() - panel.right() < 30, name.constData());
        for (const QWidget *each : form->findChildren<QWidget *>()) {
            if (!each->isVisible() || m_form->frame()->isAncestorOf(each))
                continue;
            if (qobject_cast<const QToolButton *>(each))
                QVERIFY2(!panel.intersects(placeOf(each)), name.constData());
            const bool isControl = qobject_cast<const QLineEdit *>(each) ||
                                   qobject_cast<const QAbstractButton *>(each);
            if (!isControl || each->parent() != mark->parent())
                continue;
            const QRect covered = panel.intersected(placeOf(each));
            QVERIFY2(covered.isEmpty() || covered.height() == each->height(),
                     (name + ' ' + each->objectName().toUtf8()).constData());
            QVERIFY2(covered.isEmpty() || placeOf(each).bottom() < line.top() ||
                         placeOf(each).top() > line.bottom(),
                     (name + ' ' + each->objectName().toUtf8()).constData());
        }
    };
    for (int hint = 0; hint < int(tool->hints.size()); ++hint) {
        m_form->help(hint);
        CHECKED(check(hint));
    }
    m_form->form->resize(m_form->form->width() + 200, m_form->form->height() + 50);
    const int last = int(tool->hints.size()) - 1;
    const auto *const mark = m_form->control<QWidget>(QStringLiteral("ImageHelp(%1)").arg(last));
    QTRY_VERIFY(placeOf(mark).left() - m_form->frame()->geometry().right() < 30);
    CHECKED(check(last));
}

void tst_ToolForm::escape_closesTheForm()
{
    QTest::keyClick(m_form->field(0), Qt::Key_Escape);
    QVERIFY(!m_form->form->isVisible());
}

void tst_ToolForm::exit_closes_andTheNextFormHasDefaults()
{
    m_form->browse(QStringLiteral("a.wav"));
    m_form->type(7, QStringLiteral("9"));
    m_form->click("CommandExit");
    QVERIFY(!m_form->form->isVisible());
    const ShownForm next(Hetro);
    QCOMPARE(next.field(7)->text(), QStringLiteral("256"));
    QCOMPARE(next.label("LabelInput"), QString());
    QCOMPARE(next.text("TextOutput")->text(), QString());
}

void tst_ToolForm::return_startsNothing()
{
    m_form->browse(QStringLiteral("a.wav"));
    QTest::keyClick(m_form->field(0), Qt::Key_Return);
    QVERIFY(m_form->starts.isEmpty());
    QVERIFY(m_form->form->isVisible());
}

ARDIPHON_TEST(tst_ToolForm, QApplication)
#include "tst_ToolForm.moc"
