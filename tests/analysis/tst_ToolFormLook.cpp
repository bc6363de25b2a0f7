// How the forms of the analysis tools look: their texts, the order of their controls, the launcher.

#include "analysis/ShownForm.h"
#include "analysis/ui/FormAnalisi.h"
#include "support/TestMain.h"

#include <QCheckBox>
#include <QRadioButton>

using namespace ardiphon;

namespace {

/// The lines of hints.tsv: form, index, title, text.
QList<QStringList> hintLines()
{
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/analysis/hints.tsv"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        qFatal("no hints.tsv");
    QList<QStringList> lines;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (!line.isEmpty())
            lines.append(QString::fromUtf8(line).split(u'\t'));
    return lines;
}

const AnalysisTool *const allTools[] = {&Hetro, &LPAnal, &PVAnal, &PVLook, &CVAnal, &DNoise};

/// The texts that a form shows of itself, in the order in which they were made.
QStringList captions(const QWidget &form)
{
    QStringList found{form.windowTitle()};
    for (const QWidget *each : form.findChildren<QWidget *>()) {
        const QString name = each->objectName();
        if (name == QStringLiteral("LabelInput") || name == QStringLiteral("LabelNoise"))
            continue;
        if (const auto *label = qobject_cast<const QLabel *>(each))
            found.append(label->text());
        else if (const auto *button = qobject_cast<const QAbstractButton *>(each))
            found.append(button->text());
        else if (const auto *frame = qobject_cast<const QGroupBox *>(each))
            found.append(frame->title());
        else if (const auto *combo = qobject_cast<const QComboBox *>(each))
            for (int i = 0; i < combo->count(); ++i)
                found.append(combo->itemText(i));
    }
    found.removeAll(QString());
    return found;
}

QPoint placeOf(const QWidget *widget) { return widget->mapTo(widget->window(), QPoint(0, 0)); }

} // namespace

class tst_ToolFormLook : public QObject
{
    Q_OBJECT

private slots:
    void captions_areTheirTexts_data();
    void captions_areTheirTexts();
    void fields_haveTheirDefaults_data();
    void fields_haveTheirDefaults();
    void hints_areTheirTexts_data();
    void hints_areTheirTexts();
    void tab_goesInReadingOrder_data() { tools(); }
    void tab_goesInReadingOrder();
    void accessKeys_areThereOnce_data() { tools(); }
    void accessKeys_areThereOnce();
    void grid_isAlignedAndUnclipped_data();
    void grid_isAlignedAndUnclipped();

    void launcher_texts();
    void launcher_opensEveryTool_data();
    void launcher_opensEveryTool();
    void launcher_escape_closesAtOnce();

private:
    static void tools()
    {
        QTest::addColumn<const AnalysisTool *>("tool");
        for (const AnalysisTool *tool : allTools)
            QTest::newRow(tool->form) << tool;
    }
};

