#include "platform/ui/QtDialogs.h"

#include "platform/FileFilter.h"
#include "platform/FileName.h"
#include "platform/ui/ExecutableFiles.h"
#include "platform/ui/Printer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QChildEvent>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace ardiphon {

namespace {

const QString SaveAsCaption = QStringLiteral("Save &As ...");

QWidget *activeOwner()
{
    QWidget *const modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QMessageBox::Icon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::YesNo:
    case MessageButtons::YesNoSaveAs: // its third button is not a standard one
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// The button that counts as chosen when the box is closed without a choice.
QMessageBox::StandardButton escapeButtonOf(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::YesNo:
    case MessageButtons::YesNoSaveAs:
        return QMessageBox::No;
    case MessageButtons::YesNoCancel:
    case MessageButtons::OkCancel:
        return QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

/// Shows the texts in the message boxes of a dialog literally: a file name in them may look like
/// markup. A box is polished before it is first shown.
class PlainBoxes : public QObject
{
public:
    explicit PlainBoxes(QObject &dialog) { dialog.installEventFilter(this); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildPolished)
            if (auto *const box =
                    qobject_cast<QMessageBox *>(static_cast<QChildEvent *>(event)->child()))
                box->setTextFormat(Qt::PlainText);
        return false;
    }
};

std::optional<QString> askForFile(const FileQuestion &question, QFileDialog::AcceptMode acceptMode,
                                  QFileDialog::FileMode fileMode)
{
    QFileDialog dialog(activeOwner(), question.title);
    const PlainBoxes plainBoxes(dialog);
    // The descriptions show their patterns themselves.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(acceptMode);
    dialog.setFileMode(fileMode);
    if (const QStringList filters = nameFilters(question.filter); !filters.isEmpty())
        dialog.setNameFilters(filters);
    if (const QStringList programs = programFilters(question.filter); !programs.isEmpty()) {
        dialog.setOption(QFileDialog::DontUseNativeDialog); // the native one knows only names
        new ExecutableFiles(dialog, programs);
    }
    if (!question.directory.isEmpty())
        dialog.setDirectory(question.directory);
    if (!question.proposedName.isEmpty())
        dialog.selectFile(question.proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    QDir::setCurrent(QFileInfo(path).path());
    return path;
}

void explain(QMessageBox &box, const QString &explanation)
{
    box.setInformativeText(explanation);
    const QString name = QStringLiteral("qt_msgbox_informativelabel");
    if (auto *const label = box.findChild<QLabel *>(name))
        label->setTextFormat(Qt::PlainText);
}

/// The proposed file for printing a document of that \a name into a file.
QString proposedFile(const QString &name)
{
    return QDir::home().filePath(QFileInfo(name).completeBaseName() + QStringLiteral(".pdf"));
}

/// Shows the options that are hidden at first, the choice of the selection among them.
void unfoldOptions(const QPrintDialog &dialog)
{
    const auto *box = dialog.findChild<QDialogButtonBox *>();
    if (!box)
        return;
    for (QAbstractButton *button : box->buttons())
        if (box->buttonRole(button) == QDialogButtonBox::ResetRole)
            button->click();
}

/// Removes the choices of pages, which the toolkit leaves there though the option is off. It shows
/// them again from time to time, so they are moved into a hidden part of the dialog.
void hidePageRange(const QPrintDialog &dialog)
{
    auto *const ranges = dialog.findChild<QGroupBox *>(QStringLiteral("gbPrintRange"));
    if (!ranges)
        return;
    const QStringList kept{QStringLiteral("printAll"), QStringLiteral("printSelection")};
    const auto parts = ranges->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    auto *const hidden = new QWidget(ranges);
    hidden->hide();
    for (QWidget *part : parts)
        if (!kept.contains(part->objectName()))
            part->setParent(hidden);
}

} // namespace

Answer QtDialogs::message(const Message &message)
{
    QMessageBox box(activeOwner());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowTitle(message.title);
    box.setTextFormat(Qt::PlainText); // a file name may look like markup
    box.setText(QString(message.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    explain(box, message.explanation);
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setEscapeButton(escapeButtonOf(message.buttons));
    if (message.defaultsToNo)
        box.setDefaultButton(QMessageBox::No);
    const QAbstractButton *saveAs = message.buttons == MessageButtons::YesNoSaveAs
                                        ? box.addButton(SaveAsCaption, QMessageBox::ActionRole)
                                        : nullptr;
    const int button = box.exec();
    return saveAs && box.clickedButton() == saveAs ? Answer::SaveAs : answerOf(button);
}

std::optional<QString> QtDialogs::openFile(const FileQuestion &question)
{
    return namable(
        askForFile(question, QFileDialog::AcceptOpen,
                   question.mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile));
}

std::optional<QString> QtDialogs::saveFile(const FileQuestion &question)
{
    return namable(askForFile(question, QFileDialog::AcceptSave, QFileDialog::AnyFile));
}

std::optional<QString> QtDialogs::namable(std::optional<QString> path)
{
    if (!path || !isBrokenName(*path))
        return path;
    message({brokenNameText(*path)});
    return std::nullopt;
}

std::optional<Color> QtDialogs::color(Color first)
{
    QColorDialog dialog(QColor(first.red(), first.green(), first.blue()), activeOwner());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return Color::rgb(std::uint32_t(chosen.red()), std::uint32_t(chosen.green()),
                      std::uint32_t(chosen.blue()));
}

/// Every page is printed, so no range of pages is offered. Printing into a file is offered where
/// there is no printer at all, as the only way to print.
std::optional<PrintChoice> QtDialogs::choosePrinter(const PrintQuestion &question)
{
    const bool intoFile = QPrinterInfo::availablePrinterNames().isEmpty();
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (intoFile)
        printer->setOutputFileName(proposedFile(question.name));
    QPrintDialog dialog(printer.get(), activeOwner());
    const PlainBoxes plainBoxes(dialog);
    dialog.setObjectName(QStringLiteral("CommonDialog1"));
    dialog.setOption(QPrintDialog::PrintToFile, intoFile);
    dialog.setOption(QPrintDialog::PrintPageRange, false);
    dialog.setOption(QPrintDialog::PrintSelection, question.hasSelection);
    if (question.hasSelection) {
        dialog.setPrintRange(QPrintDialog::Selection);
        unfoldOptions(dialog);
    }
    hidePageRange(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const bool selectionOnly = printer->printRange() == QPrinter::Selection;
    return PrintChoice{std::make_shared<Printer>(std::move(printer)), selectionOnly};
}

} // namespace ardiphon
