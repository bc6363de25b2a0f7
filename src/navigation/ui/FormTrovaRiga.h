#pragma once

#include "navigation/ui/SearchWindow.h"

namespace ardiphon {

/// The window that selects a whole line, given its number.
class FormTrovaRiga : public SearchWindow
{
    Q_OBJECT

public:
    explicit FormTrovaRiga(SearchContext context);

private:
    void layOut();
    void goToLine();

    QLineEdit *Text1;
    QLabel *Label1;
    QPushButton *buttonTrova;
    QPushButton *buttonEsci;
};

} // namespace ardiphon
