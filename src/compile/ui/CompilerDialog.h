#pragma once

#include "compile/ui/CompileContext.h"

#include <QDialog>

class QGridLayout;
class QLineEdit;
class QPushButton;
class QStackedLayout;
class QVBoxLayout;

namespace ardiphon {

class FlagList;

/// In what the compile dialogs differ, before what each does with its compiler.
struct CompilerDialogKind
{
    QString name;
    QString title;
    QString ConfigurationBlock::*path; ///< the setting that names the compiler
    QString pathLabel;
    QString browseTitle;
    QString browseFilter;
    QString compileCaption;
};

/// A dialog that hands documents to a compiler: a form of labelled fields, the first of which shows
/// where the compiler is, and a row of buttons, "E&xit" the last. A compiler that is chosen here
/// counts until the dialog closes. Esc leaves; Enter presses the button that has the focus.
class CompilerDialog : public QDialog
{
    Q_OBJECT

protected:
    CompilerDialog(const CompilerDialogKind &kind, const CompileContext &context);

    ConfigurationBlock &config() const { return m_config; }
    Dialogs &dialogs() const { return m_dialogs; }
    /// Where the compiler is now.
    const QString &compilerPath() const { return m_config.*m_kind.path; }

    // Building.
    /// A field for a path in the next row of the form, with room for \a beside it at its right.
    QLineEdit *addField(const char *name, const QString &label, const QString &text,
                        QWidget *beside = nullptr);
    void addFlags(const FlagList &flags);
    /// Takes the place between the fields and the row of buttons.
    void addPart(QWidget *part);
    QPushButton *newButton(const char *name, const QString &caption);
    /// For a dialog that is complete and of one height: it opens that wide, and can be made wider.
    void takeSize(int firstWidth);
    /// The widget on which all this stands, the first of the dialog's pages.
    QWidget *form() const { return m_form; }
    QStackedLayout &pages() const { return *m_pages; }

    /// What `Compila` does.
    virtual void compile() = 0;
    /// Sets the compiler back to the one that was there when the dialog opened.
    void restoreCompiler() { m_config.*m_kind.path = SavedCompilerPath; }

    void keyPressEvent(QKeyEvent *event) override;
    /// Of either block of the keyboard.
    static bool isEnter(const QKeyEvent &event);

    QLineEdit *dir_Csound;
    QPushButton *CercaCsound;
    QPushButton *Compila = nullptr;
    QPushButton *Command1 = nullptr;

private:
    void layOut();
    void addRow(const QString &label, QWidget *control, QWidget *beside);
    void browse();

    const CompilerDialogKind &m_kind;
    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    const QString SavedCompilerPath;
    QStackedLayout *m_pages;
    QWidget *m_form;
    QGridLayout *m_fields = nullptr;
    QVBoxLayout *m_parts = nullptr;
};

} // namespace ardiphon
