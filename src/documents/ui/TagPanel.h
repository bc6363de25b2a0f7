#pragma once

#include <QObject>
#include <QStringList>

class QListWidget;
class QTreeWidget;

namespace ardiphon {

class LEditOCX;

/// The words of a CSD beside the text: a tree of those that the document holds, refreshed one word
/// at a time, where a click goes to the word, and a list of all of them from which one can be
/// inserted.
class TagPanel : public QObject
{
    Q_OBJECT

public:
    /// \a words: the words, from index 1; index 0 is not one.
    TagPanel(LEditOCX &editor, QTreeWidget &tree, QListWidget &list, const QStringList &words);

    /// Looks for the next word in turn, where the text has changed since it was looked for.
    void refreshNext();
    /// Shows every word as missing until it is found again.
    void clear();

signals:
    /// A word of the list was inserted.
    void inserted();

private:
    void goTo(const QString &word);
    void insertWord(const QString &word);
    bool isShown(const QString &word) const;

    LEditOCX &m_editor;
    QTreeWidget &m_tree;
    QListWidget &m_list;
    const QStringList &m_words;
    qsizetype m_index = 0;
};

} // namespace ardiphon
