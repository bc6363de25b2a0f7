#pragma once

#include <QDialog>

class QLineEdit;

namespace ardiphon {

class FontList;
class FontSample;
struct ConfigurationBlock;

/// Chooses `DefaultFontName`, with which windows opened later begin. The choice has effect at once;
/// only "&Cancel" reverts it.
class FormDefaultFont : public QDialog
{
    Q_OBJECT

public:
    FormDefaultFont(ConfigurationBlock &config, QWidget *owner);

protected:
    /// Esc does nothing in this window.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    void choose(const QString &name);
    void restoreDefault();
    void accept() override;
    void cancel();

    ConfigurationBlock &m_config;
    const QString m_before;
    FontList *const List1;
    QLineEdit *const TextFont;
    FontSample *const Text1;
};

} // namespace ardiphon
