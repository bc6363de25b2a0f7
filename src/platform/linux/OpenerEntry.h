#pragma once

#include <QString>
#include <QStringList>

namespace ardiphon {

/// The desktop entry that starts the program with a document; the user's file associations refer to
/// it. It also lists what else was made for them and has to be removed with them.
struct OpenerEntry
{
    QString program;   ///< absolute path
    QString arguments; ///< what the program gets; when empty, the document
    QString icon;      ///< absolute path
    QStringList types; ///< the MIME types that it opens
    QStringList made;  ///< files and folders, relative to the user's data folder, outer ones first

    /// Its file name, by which other files refer to it.
    static QString fileName() { return QStringLiteral("ardiphon-opener.desktop"); }

    /// The open command: the program, then a blank and the trimmed arguments, or "%1" for the
    /// document. Nothing in it is quoted, whatever the program's folder is called.
    QString openCommand() const;
    /// The same in the form that desktops read, which split at blanks what is not quoted.
    QString execLine() const;

    /// The content of its file.
    QByteArray text() const;
    /// The types and the made files from a file's content; the rest is set each time.
    static OpenerEntry fromText(const QByteArray &text);
    /// The line of \a types in text().
    static QByteArray typesLine(const QStringList &types);
};

} // namespace ardiphon
