#pragma once

#include "typing/Completion.h"
#include "typing/CompletionPlace.h"
#include "typing/OpcodeSignatures.h"
#include "typing/Snippets.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace ardiphon {

class WordTables;

/// What suggestions are taken from. All of it outlives them.
struct CompletionSources
{
    const Piece &piece;
    const WordTables &words;
    OpcodeSignatures &opcodes;
    /// The files that can be named in a text that wants a file; asked only there.
    std::function<QStringList()> files;
    const QList<Snippet> &snippets;
};

/// Why there are suggestions.
enum class CompletionReason : quint8 {
    Letters, ///< of a word were typed
    Opening, ///< a bracket or quotes were typed
    Asked,   ///< the user asked for them
};

/// The suggestions at a place: read once, then narrowed as the word is typed on.
class CompletionList
{
public:
    /// What can stand at \a place and has its letters. Where the user asked for it, and behind an
    /// opening bracket or quotes, what is open is closed too; \a behind is the line behind the
    /// caret.
    CompletionList(const CompletionSources &sources, CompletionPlace place, CompletionReason reason,
                   const QString &behind);

    const CompletionPlace &place() const { return m_place; }
    /// Of the word as it is typed now; it has all letters that it had at first.
    void narrow(const QString &typed);
    const QString &typed() const { return m_typed; }

    int size() const { return int(m_shown.size()); }
    bool isEmpty() const { return m_shown.isEmpty(); }
    /// In the order in which they are shown.
    const Completion &at(int row) const;
    /// Whether a row would change nothing: its word is there.
    bool isTyped(int row) const { return !at(row).isAppended && at(row).taken() == m_typed; }

private:
    static constexpr int FirstRows = 200;

    void sort();
    auto inOrder() const
    {
        return [this](int a, int b) { return isBetter(m_all[a], m_all[b]); };
    }

    CompletionPlace m_place;
    QString m_typed;
    QList<Completion> m_all;
    mutable QList<int> m_shown;
    mutable int m_sorted = 0; ///< how many of them are in order
};

/// The form and the sentence of a suggestion.
struct CompletionText
{
    QString form;
    QString sentence;
};
CompletionText textOf(const Completion &of, OpcodeSignatures &opcodes);

} // namespace ardiphon
