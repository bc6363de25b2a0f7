#pragma once

#include "documents/SaveQuestion.h"

#include <QObject>
#include <QString>

#include <functional>
#include <tuple>

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class FileChooser;
class HalfDocument;

/// A project: an orchestra and a score as a pair. The pair has no file of its own; the partner's
/// name follows from the path that is opened or saved.
class ProjectDocument : public QObject
{
    Q_OBJECT

public:
    /// \a chooseNew asks what kind of document to begin, and returns what FormNew::choose returns.
    ProjectDocument(HalfDocument &orchestra, HalfDocument &score, ProgramContext &program,
                    FileChooser &files, std::function<QString()> chooseNew, QObject *parent);

    void New();
    void Open();
    // The marks of the modified texts show whether they saved.
    void Save() { std::ignore = save(); }
    void SaveAs() { std::ignore = saveAs(); }

    /// Opens what the configuration names, or begins with two untitled documents.
    void OpenNamedOnLoad();
    /// Opens the orchestra or score at \a path and its partner, which may be missing.
    void OpenProjectFile(const QString &path);
    void OpenDroppedFile(const QString &path);
    /// Opens a file of the recent list: one half alone, or a CSD in its own window.
    void OpenRecent(const QString &path);

    /// Asks for each modified half whether to save it before the program ends. False after Cancel.
    /// \a saved becomes whether the tools' state is to be saved: not after No at the score.
    bool mayLeave(bool &saved);

signals:
    /// The pair was emptied: help texts for the old documents are to be cleared.
    void begun();
    /// A file was opened: the recent list may have changed.
    void opened();
    /// The configuration names a document that the CSD window is to open.
    void csdWindowRequested();

private:
    bool mayDropTexts(const QString &title, const QString &firstLine);
    bool isModified() const;
    [[nodiscard]] SaveResult save();
    [[nodiscard]] SaveResult saveAs();
    void saveBookmarksIfChanged();
    void beginEmpty();
    void openPair(const QString &orchestraPath);
    void loadWithPartner(const QString &path, HalfDocument &half, HalfDocument &partner);
    void noteOpened(const QString &path);
    void openInCsdWindow(const QString &path);
    void openRecentCsd(const QString &path);

    ConfigurationBlock &config() const;

    HalfDocument &m_orchestra;
    HalfDocument &m_score;
    ProgramContext &m_program;
    FileChooser &m_files;
    std::function<QString()> m_chooseNew;
};

} // namespace ardiphon
