#pragma once

#include "preferences/ui/EditorViews.h"

#include <QDialog>
#include <QList>

class QPushButton;
class QStackedLayout;

namespace ardiphon {

class GeneralSheet;
class TextSheet;
struct ProgramContext;

/// The settings. Only "&Save and Exit" stores them; but a path or a colour that was chosen has
/// effect at once, and closing the window does not revert it.
class FormImpostazioni : public QDialog
{
    Q_OBJECT

public:
    /// \a views: those of the open editor window. \a caller is its name; `SettingsCaller` mirrors
    /// that.
    FormImpostazioni(ProgramContext &program, const EditorViews &views, const QString &caller,
                     QWidget *owner);

private:
    QList<QWidget *> makeSheets();
    void layOut(const QList<QWidget *> &sheets);
    void showSheet(int index);
    void save();

    ProgramContext &m_program;
    const EditorViews m_views;
    const QList<LEditOCX *> m_editors; ///< the open editors
    GeneralSheet *m_general = nullptr;
    TextSheet *m_text = nullptr;
    QList<QPushButton *> m_sheetButtons;
    QStackedLayout *m_sheets = nullptr;
};

} // namespace ardiphon