void tst_ToolFormLook::captions_areTheirTexts_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    QTest::addColumn<QStringList>("texts");
    const QStringList files{"Input File:", "&Browse", "Output File:"};
    const QStringList more{"More Flags:"};
    const QStringList end{"&Revert to Default", "&Analyze", "E&xit", "Close"};
    QTest::newRow("hetro")
        << &Hetro
        << QStringList{"HETRO - Hetrodyne Soundfile Analysis"} + files +
               QStringList{
                   "Begin (-b):",       "Duration (-d):",        "Max amp (-M):",
                   "Min amp (-m):",     "Channel (-c):",         "Partials (-h):",
                   "Breakpoints (-n):", "Butterworth LPF (-l):", "Sample rate override (-s):"} +
               more + end;
    QTest::newRow("lpanal") << &LPAnal
                            << QStringList{"LPANAL - Linear Predictive Soundfile Analysis"} +
                                   files +
                                   QStringList{"Begin (-b):",
                                               "Duration (-d):",
                                               "Poles (-p):",
                                               "Hopsize (-h):",
                                               "Channel (-c):",
                                               "Lowest Freq. (-P):",
                                               "Highest Freq. (-Q):",
                                               "Verbosity (-v):",
                                               "0",
                                               "1",
                                               "2",
                                               "Comment (-C):",
                                               "Sample rate override (-s):",
                                               "Show Graphic (-g)",
                                               "Write filter poles (-a)"} +
                                   more + end;
    QTest::newRow("pvanal") << &PVAnal
                            << QStringList{"PVANAL - Phase Vocoder Soundfile Analysis"} + files +
                                   QStringList{".pv",
                                               ".pvx",
                                               "Begin (-b):",
                                               "Duration (-d):",
                                               "Channel (-c):",
                                               "STFT frame size (-n):",
                                               "Window Overlap (-w):",
                                               "Hopsize (-h):",
                                               "Sample rate override (-s):",
                                               "Text ouput filename (-V):",
                                               "Latch graphics (-G):",
                                               "Show Graphic (-g)",
                                               "Use verbose mode (-v)"} +
                                   more + end;
    QTest::newRow("pvlook") << &PVLook
                            << QStringList{"PVLOOK - Read PVANAL Files",
                                           "Input File:",
                                           "&Browse",
                                           "Begin Bin (-bb):",
                                           "End Bin (-eb):",
                                           "Begin Frame (-bf):",
                                           "End Frame (-ef):",
                                           "Print values as integers (-i)"} +
                                   end + QStringList{"&Save Output as ..."};
    QTest::newRow("cvanal") << &CVAnal
                            << QStringList{"CVANAL - Impulse Response Soundfile Analysis"} + files +
                                   QStringList{"Begin (-b):", "Duration (-d):", "Channel (-c):",
                                               "(0 = All)", "Sample rate override (-s):"} +
                                   end;
    QTest::newRow("dnoise") << &DNoise
                            << QStringList{"DNOISE - Denoise Soundfile",
                                           "Input Soundfile:",
                                           "&Browse",
                                           "Input Noise Soundfile:",
                                           "&Browse",
                                           "Output Soundfile:",
                                           "DNoise specific flags",
                                           "Bandpass Filters (-N):",
                                           "Synth. Window Length (-L):",
                                           "Decimation factor (-D):",
                                           "Begin time noise file (-b):",
                                           "Starting sample noise file (-B):",
                                           "End time noise file (-e):",
                                           "Final sample noise file (-E):",
                                           "Threshold noise in dB (-t):",
                                           "Sharpness noise-gate (-S):",
                                           "FFT frames (-n):",
                                           "Min gain noise-gate in dB (-m):",
                                           "Filter Overlap (-w):",
                                           "Window Length (-M):",
                                           "Soundfile format options",
                                           "WAV (-W)",
                                           "AIFF (-A)",
                                           "IRCAM (-J)",
                                           "Others:",
                                           "Additional Options",
                                           "Rewrite header WAV/AIFF (-R)",
                                           "Heartbeat (-H)",
                                           "Verbose (-V)"} +
                                   more + end;
}

void tst_ToolFormLook::captions_areTheirTexts()
{
    QFETCH(const AnalysisTool *, tool);
    QFETCH(QStringList, texts);
    const ShownForm form(*tool);
    QCOMPARE(form.form->objectName(), QLatin1String(tool->form));
    QStringList shown = captions(*form.form);
    shown.sort();
    texts.sort();
    QCOMPARE(shown, texts);
}

void tst_ToolFormLook::fields_haveTheirDefaults_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("hetro") << &Hetro << QStringList{"0.0", "0.0", "32767", "64",   "0",
                                                    "1",   "10",  "256",   "10000"};
    QTest::newRow("lpanal") << &LPAnal << QStringList{"0.0", "0.0", "34",  "200",  "",
                                                      "1",   "70",  "200", "10000"};
    QTest::newRow("pvanal") << &PVAnal
                            << QStringList{"0.0", "0.0", "1", "256", "4", "10000", "200", ""};
    QTest::newRow("pvlook") << &PVLook << QStringList{"1", "-1", "1", "-1"};
    QTest::newRow("cvanal") << &CVAnal << QStringList{"0.0", "0.0", "0", "10000"};
    QTest::newRow("dnoise") << &DNoise << QStringList{"1024", "-1", "0",  "0", "0.0", "0",
                                                      "0.0",  "0",  "30", "1", "5",   "-40"};
}

