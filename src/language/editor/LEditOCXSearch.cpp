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
    const auto found = findBehind(from.end);
    return found || findDirection == 1 ? found : findBehind(0);
}

// Asks for no more of the text than is searched: all of it would close the buffer's gap, and after
// each replacement that costs as much as the text is long.
std::optional<TextRange> LEditOCX::Private::findBehind(qsizetype from) const
{
    constexpr qsizetype longestCharacter = 4; // what stands before a match decides too
    const qsizetype start = std::max<qsizetype>(from - longestCharacter, 0);
    const auto found = search.forward(text.bytes(start, text.size()), from - start);
    return found ? std::optional(TextRange{start + found->start, start + found->end}) : found;
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
    const EditStep step(d->view);
    const qsizetype size = d->text.size();
    for (const TextRange &match : matches) {
        const qsizetype moved = d->text.size() - size;
        d->text.replace({match.start + moved, match.end + moved}, replacement);
    }
}

} // namespace ardiphon
