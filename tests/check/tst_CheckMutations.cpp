#include "check/CheckedText.h"
#include "check/MutatedPiece.h"
#include "check/SectionProblems.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QDir>
#include <QProcess>

using namespace ardiphon;

/// Pieces that are broken by chance: where the compiler accepts one there is no error, and where it
/// refuses one an error is near the place.
class tst_CheckMutations : public QObject
{
    Q_OBJECT

private slots:
    void examples_haveNoError();
    void mutations_haveAnErrorNearby();

private:
    static QList<QByteArray> pieces();
    /// Of the unified file itself, as a compile has it.
    bool isAccepted(const QByteArray &piece) const;
    static QList<Problem> errorsOf(const QByteArray &piece);

    QTemporaryDir m_folder;
};

namespace {

constexpr int Mutations = 300;
constexpr int Near = 2; ///< lines

} // namespace

QList<QByteArray> tst_CheckMutations::pieces()
{
    QList<QByteArray> texts;
    const QDir examples(QStringLiteral(TEST_SOURCE_DIR "/../data/examples"));
    for (const QString &name : examples.entryList({QStringLiteral("*.csd")}, QDir::Files)) {
        QFile file(examples.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            texts.append(file.readAll());
    }
    return texts;
}

bool tst_CheckMutations::isAccepted(const QByteArray &piece) const
{
    const QString path = m_folder.filePath(QStringLiteral("piece.csd"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(piece) != piece.size())
        return false;
    file.close();
    QProcess compiler;
    compiler.setWorkingDirectory(m_folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.start(QStringLiteral("csound"), {QStringLiteral("--syntax-check-only"), path});
    compiler.closeWriteChannel();
    if (!compiler.waitForFinished(5000)) {
        compiler.kill();
        compiler.waitForFinished();
        return false;
    }
    return compiler.readAll().contains("Syntax check completed.");
}

QList<Problem> tst_CheckMutations::errorsOf(const QByteArray &piece)
{
    const CheckedText checked(piece);
    QList<Problem> errors = sectionProblems(checked.piece) + checked.problems;
    errors.removeIf([](const Problem &problem) { return problem.severity != Severity::Error; });
    return errors;
}

void tst_CheckMutations::examples_haveNoError()
{
    for (const QByteArray &piece : pieces()) {
        if (!isAccepted(piece))
            continue;
        const QList<Problem> errors = errorsOf(piece);
        QVERIFY2(errors.isEmpty(), qPrintable(errors.value(0).sentence));
    }
}

void tst_CheckMutations::mutations_haveAnErrorNearby()
{
    QRandomGenerator random(randomSeed(22));
    const QList<QByteArray> texts = pieces();
    int refused = 0;
    int near = 0;
    for (int i = 0; i < Mutations; ++i) {
        const MutatedPiece broken = mutated(mutation::oneOf(texts, random), random);
        const QByteArray piece = broken.lines.join('\n');
        const QList<Problem> errors = errorsOf(piece);
        if (isAccepted(piece)) {
            QVERIFY2(errors.isEmpty(), qPrintable(QStringLiteral("%1 in line %2: %3")
                                                      .arg(QLatin1String(broken.what))
                                                      .arg(broken.line)
                                                      .arg(errors.value(0).sentence)));
            continue;
        }
        ++refused;
        const bool isNear = std::any_of(errors.begin(), errors.end(), [&](const Problem &problem) {
            return std::abs(problem.place.line - broken.line) <= Near;
        });
        near += isNear;
        if (!isNear)
            qInfo("%s in line %d \"%s\": line %d %s", broken.what, broken.line,
                  broken.lines.value(broken.line - 1).constData(),
                  errors.isEmpty() ? 0 : errors[0].place.line,
                  errors.isEmpty() ? "no error" : qPrintable(errors[0].sentence));
    }
    qInfo("%d of %d refused pieces have an error within %d lines", near, refused, Near);
    QCOMPARE_GE(near * 10, refused * 9);
}

ARDIPHON_TEST(tst_CheckMutations, QCoreApplication)
#include "tst_CheckMutations.moc"
