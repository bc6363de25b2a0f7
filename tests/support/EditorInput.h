#pragma once

#include "language/editor/LEditOCX.h"

#include <QTest>

/// Keys and mouse for a control as its user has them.
namespace EditorInput {

inline void type(ardiphon::LEditOCX &editor, const QString &text)
{
    for (const QChar character : text) {
        if (character.unicode() < 128)
            QTest::keyClick(editor.focusProxy(), character.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, editor.focusProxy(), Qt::Key_unknown, character,
                                Qt::NoModifier);
    }
}

inline void press(ardiphon::LEditOCX &editor, Qt::Key key,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(editor.focusProxy(), key, modifiers);
}

/// Clicks on the left half of the character at a text position.
inline void click(ardiphon::LEditOCX &editor, int line, int column,
                  Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QPoint at = editor.PositionToPixels(line, column) + QPoint(1, editor.LineHeight() / 2);
    QWidget *viewport = editor.childAt(at);
    QTest::mouseClick(viewport, button, modifiers, viewport->mapFrom(&editor, at));
}

/// Puts the caret there.
inline void goTo(ardiphon::LEditOCX &editor, int line, int column)
{
    editor.SelStartLine = editor.SelEndLine = line;
    editor.SelStartColumn = editor.SelEndColumn = column;
    editor.SetSelection();
}

inline void select(ardiphon::LEditOCX &editor, int startLine, int startColumn, int endLine,
                   int endColumn)
{
    editor.SelStartLine = startLine;
    editor.SelStartColumn = startColumn;
    editor.SelEndLine = endLine;
    editor.SelEndColumn = endColumn;
    editor.SetSelection();
}

/// The selection as the control has it, "line:column-line:column".
inline QString selection(ardiphon::LEditOCX &editor)
{
    editor.GetSelection();
    return QStringLiteral("%1:%2-%3:%4")
        .arg(editor.SelStartLine)
        .arg(editor.SelStartColumn)
        .arg(editor.SelEndLine)
        .arg(editor.SelEndColumn);
}

} // namespace EditorInput
