#include "piece/ScoreNotes.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/ScoreGenerator.h"
#include "support/TestMain.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace ardiphon;

namespace {

class ComparedLines : public LineSource
{
public:
    explicit ComparedLines(const QByteArrayList &lines) : m_lines(lines) {}
    int lineCount() const override { return int(m_lines.size()); }
    QByteArrayView line(int line) const override { return m_lines[line - 1]; }

private:
    const QByteArrayList m_lines;
};

/// A note, as the compiler and the model are compared by.
struct ComparedNote
{
    int section = 0;
    QByteArray instrument;
    double values[4] = {}; ///< start and duration, each in beats and in seconds
};

bool isNear(double left, double right)
{
    return std::abs(left - right) <= 1e-9 + 2e-5 * std::max(std::abs(left), std::abs(right));
}

bool isSame(const ComparedNote &left, const ComparedNote &right)
{
    return left.section == right.section && left.instrument == right.instrument &&
           std::equal(std::begin(left.values), std::end(left.values), right.values, isNear);
}

QByteArray textOf(const ComparedNote &note)
{
    QByteArray text = "section " + QByteArray::number(note.section) + ": i " + note.instrument;
    for (const double value : note.values)
        text += ' ' + QByteArray::number(value);
    return text;
}

/// By time, and then by what is printed. The order in the compiler's file is no measure: in one of
/// some thirty scores it goes back in time, and notes of one time are in no order that one could
/// tell, where the names of instruments have places that depend on the orchestra.
void sortNotes(std::vector<ComparedNote> &notes)
{
    std::stable_sort(notes.begin(), notes.end(), [](const ComparedNote &l, const ComparedNote &r) {
        if (l.section != r.section)
            return l.section < r.section;
        if (!isNear(l.values[0], r.values[0]))
            return l.values[0] < r.values[0];
        if (l.instrument != r.instrument)
            return l.instrument < r.instrument;
        return !isNear(l.values[2], r.values[2]) && l.values[2] < r.values[2];
    });
}

std::vector<ComparedNote> notesOf(const QByteArrayList &lines)
{
    const ComparedLines source(lines);
    ScoreNotes notes(source, [](QByteArrayView name) {
        return name == "part.sco" ? std::optional(ScoreGenerator::includedPart()) : std::nullopt;
    });
    while (notes.readOn(1000)) {
    }
    std::vector<ComparedNote> all;
    for (qsizetype i = 0; i < notes.count(); ++i) {
        const ScoreNote note = notes.note(i);
        const QByteArray name = QByteArray(note.turnsOff ? "-" : "") + note.name.toByteArray();
        all.push_back(
            {note.section,
             note.name.isEmpty() ? QByteArray::number(note.number) : '"' + name + '"',
             {note.startBeats, note.startSeconds, note.durationBeats, note.durationSeconds}});
    }
    return all;
}

/// The notes of the file that the compiler writes: "i 1 start_beats start_seconds ...".
std::vector<ComparedNote> sortedNotes(const QByteArray &file)
{
    static const QRegularExpression Note(
        QStringLiteral("^i (?:\"([^\".]*)[^\"]*\"|(\\S+)) (\\S+) (\\S+) (\\S+) (\\S+)"));
    std::vector<ComparedNote> notes;
    int section = 0;
    for (const QByteArray &line : file.split('\n')) {
        if (line.trimmed() == "s" || line.trimmed() == "e")
            ++section;
        const QRegularExpressionMatch match = Note.match(QString::fromLatin1(line));
        if (!match.hasMatch())
            continue;
        ComparedNote note;
        note.section = section;
        note.instrument = match.captured(2).isEmpty() ? '"' + match.captured(1).toLatin1() + '"'
                                                      : match.captured(2).toLatin1();
        for (int i = 0; i < 4; ++i)
            note.values[i] = match.captured(3 + i).toDouble();
        notes.push_back(note);
    }
    return notes;
}

/// A run of the compiler over one score.
class CompilerRun
{
public:
    /// What the memory holds that the compiler takes without having written to it.
    enum class Memory { Anything, StrayNumbers };