void tst_ToolFormLook::fields_haveTheirDefaults()
{
    QFETCH(const AnalysisTool *, tool);
    QFETCH(QStringList, texts);
    const ShownForm form(*tool);
    QCOMPARE(form.fieldTexts(int(texts.size())), texts);
    for (int i = 0; i < texts.size(); ++i)
        form.field(i)->setText(QStringLiteral("7"));
    form.click("CommandRevert");
    QCOMPARE(form.fieldTexts(int(texts.size())), texts);
    for (const QAbstractButton *each : form.form->findChildren<QCheckBox *>())
        QVERIFY2(!each->isChecked(), qPrintable(each->objectName()));
}

void tst_ToolFormLook::hints_areTheirTexts_data() { tools(); }

void tst_ToolFormLook::hints_areTheirTexts()
{
    QFETCH(const AnalysisTool *, tool);
    const ShownForm form(*tool);
    int count = 0;
    for (const QStringList &line : hintLines()) {
        if (line[0] != QLatin1String(tool->form))
            continue;
        QCOMPARE(line[1].toInt(), count++);
        form.help(line[1].toInt());
        QCOMPARE(form.frame()->title(), line[2]);
        QCOMPARE(form.control<QPlainTextEdit>("Text1")->toPlainText(),
                 QString(line[3]).replace(QStringLiteral("\\n"), QStringLiteral("\n")));
        QCOMPARE(form.button("Command5")->text(), QStringLiteral("Close"));
    }
    QCOMPARE(form.form->findChildren<QToolButton *>().size(), count);
}

/// Down the lines of the form, or of each of its frames, and in each from left to right; nothing
/// that can be used is left out.
void tst_ToolFormLook::tab_goesInReadingOrder()
{
    QFETCH(const AnalysisTool *, tool);
    const ShownForm form(*tool);
    for (QCheckBox *box : form.form->findChildren<QCheckBox *>())
        box->setChecked(true);
    QWidget *const first = form.button("Command1");
    first->setFocus();
    QSet<QWidget *> reached{first};
    QWidget *before = first;
    for (;;) {
        QTest::keyClick(before, Qt::Key_Tab);
        QWidget *const now = QApplication::focusWidget();
        if (now == first)
            break;
        QVERIFY(!reached.contains(now));
        reached.insert(now);
        const bool nextLine = placeOf(now).y() >= placeOf(before).y() + before->height() - 4;
        const bool behind = placeOf(now).x() > placeOf(before).x();
        const bool otherFrame = now->parent() != before->parent();
        QVERIFY2(nextLine || behind || otherFrame, qPrintable(now->objectName()));
        before = now;
    }
    for (QWidget *each : form.form->findChildren<QWidget *>())
        if (each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) &&
            !qobject_cast<QRadioButton *>(each)) // the arrow keys lead to the others of a group
            QVERIFY2(reached.contains(each), qPrintable(each->objectName()));
}

void tst_ToolFormLook::accessKeys_areThereOnce()
{
    QFETCH(const AnalysisTool *, tool);
    const ShownForm form(*tool);
    QStringList keys;
    for (const QAbstractButton *each : form.form->findChildren<QAbstractButton *>())
        keys.append(QKeySequence::mnemonic(each->text()).toString());
    keys.removeAll(QString());
    const qsizetype all = keys.size();
    // Both buttons of the noise reduction that browse are given the same one.
    QCOMPARE(keys.removeDuplicates(), tool == &DNoise ? 1 : 0);
    QVERIFY(all >= 4);
}

void tst_ToolFormLook::grid_isAlignedAndUnclipped_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    QTest::addColumn<int>("points");
    for (const AnalysisTool *tool : allTools)
        for (const int points : {9, 14})
            QTest::addRow("%s %d", tool->form, points) << tool << points;
}

