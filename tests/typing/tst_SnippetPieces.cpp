#include "support/FileBytes.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include "typing/Snippets.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// Every snippet that the program brings along is a piece that the compiler takes, once it has the
/// smallest frame around it.
class tst_SnippetPieces : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void snippet_compiles_data();
    void snippet_compiles();

private:
    QByteArray verdict(const QByteArray &piece, const QStringList &options) const;

    QString m_compiler;
};

namespace {

QByteArray pieceOf(const QByteArray &options, const QByteArray &orchestra, const QByteArray &score)
{
    return "<CsoundSynthesizer>\n<CsOptions>\n" + options +
           "\n</CsOptions>\n<CsInstruments>\nsr = 48000\nksmps = 32\nnchnls = 2\n0dbfs = 1\n" +
           orchestra + "\n</CsInstruments>\n<CsScore>\n" + score +
           "\n</CsScore>\n</CsoundSynthesizer>\n";
}

/// An instrument around lines that are meant for one, with a sound for them to work on.
QByteArray inInstrument(const QByteArray &lines)
{
    return "instr 1\nasig vco2 0.1, 110\n" + lines + "\nendin";
}

/// A short note for each instrument; where there is none, a moment of silence.
QByteArray notesFor(const QByteArray &orchestra)
{
    static const QRegularExpression heading(QStringLiteral("^instr ([0-9]+)"),
                                            QRegularExpression::MultilineOption);
    QByteArray notes = "f 0 0.5";
    for (auto found = heading.globalMatch(QString::fromUtf8(orchestra)); found.hasNext();)
        notes += "\ni " + found.next().captured(1).toUtf8() + " 0 1.2 0.2 8.00";
    return notes;
}

QByteArray pieceWith(const Snippet &snippet)
{
    const QByteArray text = snippet.text.toUtf8();
    switch (snippet.language) {
    case SnippetLanguage::Document:
        return text;
    case SnippetLanguage::Options:
        return pieceOf(text, inInstrument(""), notesFor(inInstrument("")));
    case SnippetLanguage::Score:
        return pieceOf("", inInstrument(""), text);
    case SnippetLanguage::Orchestra:
        break;
    }
    static const QRegularExpression body(QStringLiteral("^(instr|opcode) "),
                                         QRegularExpression::MultilineOption);
    const QByteArray orchestra = snippet.text.contains(body) ? text : inInstrument(text);
    return pieceOf("", orchestra, notesFor(orchestra));
}

} // namespace

void tst_SnippetPieces::initTestCase()
{
    m_compiler = QStandardPaths::findExecutable(QStringLiteral("csound"));
    if (m_compiler.isEmpty())
        QSKIP("csound is not installed");
}

/// What the compiler says of \a piece, beside a sound of the name that the snippets know.
QByteArray tst_SnippetPieces::verdict(const QByteArray &piece, const QStringList &options) const
{
    const QTemporaryDir folder;
    writeBytes(folder.filePath("piece.csd"), piece);
    writeBytes(folder.filePath("sound.wav"), WaveBytes::wave(2, 48000, QByteArray(4800, '\1')));
    QProcess compiler;
    compiler.setWorkingDirectory(folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.setStandardInputFile(QProcess::nullDevice());
    compiler.start(m_compiler, options + QStringList{"piece.csd"});
    if (!compiler.waitForFinished(20'000) || compiler.exitStatus() != QProcess::NormalExit)
        return "did not end";
    const QByteArray log = compiler.readAll();
    const bool isClean = compiler.exitCode() == 0 && !log.contains("rror:") &&
                         log.count("WARNING") == log.count("p-fields but is given") &&
                         !log.contains("deleted");
    return isClean ? "compiles" : log + piece;
}

void tst_SnippetPieces::snippet_compiles_data()
{
    QTest::addColumn<QByteArray>("piece");

    const QString file = QStringLiteral(TEST_SOURCE_DIR "/../data/snippets.txt");
    for (const Snippet &snippet : readSnippets({file}))
        QTest::newRow(qPrintable(snippet.word)) << pieceWith(snippet);
}

/// As it is read, and as it is played: a syntax check does not come to the score.
void tst_SnippetPieces::snippet_compiles()
{
    QFETCH(QByteArray, piece);

    for (const QStringList &options : {QStringList{"--syntax-check-only"}, {"-n", "-d"}}) {
        const QByteArray log = verdict(piece, options);
        QVERIFY2(log == "compiles", log.constData());
    }
}

ARDIPHON_TEST(tst_SnippetPieces, QCoreApplication)
#include "tst_SnippetPieces.moc"
