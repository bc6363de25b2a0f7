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

/// The settings. They reach the store through "&Save and Exit" alone; a path or a colour that was
/// chosen counts at once all the same, and closing the window does not take it back.
class FormImpostazioni : public QDialog
{
    Q_OBJECT

public:
    /// \a views: those of the open editor window. \a caller tells which it is; `SettingsCaller`
    /// mirrors that.
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
