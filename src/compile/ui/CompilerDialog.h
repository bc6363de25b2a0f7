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

/// The texts and settings in which the compile dialogs differ.
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
/// where the compiler is, and a row of buttons, "E&xit" the last. A compiler that is chosen here is
/// used until the dialog closes. Esc closes it; Enter presses the button that has the focus.
class CompilerDialog : public QDialog
{
    Q_OBJECT

protected:
    CompilerDialog(const CompilerDialogKind &kind, const CompileContext &context);

    ConfigurationBlock &config() const { return m_config; }
    Dialogs &dialogs() const { return m_dialogs; }
    /// The compiler's path now.
    const QString &compilerPath() const { return m_config.*m_kind.path; }

    // Building.
    /// Adds a field for a path in the next row of the form, with \a beside at its right.
    QLineEdit *addField(const char *name, const QString &label, const QString &text,
                        QWidget *beside = nullptr);
    void addFlags(const FlagList &flags);
    /// Adds \a part between the fields and the row of buttons.
    void addPart(QWidget *part);
    QPushButton *newButton(const char *name, const QString &caption);
    /// Sets the size of a complete dialog: a fixed height, and \a firstWidth, which can be made
    /// wider.
    void takeSize(int firstWidth);
    /// The widget that holds all this, the first of the dialog's pages.
    QWidget *form() const { return m_form; }
    QStackedLayout &pages() const { return *m_pages; }

    /// What `Compila` does.
    virtual void compile() = 0;
    /// Sets the compiler back to the one that was set when the dialog opened.
    void restoreCompiler() { m_config.*m_kind.path = SavedCompilerPath; }

    void keyPressEvent(QKeyEvent *event) override;
    /// Enter of either part of the keyboard.
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
