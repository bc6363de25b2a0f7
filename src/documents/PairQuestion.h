#pragma once

#include <QString>

namespace ardiphon {

class Dialogs;
class FileChooser;

/// Where the user wants an orchestra and its score to be written.
struct PairChoice
{
    QString orchestra; ///< "" when no file was chosen
    QString score;
    bool wasRefused = false; ///< a choice before was taken back, for what it would have done

    bool isMade() const { return !orchestra.isEmpty(); }
};

/// Asks for the file of an orchestra; its score goes beside it, under the name with "sco". A name
/// for which both would be one file is refused, and where the orchestra is a new file, the score's
/// is not overwritten unasked: the dialog comes again then, with what was typed.
PairChoice askForPair(FileChooser &files, Dialogs &dialogs, const QString &title,
                      const QString &filter, const QString &proposedName = {});

} // namespace ardiphon
