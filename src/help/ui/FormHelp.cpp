#include "help/ui/FormHelp.h"

#include "app/ui/OkRow.h"
#include "help/KeySummary.h"

#include <QTextEdit>
#include <QVBoxLayout>

namespace ardiphon {

FormHelp::FormHelp(QWidget *owner) : QDialog(owner)
{
    setObjectName(QStringLiteral("FormHelp"));
    setWindowTitle(QStringLiteral("Ardiphon Help"));
    setModal(true);

    auto *const RichTextBox1 = new QTextEdit(this);
    RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    RichTextBox1->setReadOnly(true);
    RichTextBox1->setHtml(keySummary(palette().color(QPalette::AlternateBase).name()));
    RichTextBox1->document()->setDocumentMargin(12);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(RichTextBox1);
    layout->addLayout(newOkRow(*this));
    setFixedSize(700, 560);
}

} // namespace ardiphon
