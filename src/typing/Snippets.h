#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardiphon {

/// Where in a piece a snippet belongs.
enum class SnippetLanguage {
    Orchestra,
    Score,
    Options,  ///< of the compiler
    Document, ///< outside all sections of a unified file
};

/// A part of a snippet's text that the user fills in.
struct SnippetPlace
{
    int offset = 0; ///< in characters of the text
    int length = 0;
    int number = 1; ///< of its turn, from 1; several places may share one. 0: where one goes on

    friend bool operator==(const SnippetPlace &, const SnippetPlace &) = default;
};

/// A piece of text that is offered under a word.
struct Snippet
{
    QString word;
    QString title; ///< what it is, in a few words
    SnippetLanguage language = SnippetLanguage::Orchestra;
    QString text;               ///< lines with "\n" between them, and none behind the last
    QList<SnippetPlace> places; ///< as they stand in the text, with their first texts in it

    friend bool operator==(const Snippet &, const Snippet &) = default;
};

/// The snippets of a file like data/snippets.txt, whose head tells how it is written. What cannot
/// be read is left out; of several with one word the last one counts, in the place of the first.
QList<Snippet> snippetsOf(QByteArrayView file);

/// The snippets of all \a files together, as if they were one. A file that is missing, or cannot be
/// read, has none; of a very long one the beginning is read.
QList<Snippet> readSnippets(const QStringList &files);

/// The files that the user's snippets come from: the program's own, beside the executable, and then
/// the user's, which may not exist.
QStringList snippetFiles(const QString &programFolder);

} // namespace ardiphon
