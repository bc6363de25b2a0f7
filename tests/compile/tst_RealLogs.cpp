#include "compile/LogAnalysis.h"
#include "compile/ProjectDialog.h"
#include "compile/ui/CompilerOutput.h"
#include "compile/ui/FormCSound.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QGroupBox>
#include <QStandardPaths>

using namespace ardiphon;

namespace {

const QString Folder = QStringLiteral(TEST_SOURCE_DIR "/compile/broken");

QString describe(const ErrorPlace &place)
{
    return (place.target == ErrorTarget::Score ? QStringLiteral("score ")
                                               : QStringLiteral("orchestra ")) +
           QString::number(place.line);
}

QString readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

/// Broken pieces, compiled by the real compiler: what the dialog makes of each log. A folder with a
/// piece.orc, a piece.sco and an expected.txt is a case.
class tst_RealLogs : public QObject
{
    Q_OBJECT

private slots:
    void compile_brokenPiece_buttonAndLinks_data();
    void compile_brokenPiece_buttonAndLinks();
    void compile_soundPiece_isOfferedToPlay();

private:
    static void useRealCompiler(ProjectDialog &dialog)
    {
        dialog.config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
        require(!dialog.config.FileCSound.isEmpty(), "csound is not installed");
    }
    static void copyPiece(ProjectDialog &dialog, const QString &folder)
    {
        dialog.choose(QStringLiteral("piece"));
        require(
            QFile::copy(folder + QStringLiteral("/piece.orc"), dialog.config.OrchestraFileName) &&
                QFile::copy(folder + QStringLiteral("/piece.sco"), dialog.config.ScoreFileName),
            "the piece cannot be copied");
    }
    /// Where the button leads, and each line of the log that is a link, as an expected.txt has it.
    static QString findings(const ProjectDialog &dialog);
};

QString tst_RealLogs::findings(const ProjectDialog &dialog)
{
    const QString text = dialog.control<CompilerOutput>("TxtOutputs")->text();
    QString found = QStringLiteral("button: none\n");
    if (dialog.control("btnGoToError")->isVisible())
        found = QStringLiteral("button: %1\n").arg(describe(*findLogError(text).place));
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (const auto place = placeNamedAt(lines, i, dialog.config.OrchestraFileName,
                                            dialog.config.ScoreFileName))
            found += describe(*place) + QStringLiteral(": ") + lines[i].simplified() + u'\n';
    return found.remove(dialog.folder.path() + u'/');
}

void tst_RealLogs::compile_brokenPiece_buttonAndLinks_data()
{
    QTest::addColumn<QString>("folder");
    for (const QFileInfo &entry :
         QDir(Folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        QTest::newRow(qPrintable(entry.fileName())) << entry.filePath();
}

void tst_RealLogs::compile_brokenPiece_buttonAndLinks()
{
    QFETCH(QString, folder);
    ProjectDialog dialog;
    useRealCompiler(dialog);
    copyPiece(dialog, folder);
    LEditOCX orchestra;
    LEditOCX score;
    dialog.open<FormCSound>(orchestra, score);
    dialog.click("Compila");
    const QString found = findings(dialog);
    const QString expected = readAll(folder + QStringLiteral("/expected.txt"));
    QVERIFY2(found == expected, qPrintable(QStringLiteral("found\n") + found));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_RealLogs::compile_soundPiece_isOfferedToPlay()
{
    ProjectDialog dialog;
    useRealCompiler(dialog);
    copyPiece(dialog, Folder + QStringLiteral("/no_error"));
    LEditOCX orchestra;
    LEditOCX score;
    dialog.open<FormCSound>(orchestra, score);
    dialog.click("Compila");
    QCOMPARE(dialog.control<QGroupBox>("Frame1")->title(), QStringLiteral("Wave Player - Ready"));
    QVERIFY(QFileInfo(dialog.path(QStringLiteral("piece.wav"))).size() > 44);
    dialog.click("btnClose");
    // The wave is free for the next compile.
    dialog.expectOverwriteQuestion(Answer::Ok);
    dialog.click("Compila");
    QVERIFY(QFileInfo(dialog.path(QStringLiteral("piece.wav"))).size() > 44);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

ARDIPHON_TEST(tst_RealLogs, QApplication)
#include "tst_RealLogs.moc"
