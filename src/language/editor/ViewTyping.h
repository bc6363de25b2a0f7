#pragma once

#include <QString>

#include <functional>

class QsciScintillaBase;

namespace ardiphon {

class FurtherCarets;
class TextViewOwner;

/// Types characters into the view. Each is reported to the owner first, which may type another one
/// instead or none.
class ViewTyping
{
public:
    /// Puts a character, which is one QChar, into the view as the library does for its key: what
    /// is typed in a row becomes one step of history.
    using TypeKey = std::function<void(const QString &character)>;

    ViewTyping(QsciScintillaBase &view, TextViewOwner &owner, FurtherCarets &carets,
               TypeKey typeKey);

    /// Whether a new line begins with the blanks that the line before begins with.
    void setAutoIndent(bool on) { m_autoIndent = on; }

    /// Types 13 (Enter), 9 (Tab), 8 (Backspace) or 127 (Delete). \a back: a Tab that goes back.
    void typeControl(int character, bool back);
    /// Types the characters of \a text one by one: each is reported, then typed, before the next
    /// one is reported.
    void typeText(const QString &text);

private:
    void insertNewLine();
    QByteArray newLineFor(long start, long end) const;
    QByteArray blanksAbove(long start) const;
    QByteArray lineEndFor(long start, long end, bool blanksFollow) const;
    void setBlanks(long line, const QByteArray &blanks);
    void typeCharacter(char32_t code);
    bool typeWithBlanks(const QString &character);
    bool selectCharacterToOverwrite();

    QsciScintillaBase &m_view;
    TextViewOwner &m_owner;
    FurtherCarets &m_carets;
    TypeKey m_typeKey;
    bool m_autoIndent = false;
};

} // namespace ardiphon
