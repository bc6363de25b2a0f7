#pragma once

#include <QTextEdit>

namespace ardiphon {

/// A few lines of text that show what a font looks like.
class FontSample : public QTextEdit
{
    Q_OBJECT

public:
    explicit FontSample(QWidget *parent);

    /// Shows the sample in \a fontName, plain and of size 10; when there is no font of that name,
    /// in the one that an editor uses instead.
    void showIn(const QString &fontName);
};

} // namespace ardiphon
