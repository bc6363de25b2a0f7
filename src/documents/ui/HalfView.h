#pragma once

#include "documents/ProjectLayout.h"

#include <QObject>

class QLabel;
class QToolBar;

namespace ardiphon {

class Gutter;
class HalfDocument;
class LEditOCX;

/// What the project's window shows of one of its two documents: the editor with its gutter, its
/// toolbar, and the label that names the file.
class HalfView : public QObject
{
    Q_OBJECT

public:
    HalfView(HalfDocument &document, Gutter &gutter, QLabel &label, QToolBar &toolbar,
             QObject *parent);

    HalfDocument &document() const { return m_document; }
    LEditOCX &editor() const;
    Gutter &gutter() const { return m_gutter; }
    QToolBar &toolbar() const { return m_toolbar; }

    bool isShown() const;
    /// \a lineNumbers: whether the gutter is shown with its editor.
    void setShown(bool shown, bool lineNumbers);
    void place(const HalfLayout &places);
    /// Shows the toolbar as a narrow column, or as a row.
    void setColumn(bool column);

    /// Makes the label narrow, or wide again. A document without a file keeps its label when it
    /// becomes narrow.
    void setNarrowLabel(bool narrow);
    /// Adds the mark of a modified text to the label. The next save or load removes it.
    void refresh();

signals:
    /// The label or the modified state of the text has changed.
    void refreshRequested();

private:
    void writeLabel();

    HalfDocument &m_document;
    Gutter &m_gutter;
    QLabel &m_label;
    QToolBar &m_toolbar;
    bool m_narrow = false;
};

} // namespace ardiphon
