#pragma once

#include <QDialog>

class QLineEdit;

namespace ardiphon {

class FontList;
class FontSample;
struct ConfigurationBlock;

/// Chooses `DefaultFontName`, which windows opened later begin with. The choice counts at once;
/// "&Cancel" alone takes it back.
class FormDefaultFont : public QDialog
{
    Q_OBJECT

public:
    FormDefaultFont(ConfigurationBlock &config, QWidget *owner);

protected:
    /// Esc means nothing to this window.
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
