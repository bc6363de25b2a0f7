#pragma once

#include "navigation/ui/SearchWindow.h"

class QRadioButton;
class QVBoxLayout;

namespace ardiphon {

/// The window that searches an editor. Each opening starts with whole words in both directions.
class formTrova : public SearchWindow
{
    Q_OBJECT

public:
    explicit formTrova(SearchContext context);

private:
    void layOut();
    QRadioButton *newOption(const QString &name, const QString &caption);
    int direction() const;
    void find();

    QLineEdit *Text1;
    QLabel *labelTrova;
    QCheckBox *Check1;
    QRadioButton *Option1;
    QRadioButton *Option2;
    QRadioButton *Option3;
    QLabel *Label1;
    QPushButton *Command1;
    QPushButton *Command4;
};

} // namespace ardiphon
