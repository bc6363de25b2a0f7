#include "language/ui/HelpPanels.h"

#include "app/ui/ToolTip.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "platform/Twips.h"

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
    field.setToolTip(plainToolTip(text.trimmed()));
}

/// Whether \a at, in pixels from the view's corner, lies neither beside nor below the text.
bool isOnText(const LEditOCX &view, QPoint at)
{
    const int line = view.LineAt(at.y());
    return line <= view.LineCount() &&
           at.x() < view.PositionToPixels(line, view.LineLength(line)).x();
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
    connect(view, &LEditOCX::MouseButton, this, [this](const EditorMouseButton &button) {
        m_pressed = {toPixels(button.X), toPixels(button.Y)};
    });
    connect(view, &LEditOCX::Click, this, [this, view] {
        // A click beside the text puts the caret behind a word that was not clicked.
        if (isOnText(*view, m_pressed))
            UpdatePanelsForWord(*view);
    });
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
    // When reading fails, the previous record stays and is shown.
    static_cast<void>(m_words.ReadOpcodeRecord(record));
    show(*TextOpcode, u'[' + word + QStringLiteral("] - ") + m_words.OpcodeRecord.Description);
    show(*TextParametri, m_words.OpcodeRecord.Parameters);
}

} // namespace ardiphon
