#include "language/ui/HelpPanels.h"

#include "app/WordTables.h"
#include "language/editor/LEditOCX.h"

#include <QLineEdit>

namespace ardiphon {

namespace {

const QString NoOpcode = QStringLiteral("(Opcode)");
const QString NoParameters = QStringLiteral("(Parameters)");

/// Shows \a text from its beginning; what the field cannot hold is read in the tool tip.
void show(QLineEdit &field, const QString &text)
{
    field.setText(text);
    field.setCursorPosition(0);
    field.setToolTip(text.trimmed().toHtmlEscaped());
}

QLineEdit *makeField(QWidget *parent, const QString &name, const QString &text)
{
    auto *const field = new QLineEdit(text, parent);
    field->setObjectName(name);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::ClickFocus); // Tab belongs to the editor
    return field;
}

} // namespace

HelpPanels::HelpPanels(WordTables &words, QWidget *parent)
    : QObject(parent),
      TextOpcode(makeField(parent, QStringLiteral("TextOpcode"), NoOpcode)),
      TextParametri(makeField(parent, QStringLiteral("TextParametri"), NoParameters)),
      m_words(words)
{
}

void HelpPanels::clear()
{
    show(*TextOpcode, NoOpcode);
    show(*TextParametri, NoParameters);
}

void HelpPanels::follow(LEditOCX *view)
{
    connect(view, &LEditOCX::Click, this, [this, view] { UpdatePanelsForWord(*view); });
}

void HelpPanels::UpdatePanelsForWord(LEditOCX &view)
{
    view.UpdateCurrentWord();
    const QString word = view.CurrentWord();
    if (word.isEmpty())
        return;
    m_words.FindOpcodeRange(word);
    const int record = m_words.FindInRange(word);
    if (record == 0)
        return;
    // A failing read leaves the record of the last one, which is shown then.
    static_cast<void>(m_words.ReadOpcodeRecord(record));
    show(*TextOpcode, u'[' + word + QStringLiteral("] - ") + m_words.OpcodeRecord.Description);
    show(*TextParametri, m_words.OpcodeRecord.Parameters);
}

} // namespace ardiphon
