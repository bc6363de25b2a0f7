// Damaged files for everything that reads one. The number of cases may be given as the first
// argument, and the seed as the second.

#include "hardening/DamagedFiles.h"

#include "app/ConfigurationBlock.h"
#include "app/RecentFiles.h"
#include "app/modRegistry.h"
#include "audio/ModuleWaveFormat.h"
#include "compile/CompilerLog.h"
#include "compile/FlagFile.h"
#include "compile/LogAnalysis.h"
#include "documents/Conversion.h"
#include "language/DocumentText.h"
#include "language/ManualIndex.h"
#include "language/Tokenizer.h"
#include "navigation/BookmarkFile.h"
#include "platform/linux/DefaultApplications.h"
#include "platform/linux/OpenerEntry.h"
#include "platform/ui/SoundFile.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

int damagedFileCount = 1000;
unsigned fileSeed = 1;

} // namespace

/// Whatever a file holds, its reader comes back, within its memory, with something that makes
/// sense.
class tst_FilesFuzz : public QObject
{
    Q_OBJECT

private slots:
    void read_bookmarks_givesWhatIsWrittenAgain();
    void read_flags_givesWhatIsWrittenAgain();
    void read_wordTables_findsOnlyRecords();
    void read_settings_givesValuesWithinBounds();
    void read_waveHeader_ofAnyKind();
    void read_sound_neverMoreThanAsked();
    void read_log_findsPlacesInIt();
    void read_document_givesTheBytesBack();
    void read_csd_cutsItsParts();
    void read_manual_answersWithItsPages();
    void read_desktopFiles_takesItsDefaultBack();

private:
    /// Writes one damaged file after the other and calls \a check for each, until one fails.
    void forEach(const QByteArrayList &samples, const std::function<void()> &check);
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder{memoryFolder()};
    QString m_file = path("file");
    QByteArray m_bytes; ///< what it holds
    Dice m_dice{randomSeed(fileSeed)};
};

void tst_FilesFuzz::forEach(const QByteArrayList &samples, const std::function<void()> &check)
{
    const DamagedFiles files(samples);
    for (int i = 0; i < damagedFileCount; ++i) {
        m_bytes = files.next(m_dice);
        writeBytes(m_file, m_bytes);
        check();
        if (QTest::currentTestFailed()) {
            qWarning("in case %d: %s", i, m_bytes.left(300).toPercentEncoding().constData());
            return;
        }
    }
}

void tst_FilesFuzz::read_bookmarks_givesWhatIsWrittenAgain()
{
    const QByteArray none = QByteArray("[NONE]").leftJustified(20).repeated(2);
    const QByteArray used =
        QByteArray("12").leftJustified(20) + QByteArray("-> x").leftJustified(20);
    forEach({none.repeated(15), used.repeated(15), used + none.repeated(14)}, [this] {
        const auto bookmarks = readBookmarkFile(m_file);
        QVERIFY(bookmarks);
        const auto written = writeBookmarkFile(path("again"), *bookmarks);
        QVERIFY(written);
        if (*written)
            QCOMPARE(readBookmarkFile(path("again"))->size(), bookmarks->size());
    });
}

void tst_FilesFuzz::read_flags_givesWhatIsWrittenAgain()
{
    for (const FlagLayout layout : {FlagLayout::Tagged, FlagLayout::Padded}) {
        const QString sample = path("sample");
        QVERIFY(writeFlagFile(sample, layout, {"-W -o test.wav", "-d", "-m0"}));
        QFile file(sample);
        QVERIFY(file.open(QIODevice::ReadOnly));
        CHECKED(forEach({file.readAll()}, [&] {
            QStringList flags = readFlagFile(m_file, layout).value_or({});
            if (layout == FlagLayout::Tagged)
                flags.removeAll(QString()); // blanks alone are not written
            QVERIFY(writeFlagFile(path("again"), layout, flags));
            QCOMPARE(readFlagFile(path("again"), layout).value_or({}), flags);
        }));
    }
}

