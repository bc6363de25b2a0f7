#pragma once

#include "language/editor/TextBuffer.h"

#include <optional>
#include <vector>

namespace ardiphon {

/// The search of the control: what is searched for and in which direction, what takes its place,
/// and the match that was shown last. Reads the text; selects and scrolls nothing.
class ViewSearch
{
public:
    ViewSearch(QsciScintillaBase &view, TextBuffer &text) : m_view(view), m_text(text) {}

    void setFindText(const QString &text);
    void setReplaceText(const QString &text) { m_replaceText = text; }
    const QString &replaceText() const { return m_replaceText; }
    /// As LEditOCX::SetFindDirection; any other number changes nothing.
    void setDirection(int direction);
    void setWholeWord(bool wholeWord);

    /// The next match in the direction that is set, seen from \a from.
    std::optional<TextRange> find(TextRange from) const;
    /// Every match in the document, in its order.
    std::vector<TextRange> findAll() const;
    /// Replaces \a matches, which findAll() gave for the text as it is, as one step of history.
    void replace(const std::vector<TextRange> &matches);

    /// Keeps \a match as the one that is shown, until the text changes.
    void keepMatch(TextRange match) { m_match = match; }
    /// To be called when the text changes.
    void forgetMatch() { m_match.reset(); }
    bool isMatch(TextRange range) const { return m_match == range; }

private:
    std::optional<TextRange> findBetween(qsizetype from, qsizetype to) const;

    QsciScintillaBase &m_view;
    TextBuffer &m_text;
    QString m_findText;
    QString m_replaceText;
    int m_direction = 1;
    bool m_wholeWord = false;
    TextSearch m_search{m_findText, m_wholeWord}; ///< made again when one of these changes
    std::optional<TextRange> m_match;
};

} // namespace ardiphon
