#pragma once

#include "navigation/ui/SearchWindow.h"

namespace ardiphon {

/// The window that finds and replaces in an editor. Its four buttons have four routines with little
/// in common; none of them counts replacements.
class FormSostituisci : public SearchWindow
{
    Q_OBJECT

public:
    /// \a beep: called at the end of "Replace from caret to end".
    FormSostituisci(SearchContext context, std::function<void()> beep);

signals:
    /// The text of that editor may have been changed.
    void replaced(ardiphon::LEditOCX *editor);

protected:
    /// This window does not give the focus to the editor.
    void leave() override {}

private:
    void layOut();
    bool findInWholeText(LEditOCX &served) const;
    void find();
    void replaceSelection();
    void replaceAll();
    void replaceFromCaret();

    const std::function<void()> m_beep;
    QLineEdit *Text1;
    QLineEdit *Text2;
    QLabel *labelTrova;
    QLabel *labelSostituisci;
    QCheckBox *Check1;
    QPushButton *Command5;
    QPushButton *Command2;
    QPushButton *Command3;
    QPushButton *Command1;
    QPushButton *Command4;
};

} // namespace ardiphon