void tst_FilesFuzz::read_wordTables_findsOnlyRecords()
{
    const auto record = [](const char *name) {
        return QByteArray(name).leftJustified(50) + QByteArray(380, 'd');
    };
    const QByteArray table = record("abs") + record("adsr") + record("oscil") + record("1.2.3");
    forEach({table, table.repeated(20), "a,b,c\r\nd", "<CsScore>,</CsScore>"}, [this] {
        for (const char *name : {"opcode.txt", "csd.txt", "score.txt"}) {
            QFile::remove(path(name));
            QVERIFY(QFile::copy(m_file, path(name)));
        }
        WordTables words;
        words.LoadWordTables(m_folder.path());
        QCOMPARE(std::max<qsizetype>(words.OpcodeNames.size() - 1, 0), words.OpcodeCount);
        for (const QString &word : {QStringLiteral("oscil"), QStringLiteral("\u00ff"), QString()}) {
            words.FindOpcodeRange(word);
            const int found = words.FindInRange(word);
            QVERIFY(found >= 0 && found <= words.OpcodeCount);
            QVERIFY(found == 0 || words.OpcodeNames[found] == word);
        }
        QVERIFY(!words.ReadOpcodeRecord(words.OpcodeCount + 1));
    });
}

void tst_FilesFuzz::read_settings_givesValuesWithinBounds()
{
    const QByteArray settings =
        "[Software]\nArdiphon\\Settings\\TabSize=8\nArdiphon\\Settings\\WheelLines=3\n"
        "Ardiphon\\Settings\\DefaultFontSize=10\nArdiphon\\Settings\\AutoIndent=1\n"
        "Ardiphon\\Colors\\ColorText=255\nArdiphon\\RecentFiles\\File1=/a/b.csd\n";
    forEach({settings}, [this] {
        SettingsStore store(m_file);
        ConfigurationBlock config;
        LoadConfiguration(config, store);
        QVERIFY(config.WheelLinesCount >= 1 && config.WheelLinesCount <= 6);
        QVERIFY(config.ColorText.value <= 0xFFFFFF);
        ReadRecentFiles(config, store);
        UpdateRecentFiles(config, store, QStringLiteral("/c/d.csd"));
        QVERIFY(config.RecentFiles[1] == u"/c/d.csd" ||
                config.RecentFiles.end() !=
                    std::find(config.RecentFiles.begin(), config.RecentFiles.end(), u"/c/d.csd"));
    });
}

void tst_FilesFuzz::read_waveHeader_ofAnyKind()
{
    const QByteArray wave = WaveBytes::wave(2, 44100, QByteArray(400, '\x12'));
    forEach({wave, WaveBytes::riff(WaveBytes::chunk("LIST", "junk") + wave.mid(12))},
            [this] { QCOMPARE(ReadWaveFormat(m_file), parseWaveFormat(m_bytes)); });
}

void tst_FilesFuzz::read_sound_neverMoreThanAsked()
{
    forEach({WaveBytes::wave(2, 44100, QByteArray(4000, '\x12'))}, [this] {
        const auto sound = SoundFile::open(m_file);
        if (!sound)
            return;
        QVERIFY(sound->channels() > 0 && sound->rate() > 0 && sound->frames() >= 0);
        QVERIFY(sound->milliseconds() >= 0);
        const qint64 middle = sound->frameAt(sound->milliseconds() / 2);
        QVERIFY(middle >= 0 && middle <= sound->frames());
        std::vector<float> samples(std::size_t(64 * sound->channels()));
        if (sound->seek(middle))
            QVERIFY(sound->read(samples.data(), 64) <= 64);
    });
}

void tst_FilesFuzz::read_log_findsPlacesInIt()
{
    const QByteArray log = "orch now loaded\r\nerror:  syntax error, unexpected T_IDENT  (token "
                           "\"x\") line 3:\nfrom file piece.orc (1)\n\x1b[31mINIT ERROR in instr "
                           "1 (opcode ftgen) line 12: bad\x1b[m\n\tB  0.000 .. 1.000 T 1.000\n";
    forEach({log, log.repeated(30), "ends with the line number line 99999999999999999999"}, [this] {
        const auto text = readCompilerLog(m_file, {300, 5});
        QVERIFY(text);
        QVERIFY(!text->contains(QChar::Null) && !text->contains(u'\x1b'));
        const LogFinding found = findLogError(*text);
        QVERIFY(found.start >= -1 && found.start + found.length <= text->size());
        const QStringList lines = text->split(QStringLiteral("\r\n"));
        for (qsizetype i = 0; i < lines.size(); ++i)
            placeNamedAt(lines, i, QStringLiteral("piece.orc"), QStringLiteral("piece.sco"));
    });
}