void tst_ToolFormLook::grid_isAlignedAndUnclipped()
{
    QFETCH(const AnalysisTool *, tool);
    QFETCH(int, points);
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    const ShownForm form(*tool);
    QApplication::setFont(usual);
    QHash<QObject *, int> marks;
    for (const QToolButton *mark : form.form->findChildren<QToolButton *>()) {
        const int x = placeOf(mark).x();
        QCOMPARE(marks.value(mark->parent(), x), x);
        marks.insert(mark->parent(), x);
    }
    for (const QWidget *each : form.form->findChildren<QWidget *>()) {
        if (!each->isVisible() || each->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        const QSize least = each->minimumSizeHint();
        QVERIFY2(each->width() >= least.width() && each->height() >= least.height(),
                 qPrintable(each->objectName()));
    }
}

// The launcher. -----------------------------------------------------------------------------------

void tst_ToolFormLook::launcher_texts()
{
    const ShownForm form(Hetro); // lends what the launcher is given
    FormAnalisi launcher(form.context, nullptr);
    launcher.show();
    QCOMPARE(launcher.windowTitle(), QStringLiteral("CSound Analysis"));
    const auto *const frame = launcher.findChild<QGroupBox *>(QStringLiteral("Frame1"));
    QVERIFY(!frame->isVisible());
    QCOMPARE(frame->title(), QStringLiteral("Help"));
    const auto button = [&launcher](const QString &name) {
        return launcher.findChild<QAbstractButton *>(name);
    };
    for (const QStringList &line : hintLines()) {
        if (line[0] != QStringLiteral("FormAnalisi"))
            continue;
        QTest::mouseClick(button(QStringLiteral("ImageHelp(%1)").arg(line[1])), Qt::LeftButton);
        QVERIFY(frame->isVisible());
        QCOMPARE(launcher.findChild<QLabel *>(QStringLiteral("LabelHelp"))->text(), line[3]);
        QVERIFY(button(QStringLiteral("CommandHETRO"))->isEnabled());
    }
    QTest::mouseClick(button(QStringLiteral("Command1")), Qt::LeftButton);
    QVERIFY(!frame->isVisible());
    QTest::mouseClick(button(QStringLiteral("Command12")), Qt::LeftButton);
    QVERIFY(!launcher.isVisible());
}

void tst_ToolFormLook::launcher_opensEveryTool_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("window");
    QTest::newRow("0") << "CommandHETRO"
                       << "&HETRO"
                       << "FormHetro";
    QTest::newRow("1") << "CommandLPANAL"
                       << "&LPANAL"
                       << "FormLPAnal";
    QTest::newRow("2") << "CommandPVANAL"
                       << "&PVANAL"
                       << "FormPVAnal";
    QTest::newRow("3") << "CommandPVLOOK"
                       << "PV&LOOK"
                       << "FormPVLook";
    QTest::newRow("4") << "CommandCVANAL"
                       << "&CVANAL"
                       << "FormCVAnal";
    QTest::newRow("5") << "CommandDNOISE"
                       << "&DNOISE"
                       << "FormDNoise";
    QTest::newRow("6") << "CommandSNDINFO"
                       << "&SNDINFO"
                       << "FormSNDInfo";
}

void tst_ToolFormLook::launcher_opensEveryTool()
{
    QFETCH(QString, button);
    const ShownForm form(Hetro);
    form.form->hide();
    FormAnalisi launcher(form.context, nullptr);
    launcher.show();
    auto *const pressed = launcher.findChild<QPushButton *>(button);
    QTEST(pressed->text(), "caption");
    QString shown;
    const QObject *owner = nullptr;
    QTimer::singleShot(0, this, [&] {
        QWidget *const modal = QApplication::activeModalWidget();
        shown = modal->objectName();
        owner = modal->parent();
        modal->close();
    });
    QTest::mouseClick(pressed, Qt::LeftButton);
    QTEST(shown, "window");
    QCOMPARE(owner, &launcher);
    QVERIFY(launcher.isVisible());
}

void tst_ToolFormLook::launcher_escape_closesAtOnce()
{
    const ShownForm form(Hetro);
    FormAnalisi launcher(form.context, nullptr);
    launcher.show();
    QTest::mouseClick(launcher.findChild<QToolButton *>(QStringLiteral("ImageHelp(3)")),
                      Qt::LeftButton);
    QTest::keyClick(&launcher, Qt::Key_Escape);
    QVERIFY(!launcher.isVisible());
}

ARDIPHON_TEST(tst_ToolFormLook, QApplication)
#include "tst_ToolFormLook.moc"
