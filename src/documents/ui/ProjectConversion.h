#pragma once

#include <QObject>

namespace ardiphon {

struct ProgramContext;
class FileChooser;
class HalfDocument;

/// The ways of a project to a CSD and back. The files of the project itself are not touched.
class ProjectConversion : public QObject
{
    Q_OBJECT

public:
    ProjectConversion(HalfDocument &orchestra, HalfDocument &score, ProgramContext &program,
                      FileChooser &files, QObject *parent);

    /// Writes both texts to one CSD, for which it asks.
    void ExportToCsd();
    /// Replaces both texts by the parts of a CSD, for which it asks once the modified halves are
    /// saved or given up. The halves are then named after the CSD, and have no files yet.
    void ImportCsd();

private:
    HalfDocument &m_orchestra;
    HalfDocument &m_score;
    ProgramContext &m_program;
    FileChooser &m_files;
};

} // namespace ardiphon