void tst_FilesFuzz::read_document_givesTheBytesBack()
{
    forEach(
        {"instr 1 ; \xC3\xA8\r\n\"text /* in\r\nendin */ $M. \xE8", "\xEF\xBB\xBF#define A #\n"},
        [this] {
            DocumentText document = decodeDocument(m_bytes);
            LineState state = LineState::Text;
            for (const QByteArray &line : document.utf8.split('\n')) {
                qsizetype end = 0;
                for (const Token &token : tokenizeLine(line, state)) {
                    QVERIFY(token.start >= end && (token.length > 0 || line.isEmpty()));
                    end = token.end();
                }
                QVERIFY(end <= line.size());
            }
            QCOMPARE(encodeDocument(document.utf8, document.form), m_bytes);
        });
}

void tst_FilesFuzz::read_csd_cutsItsParts()
{
    const QByteArray csd = "<CsoundSynthesizer>\n<CsInstruments>\ninstr 1\nendin\n"
                           "</CsInstruments>\n<CsScore>\ni1 0 1\n</CsScore>\n";
    forEach({csd}, [this] {
        const QString text = QString::fromLatin1(m_bytes);
        const auto orchestra = orchestraOfCsd(text);
        const auto score = scoreOfCsd(text);
        QVERIFY(!orchestra || text.contains(*orchestra));
        QVERIFY(!score || text.contains(*score));
    });
}

void tst_FilesFuzz::read_manual_answersWithItsPages()
{
    const QString page = path("oscil.html");
    forEach(
        {"<html><title>oscil</title><a href=\"oscil.html#a\">oscil</a><a href='../x.html'>y</a>",
         "<pre class=\"synopsis\">ares <b>oscil</b> xamp, xcps</pre><h1>&lt;CsScore&gt;</h1>"},
        [&] {
            QFile::remove(page);
            QFile::remove(path("index.html"));
            QVERIFY(QFile::copy(m_file, page) && QFile::copy(m_file, path("index.html")));
            ManualIndex index(path("index.html"));
            for (const char *word : {"oscil", "<CsScore>", "i1", "nothing", ""})
                if (const auto found = index.find(QLatin1String(word)))
                    QVERIFY(found->toLocalFile().startsWith(m_folder.path()));
        });
}

void tst_FilesFuzz::read_desktopFiles_takesItsDefaultBack()
{
    const QByteArray entry =
        "[Desktop Entry]\nMimeType=text/x-a;text/x-b;\nX-Ardiphon-Made=mime;\n";
    const QByteArray list = "[Default Applications]\ntext/plain=a.desktop;b.desktop\n[Added "
                            "Associations]\ntext/x-a=c.desktop\n";
    forEach({entry, list}, [this] {
        const OpenerEntry opener = OpenerEntry::fromText(m_bytes);
        QCOMPARE(OpenerEntry::fromText(opener.text()).types, opener.types);
        const QByteArray changed = withDefault(m_bytes, "text/x-csound-csd", "own.desktop");
        QVERIFY(changed.contains("own.desktop"));
        const QByteArray back = withoutDefault(changed, "text/x-csound-csd", "own.desktop");
        QCOMPARE(withoutDefault(back, "text/x-csound-csd", "own.desktop"), back);
    });
}

ARDIPHON_TEST_RUN_BY(tst_FilesFuzz, [](int argc, char **argv) {
    readNumbers(argc, argv, damagedFileCount, fileSeed);
    return runTest<tst_FilesFuzz, QCoreApplication>(argc, argv);
})

#include "tst_FilesFuzz.moc"
