#include "platform/ui/FileProperties.h"

#include "platform/ui/FileManager.h"
#include "platform/ui/TitleText.h"

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>

namespace ardiphon {

namespace {

QString permissionText(const QFileInfo &file)
{
    static constexpr std::pair<QFile::Permission, char> bits[] = {
        {QFile::ReadOwner, 'r'}, {QFile::WriteOwner, 'w'}, {QFile::ExeOwner, 'x'},
        {QFile::ReadGroup, 'r'}, {QFile::WriteGroup, 'w'}, {QFile::ExeGroup, 'x'},
        {QFile::ReadOther, 'r'}, {QFile::WriteOther, 'w'}, {QFile::ExeOther, 'x'},
    };
    QString text;
    for (const auto &[permission, letter] : bits)
        text += QLatin1Char(file.permission(permission) ? letter : '-');
    return text;
}

QString timeText(const QDateTime &time) { return QLocale().toString(time, QLocale::ShortFormat); }

void addRow(QFormLayout &form, const QString &name, const QString &value)
{
    auto *label = new QLabel(value);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    form.addRow(name, label);
}

void showDialog(QWidget *owner, const QFileInfo &file)
{
    auto *dialog = new QDialog(owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("FileProperties"));
    dialog->setWindowTitle(titleText(QObject::tr("Properties of %1").arg(file.fileName())));
    dialog->setMinimumWidth(380);
    auto *form = new QFormLayout(dialog);
    addRow(*form, QObject::tr("Name:"), file.fileName());
    addRow(*form, QObject::tr("Folder:"), file.absolutePath());
    addRow(*form, QObject::tr("Size:"), QObject::tr("%L1 bytes").arg(file.size()));
    addRow(*form, QObject::tr("Changed:"), timeText(file.lastModified()));
    addRow(*form, QObject::tr("Read:"), timeText(file.lastRead()));
    addRow(*form, QObject::tr("Owner:"), file.owner());
    addRow(*form, QObject::tr("Permissions:"), permissionText(file));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    form->addRow(buttons);
    dialog->open();
}

} // namespace

void ShowFileProperties(QWidget *owner, const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return;
    askForProperties(owner, file.absoluteFilePath(), [owner, file] { showDialog(owner, file); });
}

} // namespace ardiphon
