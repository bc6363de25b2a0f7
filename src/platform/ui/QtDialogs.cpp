#include "platform/ui/QtDialogs.h"

#include "platform/FileFilter.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace ardiphon {

namespace {

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

/// The button that stands for closing the box without a choice.
QMessageBox::StandardButton escapeButtonOf(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::YesNo:
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

std::optional<QString> askForFile(const FileQuestion &question, QFileDialog::AcceptMode acceptMode,
                                  QFileDialog::FileMode fileMode)
{
    QFileDialog dialog(activeOwner(), question.title);
    // The descriptions show their patterns themselves.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(acceptMode);
    dialog.setFileMode(fileMode);
    if (const QStringList filters = nameFilters(question.filter); !filters.isEmpty())
        dialog.setNameFilters(filters);
    if (!question.directory.isEmpty())
        dialog.setDirectory(question.directory);
    if (!question.proposedName.isEmpty())
        dialog.selectFile(question.proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace

Answer QtDialogs::message(const Message &message)
{
    QMessageBox box(activeOwner());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowTitle(message.title);
    box.setTextFormat(Qt::PlainText); // a file name may look like markup
    box.setText(QString(message.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setEscapeButton(escapeButtonOf(message.buttons));
    return answerOf(box.exec());
}

std::optional<QString> QtDialogs::openFile(const FileQuestion &question)
{
    return askForFile(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFile);
}

std::optional<QString> QtDialogs::saveFile(const FileQuestion &question)
{
    return askForFile(question, QFileDialog::AcceptSave, QFileDialog::AnyFile);
}

} // namespace ardiphon
