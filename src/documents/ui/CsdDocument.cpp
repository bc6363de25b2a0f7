#include "documents/ui/CsdDocument.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/Conversion.h"
#include "documents/DocumentRules.h"
#include "documents/FileChooser.h"
#include "documents/PairQuestion.h"
#include "documents/ProjectRules.h"
#include "documents/TextFile.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/Bookmarks.h"
#include "start/StartRules.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

namespace {

const QString OpenFilter =
    QStringLiteral("CSound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco|Csd Files (*.csd)|*.csd|"
                   "Orc/Sco Files (*.orc;*.sco)|*.orc;*.sco|Text Files (*.txt)|*.txt|"
                   "All Files (*.*)|*.*");
const QString SaveFilter =
    QStringLiteral("Csound CSD (*.csd)|*.csd|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");
const QString ChangedLine = QStringLiteral("File has changed!");

} // namespace

CsdDocument::CsdDocument(LEditOCX &editor, Bookmarks &bookmarks, ProgramContext &program,
                         FileChooser &files, std::function<QString()> chooseNew, QObject *parent)
    : EditedFile(DocumentRole::Csd, editor, bookmarks,
                 {QStringLiteral("Save File"), QStringLiteral("Save File As ..."), SaveFilter,
                  QStringLiteral("Cannot find File!")},
                 program, files, parent),
      m_chooseNew(std::move(chooseNew))
{
}

void CsdDocument::New()
{
    if (!mayDropText(QStringLiteral("New File")))
        return;
    saveBookmarksIfChanged();
    const QString choice = m_chooseNew();
    if (choice == QLatin1String("NEWCSD")) {
        beginEmpty(Untitled);
        editor().setFocus();
    } else if (choice == QLatin1String("NEWORCSCO")) {
        config().OrchestraFileName.clear();
        config().ScoreFileName.clear();
        editor().ClearDocument();
        handOverToProject();
    }
}

void CsdDocument::Open()
{
    if (!mayDropText(QStringLiteral("Open File")))
        return;
    saveBookmarksIfChanged();
    if (const auto path = files().open(QStringLiteral("Open File"), OpenFilter)) {
        take(document().renamed(*path)); // also where the name is that of an orchestra or a score
        openPath(*path);
    }
}

void CsdDocument::OpenByName(const QString &path)
{
    if (!mayDropText(QStringLiteral("Save File")))
        return;
    bookmarks().save(fileName());
    config().LastFileName = path;
    openPath(path);
    editor().setFocus();
}

void CsdDocument::OpenRecent(const QString &path)
{
    if (!mayDropText(QStringLiteral("Save File")))
        return;
    saveBookmarksIfChanged();
    take(document().renamed(path));
    files().beginIn(QDir::currentPath());
    if (openPath(path))
        emit programFirstTitleRequested();
}

bool CsdDocument::openPath(const QString &path)
{
    config().OrchestraFileName.clear();
    config().ScoreFileName.clear();
    if (roleOfPath(path) == DocumentRole::Csd) {
        open(path);
        return true;
    }
    nameDocument(config(), path); // the project's window reads the name there
    handOverToProject();
    return false;
}

void CsdDocument::OpenNamedOnLoad(const QString &path)
{
    open(path);
    files().beginIn(QFileInfo(path).path());
}

void CsdDocument::open(const QString &path)
{
    load(path);
    noteOpened();
}

void CsdDocument::handOverToProject()
{
    clearModified();
    emit projectWindowRequested();
}

void CsdDocument::ExportToProject()
{
    const QString csd = editor().Text();
    if (csd.isEmpty()) {
        program().dialogs.message({QStringLiteral("No available Document to export!")});
        return;
    }
    const auto orchestra = orchestraOfCsd(csd);
    const auto score = scoreOfCsd(csd);
    if (!orchestra || !score) {
        program().dialogs.message(conversionError());
        return;
    }
    const PairChoice pair =
        askForPair(files(), program().dialogs, QStringLiteral("Save Orc/Sco As ... (*.ORC/*.SCO)"),
                   QStringLiteral("Csound Orc/Sco (*.orc/*.sco)|*.orc"),
                   proposedName(fileName(), QStringLiteral(".orc")));
    if (!pair.isMade())
        return;
    // Where one of them fails, the other is still useful.
    for (const auto &[path, text] : {std::pair(pair.orchestra, *orchestra), {pair.score, *score}})
        if (const auto written = writeTextFile(path, text); !written)
            program().dialogs.message({notSavedText(path, written.failure())});
}

void CsdDocument::ImportProject()
{
    if (askToSave(QStringLiteral("Import Orc/Sco Files"), ChangedLine, editor()) == Answer::Cancel)
        return;
    const auto path = files().open(QStringLiteral("Open Project (Orchestra & Score)"),
                                   QStringLiteral("Csound files (orc & sco)|*.orc"));
    if (!path)
        return;
    const QString scorePath = pathWithExtension(*path, ScoreHalf.extension);
    const auto partner = existingPartner(scorePath);
    if (!partner) {
        program().dialogs.message({missingScoreText(scorePath)});
        return;
    }
    const auto orchestra = readTextFile(*path);
    const auto score = orchestra ? readTextFile(*partner) : orchestra.failure();
    if (!score) {
        program().dialogs.message({notOpenedText(orchestra ? *partner : *path, score.failure())});
        return;
    }
    editor().SetText(csdText(*orchestra, *score));
    rename(Untitled);
    emit programFirstTitleRequested();
    emit loaded();
}

bool CsdDocument::mayDropText(const QString &title)
{
    return askToSave(title, ChangedLine, editor()) != Answer::Cancel;
}

bool CsdDocument::mayLeave(bool &saved)
{
    const Answer answer = askToSave(QStringLiteral("Exit Program"),
                                    QStringLiteral("File CSD has changed!"), editor());
    saved = answer != Answer::No;
    return answer != Answer::Cancel;
}

} // namespace ardiphon
