#include "documents/PairQuestion.h"

#include "documents/FileChooser.h"
#include "documents/ProjectRules.h"
#include "platform/Dialogs.h"

#include <QFileInfo>

namespace ardiphon {

namespace {

QString nameOf(const QString &path) { return path.mid(path.lastIndexOf(u'/') + 1); }

Message wouldBeOneFile(const QString &scorePath)
{
    return {QStringLiteral("Orchestra and Score would both be written to %1!\r\n"
                           "Choose another name for the Orchestra (*.orc)!")
                .arg(nameOf(scorePath))};
}

/// The same question that a file dialog asks for the file chosen in it.
Message replaceQuestion(const QString &title, const QString &path)
{
    return {QStringLiteral("%1 already exists.\r\nDo you want to replace it?").arg(nameOf(path)),
            title, MessageIcon::Exclamation, MessageButtons::YesNo, true};
}

/// Where the orchestra's file exists, the file dialog has asked already.
bool mayWritePair(Dialogs &dialogs, const QString &title, const PairChoice &pair)
{
    if (isOneFile(pair.orchestra, pair.score)) {
        dialogs.message(wouldBeOneFile(pair.score));
        return false;
    }
    if (QFileInfo::exists(pair.orchestra) || !QFileInfo(pair.score).isFile())
        return true;
    return dialogs.message(replaceQuestion(title, pair.score)) == Answer::Yes;
}

} // namespace

PairChoice askForPair(FileChooser &files, Dialogs &dialogs, const QString &title,
                      const QString &filter, const QString &proposedName)
{
    PairChoice pair;
    QString proposed = proposedName;
    while (const auto path = files.save(title, filter, proposed)) {
        pair.orchestra = *path;
        pair.score = pathWithExtension(*path, ScoreHalf.extension);
        if (mayWritePair(dialogs, title, pair))
            return pair;
        pair.wasRefused = true;
        proposed = *path;
    }
    pair.orchestra.clear();
    return pair;
}

} // namespace ardiphon
