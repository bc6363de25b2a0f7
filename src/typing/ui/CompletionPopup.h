#pragma once

#include "typing/CompletionList.h"

#include <QFrame>

#include <memory>

class QLabel;
class QListView;

namespace ardiphon {

class CompletionModel;
class CompletionRow;

/// The list of suggestions beside the text, with what is to be said of the selected one. It never
/// has the focus: the keys come from the view that it belongs to.
class CompletionPopup : public QFrame
{
    Q_OBJECT

public:
    static constexpr int MostRows = 10;

    /// \a opcodes outlives it.
    CompletionPopup(OpcodeSignatures &opcodes, QWidget *owner);

    /// Shows \a list, its first row selected, below \a word, which is the place of the typed word
    /// on the screen; above it where there is no room below.
    void open(std::unique_ptr<CompletionList> list, const QRect &word);
    /// Moves to where the word is now.
    void moveTo(const QRect &word);
    /// Goes on with the word as it is typed now. False where nothing is left of the list.
    bool narrow(const QString &typed);
    void close();

    bool isOpen() const { return isVisible(); }
    const CompletionList *list() const;
    /// The selected row; -1 while it is closed.
    int row() const;
    /// Selects the row that is so many below the selected one, at most the last, at least the
    /// first.
    void moveRow(int rows);
    /// How many rows are in view.
    int pageRows() const;

signals:
    /// A row was clicked.
    void clicked(int row);

private:
    void measureNames();
    void fit();
    QRect screenRoom() const;
    void selectRow(int row);
    void showText();

    OpcodeSignatures &m_opcodes;
    CompletionModel *m_model;
    CompletionRow *m_rows;
    QListView *ListCompletion;
    QLabel *LabelCompletion;
    QRect m_word;
    int m_rowHeight = 1;
    int m_kindWidth = 0;
    int m_listWidth = 0;
    int m_textWidth = 0;
};

} // namespace ardiphon
