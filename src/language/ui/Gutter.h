#pragma once

#include "language/ui/FoldMarks.h"

#include <QColor>
#include <QString>
#include <QWidget>

#include <vector>

namespace ardiphon {

class LEditOCX;
struct ConfigurationBlock;

/// The line numbers beside an editor, with marks of the blocks that can be folded and of those that
/// are. A press on a mark folds or unfolds; anywhere else it selects the line.
class Gutter : public QWidget
{
    Q_OBJECT

public:
    /// It shows numbers while \a config has them visible.
    Gutter(LEditOCX &editor, const ConfigurationBlock &config, QWidget *parent);

    /// Takes the name and size of the editor's font.
    void takeFont();
    /// The width of the text "000000" in the gutter's font, in pixels; from a million lines on, of
    /// as many zeros as a number has digits.
    int textWidth() const;

    /// What can be folded in the editor, for the marks; without it only what is folded is marked.
    void setFoldEnd(FoldEnd foldEnd);
    /// What is drawn at the left edge beside a line, for example for a problem in it: the colour
    /// that \a lineMark gives for it; nothing for an invalid one. Asked for the lines in view.
    void setLineMark(std::function<QColor(int line)> lineMark);
    /// To be called when one of these may answer otherwise for the same text; a change of what is
    /// visible needs no call. Draws only when a mark that is visible is another.
    void refreshMarks();

signals:
    /// The number of digits has changed, and with it textWidth().
    void textWidthChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    struct RowMark
    {
        int line = 0;
        FoldMark fold = FoldMark::None;
        QColor edge; ///< invalid for none

        bool operator==(const RowMark &) const = default;
    };
    /// The marks beside the lines in view, as far as there may be any.
    using Marks = std::vector<RowMark>;

    void followView();
    Marks marksInView() const;
    QColor edgeOf(int line) const;
    void setNear(bool isNear);
    QRect markPlace(int line, const QRect &row) const;
    bool isFull(int line) const;
    void drawMark(QPainter &painter, int line, const QRect &row) const;
    void selectLine(int line);

    LEditOCX &m_editor;
    const ConfigurationBlock &m_config;
    FoldMarks m_foldMarks;
    std::function<QColor(int line)> m_lineMark;
    // As they were when the view last changed.
    QString m_fontName;
    double m_fontSize = 0;
    int m_topLine = 1;
    int m_lineHeight = 0;
    int m_digits = 0;
    Marks m_marks;
    bool m_isNear = false; ///< the pointer is in the gutter
};

} // namespace ardiphon
