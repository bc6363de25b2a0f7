#pragma once

class QsciScintillaBase;

namespace ardiphon {

/// Carries out the commands of keys in the view, the library's and those that it does not have.
class ViewCommands
{
public:
    explicit ViewCommands(QsciScintillaBase &view) : m_view(view) {}

    /// \a command: what commandOfKey() gave. False for NoCommand.
    bool run(unsigned command);

private:
    void goToVisible(bool end, bool extend);
    void goToParagraphEnd(bool extend);
    bool isBlankLine(long line) const;
    void moveCaret(long caret, bool extend);

    QsciScintillaBase &m_view;
};

} // namespace ardiphon