    explicit CompilerRun(const QByteArrayList &score, Memory memory = Memory::Anything)
        : m_score(score)
    {
        // The numbers of named instruments are behind all others, so that they share none.
        QByteArray orchestra = "sr = 1000\nksmps = 100\nnchnls = 1\n";
        for (int i = 1; i < 100; ++i)
            orchestra += "instr " + QByteArray::number(i) + "\nendin\n";
        for (const QByteArray &name : namesIn(score))
            orchestra += "instr " + name + "\nendin\n";
        writeBytes(m_folder.filePath(QStringLiteral("p.csd")),
                   "<CsoundSynthesizer>\n<CsInstruments>\n" + orchestra +
                       "</CsInstruments>\n<CsScore>\n" + score.join('\n') +
                       "\n</CsScore>\n</CsoundSynthesizer>\n");
        writeBytes(m_folder.filePath(QStringLiteral("part.sco")), ScoreGenerator::includedPart());
        m_process.setWorkingDirectory(m_folder.path());
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setStandardInputFile(QProcess::nullDevice());
        if (memory == Memory::StrayNumbers) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("MALLOC_PERTURB_"), QStringLiteral("165"));
            m_process.setProcessEnvironment(environment);
        }
        m_process.start(QStringLiteral("csound"),
                        {QStringLiteral("--simple-sorted-score"),
                         QStringLiteral("--syntax-check-only"), QStringLiteral("-n"),
                         QStringLiteral("-m0"), QStringLiteral("-d"), QStringLiteral("p.csd")});
    }

    /// Waits for its end.
    void finish()
    {
        if (!m_process.waitForFinished(10'000))
            m_process.kill();
        m_log = m_process.readAll();
        QFile sorted(m_folder.filePath(QStringLiteral("score.srt")));
        m_sorted = sorted.open(QIODevice::ReadOnly) ? sorted.readAll() : QByteArray();
    }

    /// The same, of a run that is made here.
    static QByteArray differenceOf(const QByteArrayList &score)
    {
        CompilerRun run(score);
        run.finish();
        return run.difference();
    }
    /// Whether the compiler takes what lies in its memory for a field of \a score.
    static bool isUndefined(const QByteArrayList &score)
    {
        CompilerRun run(score, Memory::StrayNumbers);
        run.finish();
        return run.isStray();
    }

    const QByteArrayList &score() const { return m_score; }
    const QByteArray &log() const { return m_log; }
    bool hasSorted() const { return !m_sorted.isEmpty(); }
    bool isStray() const
    {
        static const QRegularExpression Stray(QStringLiteral("e[-+][1-3][0-9][0-9]|[^\\n\\t -~]"));
        return m_log.contains("illegal use of carry") || m_log.contains("Undefined macro") ||
               QString::fromLatin1(m_sorted).contains(Stray);
    }
    /// What differs between its notes and the model's; empty where nothing does.
    QByteArray difference() const;

private:
    static QByteArrayList namesIn(const QByteArrayList &score)
    {
        static const QRegularExpression Name(QStringLiteral("^\\s*i\\s*\"-?([A-Za-z_]\\w*)"));
        QByteArrayList names;
        for (const QByteArray &line : score)
            if (const auto match = Name.match(QString::fromLatin1(line)); match.hasMatch())
                if (const QByteArray name = match.captured(1).toLatin1(); !names.contains(name))
                    names.append(name);
        return names;
    }

    const QByteArrayList m_score;
    const QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_log;
    QByteArray m_sorted;
};

QByteArray CompilerRun::difference() const
{
    if (!hasSorted())
        return "the compiler sorts nothing:\n" + m_log;
    std::vector<ComparedNote> expected = sortedNotes(m_sorted);
    std::vector<ComparedNote> actual = notesOf(m_score);
    sortNotes(expected);
    sortNotes(actual);
    for (size_t i = 0; i < std::max(expected.size(), actual.size()); ++i) {
        const bool isInBoth = i < expected.size() && i < actual.size();
        if (isInBoth && isSame(expected[i], actual[i]))
            continue;
        return "note " + QByteArray::number(qsizetype(i)) +
               "\n  compiler: " + (i < expected.size() ? textOf(expected[i]) : "none") +
               "\n  model:    " + (i < actual.size() ? textOf(actual[i]) : "none");
    }
    return {};
}

/// Whether each loop and each branch of \a score has an end.
bool isClosed(const QByteArrayList &score)
{
    int loops = 0;
    int branches = 0;
    for (const QByteArray &line : score) {
        loops += line.trimmed().startsWith('{') - line.trimmed().startsWith('}');
        branches += line.startsWith("#if") - line.startsWith("#end");
        if (loops < 0 || branches < 0)
            return false;
    }
    return loops == 0 && branches == 0;
}

/// \a score without the lines that its difference does not need. The notes that others may carry
/// from stay.
QByteArrayList shrunk(QByteArrayList score)
{
    static const QRegularExpression WholeNote(QStringLiteral("\\bi [^. ]\\S* \\S+ \\S+"));
    const auto isKept = [](const QByteArray &line) {
        return WholeNote.match(QString::fromLatin1(line)).hasMatch();
    };
    // What it differs by: that the compiler sorts nothing is another thing than another note.
    const QByteArray kind = CompilerRun::differenceOf(score).left(4);
    for (qsizetype size = score.size() / 2; size > 0; size /= 2) {
        for (qsizetype from = 0; from < score.size(); from += size) {
            QByteArrayList fewer = score.first(from);
            for (qsizetype i = from; i < score.size(); ++i)
                if (i >= from + size || isKept(score[i]))
                    fewer.append(score[i]);
            if (fewer.size() == score.size() || !isClosed(fewer))
                continue;
            const QByteArray difference = CompilerRun::differenceOf(fewer);
            if (!difference.isEmpty() && difference.startsWith(kind) &&
                !CompilerRun::isUndefined(fewer))
                score = fewer;
        }
    }
    return score;
}

/// The lines of the score in a piece.
QByteArrayList scoreLines(const QString &path)
{
    QByteArray text = bytesOf(path);
    text.replace("\r\n", "\n").replace('\r', '\n');
    if (!path.endsWith(QStringLiteral(".csd"), Qt::CaseInsensitive))
        return text.split('\n');
    const qsizetype begin = text.indexOf("\n<CsScore>");
    const qsizetype end = text.indexOf("</CsScore>", begin);
    return begin < 0 || end < 0 ? QByteArrayList()
                                : text.sliced(begin + 10, end - begin - 10).split('\n');
}

} // namespace

