#include "analysis/ui/FormPVLook.h"

#include "app/ConfigurationBlock.h"
#include "platform/DocumentFile.h"

#include <QBoxLayout>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>

namespace ardiphon {

FormPVLook::FormPVLook(const ToolContext &context, QWidget *owner)
    : ToolForm(PVLook, context, owner), RtfPVLook(new QPlainTextEdit(this))
{
    RtfPVLook->setObjectName(QStringLiteral("RtfPVLook"));
    RtfPVLook->setReadOnly(true);
    RtfPVLook->setTabChangesFocus(true);
    RtfPVLook->setMinimumHeight(10 * fontMetrics().lineSpacing());
    auto *const Command2 = newButton("Command2", "&Save Output as ...");
    connect(Command2, &QPushButton::clicked, this, &FormPVLook::saveListing);
    all().insertWidget(1, RtfPVLook, 1);
    all().insertWidget(2, Command2, 0, Qt::AlignRight);
    auto *const revertButton = findChild<QPushButton *>(QStringLiteral("CommandRevert"));
    setTabOrder(revertButton->previousInFocusChain(), RtfPVLook);
    setTabOrder(RtfPVLook, Command2);
}

void FormPVLook::takeInput(const QString &path)
{
    ToolForm::takeInput(path);
    RtfPVLook->clear();
}

void FormPVLook::run()
{
    const QString path = context().config.ProgramFolder + QStringLiteral("/pv_temp.txt");
    RtfPVLook->setPlainText(QStringLiteral("Reading Data:"));
    RtfPVLook->repaint();
    setCursor(Qt::WaitCursor);
    if (QFile::exists(path))
        showListing(path);
    else
        RtfPVLook->clear();
    unsetCursor();
}

void FormPVLook::showListing(const QString &path)
{
    if (const auto bytes = readDocumentFile(path)) {
        const DocumentText listing = decodeDocument(*bytes);
        m_form = listing.form;
        RtfPVLook->setPlainText(QString::fromUtf8(listing.utf8));
    }
    QFile::remove(path);
}

void FormPVLook::saveListing()
{
    // The view's plain text would have normal blanks instead of the non-breaking ones.
    const QString text =
        RtfPVLook->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
    if (text.isEmpty())
        return;
    const auto path = context().dialogs.saveFile(
        {QStringLiteral("Save File As ..."),
         QStringLiteral("Text files (*.txt)|*.txt|All Files (*.*)|*.*"), QString()});
    if (!path)
        return;
    DocumentForm form = m_form;
    const QByteArray bytes = encodeDocument(withLineEnds(text.toUtf8(), form.lineEnd), form);
    if (const auto written = writeDocumentFile(*path, bytes); !written)
        context().dialogs.message({notSavedText(*path, written.failure())});
}

} // namespace ardiphon
