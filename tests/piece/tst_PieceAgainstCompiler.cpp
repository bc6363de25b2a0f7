#include "piece/PieceLines.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// The model finds the instruments and opcodes that the compiler finds.
class tst_PieceAgainstCompiler : public QObject
{
    Q_OBJECT

private slots:
    void pieces_haveTheCompilersHeadings_data();
    void pieces_haveTheCompilersHeadings();
    void madePieces_haveTheCompilersHeadings();
};

namespace {

constexpr int MadePieces = 200;

/// The instruments of a piece, each with all of its names, and its opcodes, in their order.
using Headings = QStringList;

Headings headingsOfModel(const QByteArray &text, DocumentRole role)
{
    const PieceOfLines of(text, role);
    Headings headings;
    of.text().visit(1, of.text().lineCount(), [&](PlacedLandmark found) {
        const QString name = of.piece.nameText(*found.mark);
        if (found.mark->kind == LandmarkKind::Opcode)
            headings.append(QStringLiteral("opcode ") + name);
        else if (found.mark->kind == LandmarkKind::Instrument && found.mark->detail == 0)
            headings.append(QStringLiteral("instr ") + name);
        else if (found.mark->kind == LandmarkKind::Instrument)
            headings.last() += u' ' + name;
        return true;
    });
    return headings;
}

/// Collects the headings of the tree that the compiler prints, by its lines.
class TreeReader
{
public:
    void read(const QString &line)
    {
        static const QRegularExpression element(QStringLiteral(
            R"re(^( *)<(/?)tree(\w*) ?.*?(?:name="(\w+)")?(?: (?:value|varname)="([^"]*)")?(?: loc.*)?>$)re"));
        const auto match = element.match(line);
        if (!match.hasMatch())
            return;
        const auto indent = match.capturedLength(1);
        if (indent == 0) {
            begin(match.captured(4));
        } else if (m_isNamed && indent == 1 && match.captured(3) != QLatin1String("left")) {
            m_isNamed = false;
        } else if (m_isNamed && !match.captured(5).isEmpty()) {
            m_headings.last() += u' ' + match.captured(5);
            m_isNamed = m_headings.last().startsWith(QLatin1String("instr"));
        }
    }
    const Headings &headings() const { return m_headings; }

private:
    void begin(const QString &token)
    {
        m_isNamed = token == QLatin1String("INSTR_TOKEN") || token == QLatin1String("UDO_TOKEN");
        if (m_isNamed)
            m_headings.append(token == QLatin1String("UDO_TOKEN") ? QStringLiteral("opcode")
                                                                  : QStringLiteral("instr"));
    }

    Headings m_headings;
    bool m_isNamed = false; ///< the names of the last heading follow
};

struct Compiled
{
    bool isRead = false; ///< the compiler took the piece
    Headings headings;
    QByteArray log;
};

/// Has the compiler read \a files, a unified file or an orchestra and its score, in that folder.
Compiled compiled(const QString &folder, const QStringList &files)
{
    QProcess compiler;
    compiler.setWorkingDirectory(folder);
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.setStandardInputFile(QProcess::nullDevice());
    compiler.start(QStringLiteral("csound"), QStringList({"--syntax-check-only", "-v"}) + files);
    require(compiler.waitForFinished(20'000), "csound does not end");
    const QString log = QString::fromLatin1(compiler.readAll());
    TreeReader reader;
    // The tree is printed a second time when it has been improved.
    bool isTree = false, isOver = false;
    for (const QString &line : log.split(u'\n')) {
        const bool isElement = line.trimmed().startsWith(QLatin1String("<tree")) ||
                               line.trimmed().startsWith(QLatin1String("</tree"));
        isOver = isOver || (isTree && !isElement && line.startsWith(QLatin1String("Printing")));
        isOver = isOver || (isTree && line.startsWith(QLatin1String("<tree ")));
        if (isElement && !isOver)
            reader.read(line);
        isTree = isTree || isElement;
    }
    return {log.contains(QLatin1String("Syntax check completed")), reader.headings(),
            log.toLatin1()};
}

QByteArray bytesOfFile(const QString &path)
{
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the piece cannot be read");
    return file.readAll().replace("\r\n", "\n").replace('\r', '\n');
}

/// A random orchestra that the compiler takes, of everything that the model has to know or to pass
/// over, in parts that can be left out one by one.
class OrchestraMaker
{
public:
    explicit OrchestraMaker(quint32 seed) : m_random(seed) {}

    QByteArrayList parts()
    {
        QByteArrayList parts;
        for (int left = 3 + some(8); left > 0; --left)
            parts.append(between() + (some(4) == 0 ? opcode() : instrument()));
        return parts;
    }

private:
    int some(int bound) { return int(m_random.bounded(bound)); }
    QByteArray oneOf(const QByteArrayList &of) { return of[some(int(of.size()))]; }
    QByteArray number() { return QByteArray::number(++m_number); }

    QByteArray between()
    {
        return oneOf({"", "\n", "; instr 90\n", "// opcode no, i, i\n", "/* instr 91\nendin */\n",
                      "gSa" + number() + " = {{\ninstr 92\nendin\n}}\n",
                      "#define M" + number() + " #1#\n",
                      "#define M" + number() + "(A'B) # $A +\n$B #\n",
                      "gi" + number() + " = 3 /* opcode */ + 4\n",
                      "#ifdef NOT_THERE\n; else\n#else\ngi" + number() + " init 1\n#end\n",
                      "gk" + number() + " init \\\n 4\n", ";;; title\n",
                      "gi" + number() + " ftgen 0, 0, 8, 10, 1, ; instr\n 2\n"});
    }

    QByteArray comment() { return oneOf({"", "", " ; instr 5", " // opcode", " /* endin */"}); }

    QByteArray instrument()
    {
        const QByteArray blank = oneOf({"", "  ", "\t"});
        QByteArray names = oneOf({number(), "Name" + number(), "+Plus_" + number()});
        for (int more = some(3); more > 0; --more)
            names += oneOf({",", ", ", " , "}) + oneOf({number(), "Name" + number()});
        return blank + "instr" + oneOf({" ", "   ", "\t"}) + names + comment() + "\n" + body() +
               blank + "endin" + comment() + "\n";
    }

    QByteArray opcode()
    {
        const QByteArray name = "udo_" + number();
        return "opcode " + name + oneOf({", i, i", ",i,i", ", i,\ti"}) + comment() +
               "\n ival xin\n" + body() + " xout ival\nendop\n";
    }

    QByteArray body()
    {
        QByteArray text;
        for (int left = some(6); left > 0; --left)
            text += oneOf({"", "\n", " "}) + statement() + comment() + "\n";
        return text;
    }

    QByteArray statement()
    {
        const QByteArray n = number();
        return oneOf({"ia" + n + " = p3 * 2", "prints \"instr 7\"", "prints {{\ninstr 8\n}}",
                      "if p3 > 1 then\n ib" + n + " = 1\nelse\n ib" + n + " = 2\nendif",
                      "if p3 > 1 igoto la" + n + "\nla" + n + ":", "lb" + n + ": ic" + n + " = 1",
                      "id" + n + " = 0\nwhile id" + n + " < 2 do\n id" + n + " += 1\nod",
                      "ie" + n + " = (p3 > 1 ? 2 : 3)", "asig" + n + " oscili 1, \\\n 440",
                      "schedule \"Name1\", 0, 1", "ka" + n + "[] init 4",
                      "Sx" + n + " = \"a ; b /* c \\\" instr 6\"", "print p3 ;; endin"});
    }

    QRandomGenerator m_random;
    int m_number = 0;
};

QByteArray orchestraOf(const QByteArrayList &parts)
{
    return "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\n" + parts.join();
}

QByteArray unified(const QByteArray &orchestra)
{
    return "<CsoundSynthesizer>\n<CsOptions>\n-n\n</CsOptions>\n<CsInstruments>\n" + orchestra +
           "</CsInstruments>\n<CsScore>\n</CsScore>\n</CsoundSynthesizer>\n";
}

QString written(const QTemporaryDir &folder, const char *name, const QByteArray &text)
{
    QFile file(folder.filePath(QLatin1String(name)));
    require(file.open(QIODevice::WriteOnly), "the piece cannot be written");
    file.write(text);
    return file.fileName();
}

/// What is wrong with that piece, a unified file or an orchestra with a score of its own; "" when
/// nothing is.
QString faultOf(const QTemporaryDir &folder, const QByteArrayList &parts, DocumentRole role)
{
    const bool isUnified = role == DocumentRole::Csd;
    const QByteArray orchestra = orchestraOf(parts);
    const QByteArray text = isUnified ? unified(orchestra) : orchestra;
    const QStringList files =
        isUnified
            ? QStringList(written(folder, "made.csd", text))
            : QStringList({written(folder, "made.orc", text), written(folder, "made.sco", "e\n")});
    const Compiled compiler = compiled(folder.path(), files);
    if (!compiler.isRead)
        return QStringLiteral("the compiler refuses it:\n") +
               QString::fromLatin1(compiler.log.right(600));
    const Headings model = headingsOfModel(text, role);
    return model == compiler.headings ? QString()
                                      : QStringLiteral("model: %1\ncompiler: %2")
                                            .arg(model.join(QLatin1String("; ")),
                                                 compiler.headings.join(QLatin1String("; ")));
}

/// Leaves out parts as long as what remains is still wrong.
QByteArrayList shrunk(const QTemporaryDir &folder, QByteArrayList parts, DocumentRole role)
{
    for (qsizetype i = 0; i < parts.size();) {
        QByteArrayList fewer = parts;
        fewer.removeAt(i);
        if (faultOf(folder, fewer, role).isEmpty())
            ++i;
        else
            parts = fewer;
    }
    return parts;
}

} // namespace

void tst_PieceAgainstCompiler::pieces_haveTheCompilersHeadings_data()
{
    QTest::addColumn<QStringList>("paths");
    for (const char *folder : {"/../data/examples", "/pieces"}) {
        const QDir pieces(QLatin1String(TEST_SOURCE_DIR) + QLatin1String(folder));
        for (const QString &name : pieces.entryList({QStringLiteral("*.csd")}, QDir::Files))
            QTest::newRow(qPrintable(name)) << QStringList(pieces.filePath(name));
        for (const QString &name : pieces.entryList({QStringLiteral("*.orc")}, QDir::Files)) {
            const QStringList partner = pieces.entryList(
                {QFileInfo(name).completeBaseName() + QLatin1String(".sco")}, QDir::Files);
            if (!partner.isEmpty())
                QTest::newRow(qPrintable(name))
                    << QStringList({pieces.filePath(name), pieces.filePath(partner.first())});
        }
    }
}

void tst_PieceAgainstCompiler::pieces_haveTheCompilersHeadings()
{
    QFETCH(QStringList, paths);
    const QTemporaryDir folder;
    const Compiled compiler = compiled(folder.path(), paths);
    if (!compiler.isRead)
        QSKIP("the compiler does not take this piece");
    const DocumentRole role = paths.size() == 1 ? DocumentRole::Csd : DocumentRole::Orchestra;
    QCOMPARE(headingsOfModel(bytesOfFile(paths.first()), role), compiler.headings);
}

void tst_PieceAgainstCompiler::madePieces_haveTheCompilersHeadings()
{
    const QTemporaryDir folder;
    const quint32 seed = randomSeed(1);
    for (quint32 i = 0; i < MadePieces; ++i) {
        const DocumentRole role = i % 2 == 0 ? DocumentRole::Csd : DocumentRole::Orchestra;
        const QByteArrayList parts = OrchestraMaker(seed + i).parts();
        if (faultOf(folder, parts, role).isEmpty())
            continue;
        const QByteArrayList least = shrunk(folder, parts, role);
        QFAIL(qPrintable(QStringLiteral("seed %1\n%2\n%3")
                             .arg(QString::number(seed + i), faultOf(folder, least, role),
                                  QString::fromUtf8(least.join("----\n")))));
    }
}

ARDIPHON_TEST(tst_PieceAgainstCompiler, QCoreApplication)
#include "tst_PieceAgainstCompiler.moc"