class tst_ScoreAgainstCompiler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void piece_hasTheCompilersNotes_data();
    void piece_hasTheCompilersNotes();
    void madeScores_haveTheCompilersNotes();
};

void tst_ScoreAgainstCompiler::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("csound")).isEmpty())
        QSKIP("no compiler here");
}

void tst_ScoreAgainstCompiler::piece_hasTheCompilersNotes_data()
{
    QTest::addColumn<QString>("path");
    for (const char *folder : {TEST_SOURCE_DIR "/../data/examples", TEST_SOURCE_DIR "/pieces"})
        for (const QFileInfo &file :
             QDir(QString::fromUtf8(folder))
                 .entryInfoList({QStringLiteral("*.csd"), QStringLiteral("*.sco")}, QDir::Files))
            if (!scoreLines(file.filePath()).join().trimmed().isEmpty())
                QTest::newRow(file.fileName().toUtf8().constData()) << file.filePath();
}

void tst_ScoreAgainstCompiler::piece_hasTheCompilersNotes()
{
    QFETCH(QString, path);
    QByteArrayList lines = scoreLines(path);
    lines.removeAll("d 1"); // for whose other fields the compiler takes what lies in its memory
    CompilerRun run(lines);
    run.finish();
    const QByteArray difference = run.difference();
    QVERIFY2(difference.isEmpty(), difference.constData());
}

void tst_ScoreAgainstCompiler::madeScores_haveTheCompilersNotes()
{
    constexpr int Scores = 200;
    const quint32 seed = randomSeed(20);
    const size_t atOnce = size_t(std::max(QThread::idealThreadCount(), 1));
    std::vector<std::unique_ptr<CompilerRun>> runs;
    for (int made = 0; made < Scores || !runs.empty();) {
        while (made < Scores && runs.size() < atOnce)
            runs.push_back(std::make_unique<CompilerRun>(ScoreGenerator(seed + made++).score()));
        const std::unique_ptr<CompilerRun> run = std::move(runs.front());
        runs.erase(runs.begin());
        run->finish();
        if (run->difference().isEmpty())
            continue;
        const QByteArrayList score = shrunk(run->score());
        qInfo("what is left of the score of ARDIPHON_TEST_SEED=%u:\n%s",
              seed + quint32(made) - quint32(runs.size()) - 1, score.join('\n').constData());
        QFAIL(CompilerRun::differenceOf(score).constData());
    }
}

ARDIPHON_TEST(tst_ScoreAgainstCompiler, QCoreApplication)
#include "tst_ScoreAgainstCompiler.moc"
