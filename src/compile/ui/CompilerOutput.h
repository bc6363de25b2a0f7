#pragma once

#include <QPlainTextEdit>
#include <QTimer>

namespace ardiphon {

/// The text in which a compile window shows its progress and then the compiler's log. The user can
/// select and copy it but not change it. The beginning of a long log appears at once; the rest is
/// added in slices, between which the window handles events. The colours do not follow the
/// desktop's theme.
class CompilerOutput : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CompilerOutput(QWidget *parent = nullptr);

    /// The whole text, as it was given.
    const QString &text() const { return m_text; }
    /// Replaces the whole text by \a text, which has CR LF line ends and is shown in black; the
    /// caret goes to its start.
    void setText(const QString &text);

    /// Inserts the banner of a finished run, which took \a milliseconds, before the text.
    void insertBanner(qint64 milliseconds);

    /// Selects a part of the text, given by its place in text(), and brings it into view with some
    /// of the lines around it, as soon as that much of the text was added.
    void select(qsizetype start, qsizetype length);

private:
    QString nextSlice();
    void showNextSlice();
    void selectWhenShown();
    void showLinesAround();
    int documentPosition(qsizetype index) const;

    QString m_text;
    qsizetype m_shown = 0; ///< how many characters of it are in the document
    QTimer m_slices;
    qsizetype m_wantedStart = -1; ///< of the part to select, -1 when there is none
    qsizetype m_wantedEnd = -1;
};

} // namespace ardiphon
