// What the real compiler says to pieces in which everything has got another name.

#include "documents/Pieces.h"
#include "language/WordTables.h"
#include "piece/RenamedPiece.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

class tst_RenamedPieces : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void renamed_compilesAsBefore_data();
    void renamed_compilesAsBefore();
    void renamedBack_isTheSame_data() { renamed_compilesAsBefore_data(); }
    void renamedBack_isTheSame();

private:
    struct Step
    {
        PiecePlace at; ///< of the new name
        QString name;  ///< the old one
    };
    /// Gives everything in \a text that can have one another name; the steps say how to go back.
    QByteArray renameAll(const QByteArray &text, QList<Step> &steps) const;
    bool renameNext(QByteArray &text, QList<Step> &steps) const;
    std::unique_ptr<PieceRename> renameAt(const Piece &piece, const PiecePlace &place) const;
    static QByteArray verdict(const QByteArray &text, const QString &path);

    IsOpcode m_isOpcode;
    WordTables m_words;
};

namespace {

/// A name that no piece has.
QString unusedName(const PieceSymbol &symbol, int number)
{
    const QString end = QStringLiteral("zz%1").arg(number);
    const QString old = QString::fromUtf8(symbol.name);
    switch (symbol.kind) {
    case SymbolKind::Instrument:
        return number % 2 == 0 ? QString::number(700 + number) : QStringLiteral("Z") + end;
    case SymbolKind::Variable:
        return old.left(old.startsWith(u'g') ? 2 : 1) + end;
    default:
        return QStringLiteral("Z") + end;
    }
}

/// Whether it is one of the numbers above.
bool isUnusedNumber(QByteArrayView name) { return name.size() == 3 && name[0] == '7'; }

QByteArray linesOf(const QByteArray &bytes)
{
    return QByteArray(bytes).replace("\r\n", "\n").replace('\r', '\n');
}

} // namespace

void tst_RenamedPieces::initTestCase()
{
    m_words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    QVERIFY(m_words.OpcodeCount > 1000);
    m_isOpcode = [this](QByteArrayView name) {
        return m_words.FindInTable(QString::fromLatin1(name)) > 0;
    };
}

void tst_RenamedPieces::renamed_compilesAsBefore_data()
{
    QTest::addColumn<QString>("path");
    for (const Pieces::Piece &piece : Pieces::all()) {
        const QByteArray text = bytesOf(piece.path);
        if (piece.verdict == QLatin1String("compiles") && piece.kind() == DocumentRole::Csd &&
            text.size() < 10000 && QString::fromUtf8(text).toUtf8() == text)
            QTest::newRow(qPrintable(piece.name)) << piece.path;
    }
}

std::unique_ptr<PieceRename> tst_RenamedPieces::renameAt(const Piece &piece,
                                                         const PiecePlace &place) const
{
    const auto symbol = symbolAt(piece, *piece.orchestra(), place.line, place.column);
    if (!renameObstacle(symbol).isEmpty())
        return nullptr;
    auto rename = std::make_unique<PieceRename>(piece, *symbol);
    rename->readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    return rename;
}

bool tst_RenamedPieces::renameNext(QByteArray &text, QList<Step> &steps) const
{
    const PieceTextLines lines(text);
    Piece piece({{DocumentRole::Csd, &lines}}, m_isOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    PieceWordReader reader(piece.texts().front());
    while (!reader.atEnd()) {
        const int line = reader.nextLine();
        const PieceWords words = reader.readLine();
        for (const PieceWord &word : words) {
            const PiecePlace place{DocumentRole::Csd, line,
                                   charactersOf(lines.line(line), word.start), 0};
            const bool isNew = word.name.contains("zz") || isUnusedNumber(word.name);
            const auto rename = isNew ? nullptr : renameAt(piece, place);
            const QString name =
                rename ? unusedName(rename->symbol(), int(steps.size())) : QString();
            if (!rename || rename->hiddenNotes() > 0 || !rename->refusal(name).isEmpty())
                continue;
            steps.append({rename->place(0), QString::fromUtf8(rename->symbol().name)});
            text = withEdits(text, rename->editsFor(name));
            return true;
        }
    }
    return false;
}

QByteArray tst_RenamedPieces::renameAll(const QByteArray &text, QList<Step> &steps) const
{
    QByteArray renamed = text;
    while (renameNext(renamed, steps)) {
    }
    return renamed;
}

/// The last words of the compiler, with the messages about what it could not do.
QByteArray tst_RenamedPieces::verdict(const QByteArray &text, const QString &path)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("piece.csd")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        return "not written";
    QProcess compiler;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *const name : {"INCDIR", "SSDIR", "SADIR"})
        environment.insert(QLatin1String(name), QFileInfo(path).path());
    compiler.setProcessEnvironment(environment);
    compiler.setWorkingDirectory(folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.setStandardInputFile(QProcess::nullDevice());
    compiler.start(
        QStandardPaths::findExecutable(QStringLiteral("csound")),
        {QStringLiteral("-n"), QStringLiteral("-d"), QStringLiteral("-m0"), file.fileName()});
    if (!compiler.waitForFinished(60'000) || compiler.exitStatus() != QProcess::NormalExit)
        return "did not end";
    const QByteArray log = compiler.readAll();
    const bool isClean = compiler.exitCode() == 0 && log.contains("\n0 errors in performance");
    return isClean ? "compiles" : log + text;
}

void tst_RenamedPieces::renamed_compilesAsBefore()
{
    QFETCH(QString, path);
    const QByteArray text = linesOf(bytesOf(path));
    QList<Step> steps;
    const QByteArray renamed = renameAll(text, steps);
    QVERIFY(!steps.isEmpty());
    QVERIFY(renamed != text);
    QCOMPARE(verdict(renamed, path), QByteArray("compiles"));
}

/// One by one from the last to the first, each at the first of its places.
void tst_RenamedPieces::renamedBack_isTheSame()
{
    QFETCH(QString, path);
    const QByteArray text = linesOf(bytesOf(path));
    QList<Step> steps;
    QByteArray renamed = renameAll(text, steps);
    while (!steps.isEmpty()) {
        const Step step = steps.takeLast();
        const PieceTextLines lines(renamed);
        Piece piece({{DocumentRole::Csd, &lines}}, m_isOpcode);
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        const auto back = renameAt(piece, step.at);
        QVERIFY2(back, qPrintable(step.name));
        QCOMPARE(back->refusal(step.name), QString());
        renamed = withEdits(renamed, back->editsFor(step.name));
    }
    QCOMPARE(renamed, text);
}

ARDIPHON_TEST(tst_RenamedPieces, QCoreApplication)
#include "tst_RenamedPieces.moc"
