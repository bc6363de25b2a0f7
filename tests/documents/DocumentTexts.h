#pragma once

#include <QString>

// What is asked and said alike in several tests of the two windows.

inline const QString ExportPairTitle = QStringLiteral("Save Orc/Sco As ... (*.ORC/*.SCO)");
inline const QString ImportPairTitle = QStringLiteral("Open Project (Orchestra & Score)");
inline const QString ExportCsdTitle = QStringLiteral("Save CSD File As ... (*.CSD)");
inline const QString ImportCsdTitle = QStringLiteral("Open CSound Unified File Format (*.CSD)");
inline const QString SaveProjectAsTitle = QStringLiteral("Save Project As ... (*.ORC / *.SCO)");
inline const QString ChangedByAnother = QStringLiteral("File has been changed by another program!");
inline const QString AlreadyExists = QStringLiteral("File already exists!");

inline QString notSaved(const QString &path, const QString &reason)
{
    return QStringLiteral("The file \"%1\" was not saved: %2.").arg(path, reason);
}
inline const QString FolderGone = QStringLiteral("its folder does not exist");
inline const QString PermissionDenied = QStringLiteral("permission is denied");
