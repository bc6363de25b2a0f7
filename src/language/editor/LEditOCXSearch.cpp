// Search and replacement.

#include "language/editor/LEditOCXPrivate.h"

namespace ardiphon {

void LEditOCX::SetFindText(const QString &text)
{
    if (text == d->findText)
        return;
    d->findText = text;
    d->search = TextSearch(d->findText, d->findWholeWord);
}

void LEditOCX::SetReplaceText(const QString &text) { d->replaceText = text; }

void LEditOCX::SetFindDirection(int direction)
{
    if (direction >= 0 && direction <= 2)
        d->findDirection = direction;
}

void LEditOCX::SetFindWholeWord(bool wholeWord)
{
    if (wholeWord == d->findWholeWord)
        return;
    d->findWholeWord = wholeWord;
    d->search = TextSearch(d->findText, d->findWholeWord);
}

std::optional<TextRange> LEditOCX::Private::find(TextRange from) const
{
    if (findDirection == 0)
        return search.backward(text.bytes(0, text.size()), from.start);
    const auto found = findBetween(from.end, text.size());
    return found || findDirection == 1 ? found : findBetween(0, from.end);
}

// The first match that begins at \a from or after it, and before \a to. Reads no more of the text
// than that: reading all of it would close the buffer's gap, which after each replacement takes
// time in proportion to the text. What seems to match at \a to or after it may be cut off, so it
// does not count.
std::optional<TextRange> LEditOCX::Private::findBetween(qsizetype from, qsizetype to) const
{
    constexpr qsizetype longestCharacter = 4; // the ones before and after a match decide too
    const qsizetype longestMatch = findText.size() * longestCharacter;
    const qsizetype start = std::max<qsizetype>(from - longestCharacter, 0);
    const qsizetype end = std::min(to + longestMatch + longestCharacter, text.size());
    const auto found = search.forward(text.bytes(start, end), from - start);
    if (!found || start + found->start >= to)
        return std::nullopt;
    return TextRange{start + found->start, start + found->end};
}

int LEditOCX::FindFirst()
{
    const auto found = d->find(d->text.selection());
    if (!found)
        return 0;
    d->show(*found);
    d->setRecord(*found);
    d->match = found;
    return 1;
}

int LEditOCX::FindNext()
{
    const auto found = d->find(d->record());
    if (found)
        d->setRecord(*found);
    return found ? 1 : 0;
}

void LEditOCX::ReplaceCurrent()
{
    if (!d->match || d->text.selection() != *d->match)
        return;
    SetSelText(d->replaceText);
}

void LEditOCX::ReplaceAll()
{
    const TextSearch &search = d->search;
    std::vector<TextRange> matches;
    const QByteArrayView bytes = d->text.bytes(0, d->text.size());
    for (auto match = search.forward(bytes, 0); match; match = search.forward(bytes, match->end))
        matches.push_back(*match);
    if (matches.empty())
        return;
    const QByteArray replacement = d->replaceText.toUtf8();
    const Operation operation(*d);
    const EditStep step(d->view);
    const qsizetype size = d->text.size();
    for (const TextRange &match : matches) {
        const qsizetype moved = d->text.size() - size;
        d->text.replace({match.start + moved, match.end + moved}, replacement);
    }
}

} // namespace ardiphon
