#pragma once

#include <QObject>
#include <QStringList>

class QListWidget;
class QTreeWidget;

namespace ardiphon {

class LEditOCX;

/// The words of a CSD beside the text: a tree of those that are in the document, refreshed one word
/// at a time, where a click goes to the word, and a list of all of them from which one can be
/// inserted.
class TagPanel : public QObject
{
    Q_OBJECT

public:
    /// \a words: the words, from index 1 on; index 0 is not used.
    TagPanel(LEditOCX &editor, QTreeWidget &tree, QListWidget &list, const QStringList &words);

    /// Looks for the next word in the document. False when all were looked for since the text
    /// changed: then there is nothing to do until refreshRequested().
    bool refreshNext();
    /// Shows every word as missing until it is found again.
    void clear();

signals:
    /// The text has changed: each word is to be looked for.
    void refreshRequested();
    /// A word of the list was inserted.
    void inserted();

private:
    void goTo(const QString &word);
    void insertWord(const QString &word);
    bool isShown(const QString &word) const;
    void lookAgain();

    LEditOCX &m_editor;
    QTreeWidget &m_tree;
    QListWidget &m_list;
    const QStringList &m_words;
    qsizetype m_index = 0;
    qsizetype m_left = 0; ///< how many words were not looked for yet
};

} // namespace ardiphon
