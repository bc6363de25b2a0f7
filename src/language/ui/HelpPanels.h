#pragma once

#include <QObject>
#include <QPoint>

class QLineEdit;

namespace ardiphon {

class LEditOCX;
class WordTables;

/// The two read-only fields that explain the opcode that was clicked: its description and its
/// parameters. The window that owns the fields places and shows them.
class HelpPanels : public QObject
{
    Q_OBJECT

public:
    /// Makes the fields in \a parent, with their initial texts.
    HelpPanels(WordTables &words, QWidget *parent);

    /// Shows the initial texts again.
    void clear();

    /// From now on a click on the text of \a view updates the panels.
    void follow(LEditOCX *view);

    /// Shows the record of the word at the caret of \a view. The panels keep their text when there
    /// is no word, or none that is an opcode; a record that cannot be read leaves the previous one,
    /// under the new word.
    void UpdatePanelsForWord(LEditOCX &view);

    QLineEdit *const TextOpcode;
    QLineEdit *const TextParametri;

private:
    WordTables &m_words;
    QPoint m_pressed; ///< where the mouse was last pressed, in pixels from its view's corner
};

} // namespace ardiphon
