#pragma once

#include "compile/ui/CompilerOutput.h"

#include <functional>

namespace ardiphon {

/// A compiler's output of which some lines are links: they are underlined, and a double click
/// chooses one.
class LinkedOutput : public CompilerOutput
{
    Q_OBJECT

public:
    /// Returns whether line \a index of \a lines, some lines of the output, is a link.
    using LinkTest = std::function<bool(const QStringList &lines, qsizetype index)>;

    /// \a linesAround: how many lines on either side the test needs.
    LinkedOutput(LinkTest isLink, int linesAround, QWidget *parent);

signals:
    /// A link was double-clicked; the arguments are those for which the test was true.
    void linkChosen(const QStringList &lines, qsizetype index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    /// A line of the output and those around it.
    struct Line
    {
        QStringList lines;
        qsizetype index = 0;
    };
    Line around(const QTextBlock &block) const;
    /// The link at a point of the viewport.
    std::optional<Line> linkAt(QPoint point) const;
    QPointF originOf(const QTextBlock &block) const;

    const LinkTest m_isLink;
    const int m_linesAround;
};

} // namespace ardiphon
