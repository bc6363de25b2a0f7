#include "audio/ui/FormSNDInfo.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"
#include "support/WaveBytes.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTest>

using namespace ardiphon;

namespace {

const QString refusal =
    QStringLiteral("Cannot display informations: File is not a valid wave format!");

} // namespace

class tst_FormSNDInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void controls_haveTheirTexts();
    void browse_asksForAWave();
    void browse_waveFile_showsItsNumbers();
    void browse_extension_decides_data();
    void browse_extension_decides();
    void browse_textNamedWav_showsZeros();
    void browse_longPath_fitsTheWindow();
    void browse_cancel_changesNothing();
    void exitAndEscape_close();

private:
    QLabel *label(const char *name) { return m_form->findChild<QLabel *>(QLatin1String(name)); }
    void press(const char *name)
    {
        QTest::mouseClick(m_form->findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
    }
    void choose(const std::optional<QString> &path)
    {
        m_program->dialogs.expectOpen(QStringLiteral("Input File Name"), path);
        press("Command1");
    }

    std::unique_ptr<TestProgram> m_program;
    std::unique_ptr<FormSNDInfo> m_form;
};

void tst_FormSNDInfo::init()
{
    m_program = std::make_unique<TestProgram>();
    m_form = std::make_unique<FormSNDInfo>(m_program->dialogs, nullptr);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
}

void tst_FormSNDInfo::cleanup()
{
    m_form.reset();
    QCOMPARE(m_program->dialogs.verify(), QString());
}

void tst_FormSNDInfo::controls_haveTheirTexts()
{
    QCOMPARE(m_form->windowTitle(), QStringLiteral("SNDINFO - Get Soundfile Information"));
    QStringList texts;
    for (const QLabel *shown : m_form->findChildren<QLabel *>())
        texts.append(shown->text());
    QCOMPARE(texts, QStringList({"Input File:", "", "Wave File Informations:", ""}));
    QCOMPARE(m_form->findChild<QPushButton *>("Command1")->text(), QStringLiteral("&Browse"));
    QCOMPARE(m_form->findChild<QPushButton *>("CommandExit")->text(), QStringLiteral("E&xit"));
}

void tst_FormSNDInfo::browse_asksForAWave()
{
    choose(std::nullopt);
    const FileQuestion &question = m_program->dialogs.fileQuestions.constFirst();
    QCOMPARE(question.filter, QStringLiteral("Wav files (*.wav)|*.wav"));
}

void tst_FormSNDInfo::browse_waveFile_showsItsNumbers()
{
    const QString path =
        m_program->write(QStringLiteral("a.wav"), WaveBytes::wave(2, 44100, QByteArray(4000, 'x')));
    choose(path);
    QCOMPARE(label("LabelInput")->text(), path);
    QCOMPARE(label("LabelInfo")->text(),
             QStringLiteral("SampleRate:  44100  -  Bits:  16  -  Channels:  2\r\n\r\n"
                            "Samples:  1,000\r\n"
                            "Header size:  44  -  DataSize:  4,000\r\n"
                            "FileSize:  4,044  -  Duration (hh:mm:ss):  00:00:00\r\n\r\n"
                            "AvgBytesPerSec:  176,400  -  BlockAlign:  4")
                 .replace(u',', QLocale::system().groupSeparator()));
}

void tst_FormSNDInfo::browse_extension_decides_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("lower") << "a.wav" << true;
    QTest::newRow("upper") << "a.WAV" << true;
    QTest::newRow("mixed") << "a.Wav" << true;
    QTest::newRow("no dot") << "xwav" << true;
    QTest::newRow("aif") << "a.aif" << false;
    QTest::newRow("wave") << "a.wave" << false;
}

void tst_FormSNDInfo::browse_extension_decides()
{
    QFETCH(QString, name);
    QFETCH(bool, isRead);
    choose(m_program->write(name, WaveBytes::wave(1, 8000, "ab")));
    const QString shown = label("LabelInfo")->text();
    if (isRead)
        QVERIFY(shown.startsWith(QStringLiteral("SampleRate:  8000  -  ")));
    else
        QCOMPARE(shown, refusal);
}

void tst_FormSNDInfo::browse_textNamedWav_showsZeros()
{
    choose(m_program->write(QStringLiteral("a.wav"), QByteArray("text ").repeated(200)));
    QVERIFY(label("LabelInfo")->text().startsWith(QStringLiteral("SampleRate:  0  -  Bits:  0")));
    QVERIFY(label("LabelInfo")->text().contains(QStringLiteral("FileSize:  1")));
}

void tst_FormSNDInfo::browse_longPath_fitsTheWindow()
{
    const QSize before = m_form->size();
    const QString names[] = {QString(200, u'x'), QStringLiteral("a name ").repeated(30)};
    for (const QString &name : names) {
        choose(m_program->write(name + QStringLiteral(".wav"), WaveBytes::wave(1, 8000, "ab")));
        m_form->layout()->activate();
        QCOMPARE(m_form->size(), before);
        QVERIFY(m_form->minimumSizeHint().width() <= before.width());
        QVERIFY(m_form->findChild<QPushButton *>("Command1")->y() >=
                label("LabelInfo")->geometry().bottom());
    }
}

void tst_FormSNDInfo::browse_cancel_changesNothing()
{
    const QString path = m_program->write(QStringLiteral("a.aif"), "x");
    choose(path);
    choose(std::nullopt);
    QCOMPARE(label("LabelInput")->text(), path);
    QCOMPARE(label("LabelInfo")->text(), refusal);
}

void tst_FormSNDInfo::exitAndEscape_close()
{
    press("CommandExit");
    QVERIFY(!m_form->isVisible());
    m_form->show();
    QTest::keyClick(m_form.get(), Qt::Key_Escape);
    QVERIFY(!m_form->isVisible());
}

ARDIPHON_TEST(tst_FormSNDInfo, QApplication)
#include "tst_FormSNDInfo.moc"
