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
                         FileChooser &files, std::function<void()> chooseNew, QObject *parent)
    : EditedFile(editor, bookmarks, program.config.CSDFileName,
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
    config().NewDocumentChoice.clear();
    m_chooseNew();
    if (config().NewDocumentChoice == QLatin1String("NEWCSD")) {
        beginEmpty(Untitled);
        editor().setFocus();
    } else if (config().NewDocumentChoice == QLatin1String("NEWORCSCO")) {
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
        config().CSDFileName = *path;
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
    config().CSDFileName = path;
    files().beginIn(QDir::currentPath());
    if (openPath(path))
        emit programFirstTitleDue();
}

bool CsdDocument::openPath(const QString &path)
{
    config().OrchestraFileName.clear();
    config().ScoreFileName.clear();
    if (nameDocument(config(), path) == StartWindow::FormORCSCO) {
        handOverToProject();
        return false;
    }
    open(path);
    return true;
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
    emit projectWindowDue();
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
    writeTextFile(pair.orchestra, *orchestra, program().dialogs);
    writeTextFile(pair.score, *score, program().dialogs);
}

void CsdDocument::ImportProject()
{
    if (askToSave(QStringLiteral("Import Orc/Sco Files"), ChangedLine) == Answer::Cancel)
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
    const auto orchestra = readTextFile(*path, program().dialogs);
    const auto score = orchestra ? readTextFile(*partner, program().dialogs) : std::nullopt;
    if (!score)
        return;
    editor().SetText(csdText(*orchestra, *score));
    rename(Untitled);
    emit programFirstTitleDue();
    emit loaded();
}

/// A Cancel leads back to the text.
Answer CsdDocument::askToSave(const QString &title, const QString &firstLine)
{
    const Answer answer = ardiphon::askToSave(
        program().dialogs, saveQuestion(title, firstLine), [this] { return isModified(); },
        [this] { return save(); });
    if (answer == Answer::Cancel)
        editor().setFocus();
    return answer;
}

bool CsdDocument::mayDropText(const QString &title)
{
    return askToSave(title, ChangedLine) != Answer::Cancel;
}

bool CsdDocument::mayLeave(bool &saved)
{
    const Answer answer =
        askToSave(QStringLiteral("Exit Program"), QStringLiteral("File CSD has changed!"));
    saved = answer != Answer::No;
    return answer != Answer::Cancel;
}

} // namespace ardiphon
