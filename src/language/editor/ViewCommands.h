#pragma once

class QsciScintillaBase;

namespace ardiphon {

class TextViewOwner;

/// Carries out the commands of keys in the view that the library does not have; its own go to the
/// owner.
class ViewCommands
{
public:
    ViewCommands(QsciScintillaBase &view, TextViewOwner &owner) : m_view(view), m_owner(owner) {}

    /// \a command: what commandOfKey() gave. False for NoCommand.
    bool run(unsigned command);

private:
    void goToVisible(bool end, bool extend);
    void goToParagraphEnd(bool extend);
    bool isBlankLine(long line) const;
    void moveCaret(long caret, bool extend);

    QsciScintillaBase &m_view;
    TextViewOwner &m_owner;
};

} // namespace ardiphon
