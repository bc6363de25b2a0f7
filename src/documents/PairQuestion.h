#pragma once

#include <QString>

namespace ardiphon {

class Dialogs;
class FileChooser;

/// The files in which the user wants an orchestra and its score to be saved.
struct PairChoice
{
    QString orchestra; ///< "" when no file was chosen
    QString score;
    bool wasRefused = false; ///< the program or the user rejected an earlier choice

    bool isMade() const { return !orchestra.isEmpty(); }
};

/// Asks for the file of an orchestra; its score goes beside it, under the name with "sco". A name
/// for which both would be one file is refused, and where the orchestra's file is new, the user is
/// asked before the score's file is overwritten. After a refusal the dialog comes again, with what
/// was typed.
PairChoice askForPair(FileChooser &files, Dialogs &dialogs, const QString &title,
                      const QString &filter, const QString &proposedName = {});

} // namespace ardiphon
