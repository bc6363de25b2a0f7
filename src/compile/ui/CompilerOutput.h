#pragma once

#include <QPlainTextEdit>

namespace ardiphon {

/// The text in which a compile window shows its progress and then the compiler's log. The user
/// reads, selects and copies in it. It lays out only what is in view, so a log of any number of
/// lines appears at once. Its colours are its own, whatever the desktop's theme.
class CompilerOutput : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CompilerOutput(QWidget *parent = nullptr);

    /// The whole text, with CR LF line ends.
    QString text() const;
    /// Replaces the whole text, with any line ends, by black text; the caret goes to its start.
    void setText(const QString &text);

    /// Puts the banner of a finished run, which took \a milliseconds, in front of the text.
    void insertBanner(qint64 milliseconds);
};

} // namespace ardiphon
