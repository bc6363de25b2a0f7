#include "documents/ui/ProjectDocument.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "documents/DocumentRules.h"
#include "documents/FileChooser.h"
#include "documents/PairQuestion.h"
#include "documents/ui/HalfDocument.h"
#include "language/editor/LEditOCX.h"
#include "start/StartRules.h"

#include <QFileInfo>

namespace ardiphon {

namespace {

const QString ProjectChanged = QStringLiteral("Project has changed!");
const QString OpenFilter =
    QStringLiteral("CSound Files (*.csd;*.orc)|*.csd;*.orc|Orc/Sco Files (*.orc & *.sco)|*.orc|"
                   "Csd Files (*.csd)|*.csd|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");

/// Saves \a half, unless it has neither a name, as its partner's file was missing, nor a modified
/// text.
SaveResult saveIfNeeded(HalfDocument &half)
{
    const bool nothingThere = half.fileName().isEmpty() && !half.isModified();
    return nothingThere ? SaveResult::Saved : half.save();
}

SaveResult resultOf(SaveResult first, SaveResult second)
{
    for (const SaveResult result : {SaveResult::Failed, SaveResult::Refused})
        if (first == result || second == result)
            return result;
    return SaveResult::Saved;
}

} // namespace

ProjectDocument::ProjectDocument(HalfDocument &orchestra, HalfDocument &score,
                                 ProgramContext &program, FileChooser &files,
                                 std::function<QString()> chooseNew, QObject *parent)
    : QObject(parent),
      m_orchestra(orchestra),
      m_score(score),
      m_program(program),
      m_files(files),
      m_chooseNew(std::move(chooseNew))
{
    connect(&orchestra, &HalfDocument::opened, this, &ProjectDocument::opened);
    connect(&score, &HalfDocument::opened, this, &ProjectDocument::opened);
}

ConfigurationBlock &ProjectDocument::config() const { return m_program.config; }

bool ProjectDocument::isModified() const
{
    return m_orchestra.isModified() || m_score.isModified();
}

void ProjectDocument::saveBookmarksIfChanged()
{
    m_orchestra.saveBookmarksIfChanged();
    m_score.saveBookmarksIfChanged();
}

void ProjectDocument::beginEmpty()
{
    m_orchestra.beginEmpty(Untitled);
    m_score.beginEmpty(Untitled);
    m_orchestra.editor().setFocus();
}

bool ProjectDocument::mayDropTexts(const QString &title, const QString &firstLine)
{
    const Answer answer = askToSave(
        m_program.dialogs, saveQuestion(title, firstLine), [this] { return isModified(); },
        [this] { return save(); });
    if (answer == Answer::Cancel)
        m_orchestra.editor().setFocus();
    return answer != Answer::Cancel;
}

void ProjectDocument::New()
{
    if (!mayDropTexts(QStringLiteral("New Project"), ProjectChanged))
        return;
    saveBookmarksIfChanged();
    const QString choice = m_chooseNew();
    if (choice == QLatin1String("NEWORCSCO")) {
        beginEmpty();
    } else if (choice == QLatin1String("NEWCSD") || choice == QLatin1String("NEWGENERIC")) {
        m_orchestra.editor().ClearDocument();
        m_score.editor().ClearDocument();
        openInCsdWindow(QString());
    }
}

void ProjectDocument::Open()
{
    if (!mayDropTexts(QStringLiteral("Open Project"), ProjectChanged))
        return;
    saveBookmarksIfChanged();
    const auto path = m_files.open(QStringLiteral("Open Project"), OpenFilter);
    if (!path)
        return;
    if (roleOfPath(*path) == DocumentRole::Orchestra)
        openPair(*path);
    else
        openInCsdWindow(*path);
}

/// When the score is missing, the window is emptied, also of the project that was open before.
void ProjectDocument::openPair(const QString &orchestraPath)
{
    const QString scorePath = pathWithExtension(orchestraPath, ScoreHalf.extension);
    const auto score = existingPartner(scorePath);
    if (!score) {
        m_program.dialogs.message({missingScoreText(scorePath)});
        beginEmpty();
        return;
    }
    m_orchestra.load(orchestraPath);
    m_score.load(*score);
    m_orchestra.editor().setFocus();
    noteOpened(orchestraPath);
    noteOpened(*score);
}

void ProjectDocument::noteOpened(const QString &path)
{
    UpdateRecentFiles(config(), m_program.settings, path);
    emit opened();
}

void ProjectDocument::openInCsdWindow(const QString &path)
{
    m_orchestra.giveUp();
    m_score.giveUp();
    config().CSDFileName = path; // the CSD window reads the name there
    emit csdWindowRequested();
}

SaveResult ProjectDocument::save()
{
    if (m_orchestra.fileName() == Untitled || m_score.fileName() == Untitled)
        return saveAs();
    const SaveResult orchestra = saveIfNeeded(m_orchestra);
    return resultOf(orchestra, saveIfNeeded(m_score));
}

SaveResult ProjectDocument::saveAs()
{
    const PairChoice pair = askForPair(m_files, m_program.dialogs,
                                       QStringLiteral("Save Project As ... (*.ORC / *.SCO)"),
                                       QStringLiteral("Csound files (orc & sco)|*.orc"));
    if (!pair.isMade())
        return pair.wasRefused ? SaveResult::Refused : SaveResult::Cancelled;
    const SaveResult orchestra = m_orchestra.saveTo(pair.orchestra);
    const SaveResult score = m_score.saveTo(pair.score);
    m_orchestra.editor().setFocus();
    return resultOf(orchestra, score);
}

void ProjectDocument::OpenNamedOnLoad()
{
    const QString named =
        config().OrchestraFileName.isEmpty() ? config().ScoreFileName : config().OrchestraFileName;
    if (!named.isEmpty()) {
        OpenProjectFile(named);
        return;
    }
    m_orchestra.rename(Untitled);
    m_score.rename(Untitled);
    m_orchestra.editor().setFocus();
}

void ProjectDocument::OpenProjectFile(const QString &path)
{
    config().LastFileName = path;
    noteOpened(path);
    if (roleOfPath(path) == DocumentRole::Score)
        loadWithPartner(path, m_score, m_orchestra);
    else
        loadWithPartner(path, m_orchestra, m_score);
    m_files.beginIn(QFileInfo(path).path());
}

/// Unlike Open, this accepts a half whose partner is missing; the partner then has no name at all.
void ProjectDocument::loadWithPartner(const QString &path, HalfDocument &half,
                                      HalfDocument &partner)
{
    half.load(path);
    if (const auto found = existingPartner(pathWithEnding(path, partner.half().extension)))
        partner.load(*found);
    else
        partner.beginEmpty(QString());
    half.editor().setFocus();
}

void ProjectDocument::OpenDroppedFile(const QString &path)
{
    if (!mayDropTexts(QStringLiteral("Save File"), QStringLiteral("File has changed!")))
        return;
    saveBookmarksIfChanged();
    config().LastFileName = path;
    if (roleOfPath(path) == DocumentRole::Csd)
        openInCsdWindow(path);
    else
        OpenProjectFile(path);
}

void ProjectDocument::OpenRecent(const QString &path)
{
    const QString ending = path.right(3).toUpper();
    if (ending == QLatin1String("ORC"))
        m_orchestra.OpenRecent(path);
    else if (ending == QLatin1String("SCO"))
        m_score.OpenRecent(path);
    else if (ending == QLatin1String("CSD"))
        openRecentCsd(path);
}

void ProjectDocument::openRecentCsd(const QString &path)
{
    if (m_orchestra.askToSave(QStringLiteral("Save Orchestra")) == Answer::Cancel ||
        m_score.askToSave(QStringLiteral("Save Score")) == Answer::Cancel)
        return;
    saveBookmarksIfChanged();
    openInCsdWindow(path);
}

/// The second question is asked even after Cancel at the first.
bool ProjectDocument::mayLeave(bool &saved)
{
    const QString title = QStringLiteral("Exit Program");
    const Answer orchestra = m_orchestra.askToSave(title);
    if (orchestra != Answer::No)
        m_orchestra.saveBookmarksIfChanged();
    const Answer score = m_score.askToSave(title);
    saved = score != Answer::No;
    if (saved)
        m_score.saveBookmarksIfChanged();
    return orchestra != Answer::Cancel && score != Answer::Cancel;
}

} // namespace ardiphon
