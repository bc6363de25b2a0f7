#include "insight/ui/GoFeature.h"

#include "insight/ui/FormGo.h"
#include "insight/ui/GoToPlace.h"
#include "language/editor/LEditOCX.h"
#include "piece/PieceBodies.h"
#include "piece/PieceNames.h"
#include "piece/PieceNotes.h"
#include "platform/Dialogs.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QMainWindow>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostNames = 20000;

} // namespace

void GoFeature::install(FeatureHost &host)
{
    m_host = &host;
    host.commands().bind("menuStudioGo", this, [this] { goToName(); });
    host.commands().bind("menuStudioInstrument", this, [this] { goToInstrumentOrNote(); });
}

void GoFeature::goToName()
{
    FormGo form(namesOf(m_host->piece().readPiece(), MostNames), &m_host->owner());
    if (form.exec() == QDialog::Accepted)
        goToPlace(*m_host, form.chosen());
}

/// In the score to the instrument of the line at the caret, in an instrument to the next line that
/// plays it, behind the caret of the score.
void GoFeature::goToInstrumentOrNote()
{
    const LEditOCX *const focused = m_host->focusedEditor();
    const QList<EditorView> views = m_host->views();
    const auto view = std::find_if(views.begin(), views.end(),
                                   [=](const EditorView &each) { return each.editor == focused; });
    if (view == views.end())
        return;
    const Piece &piece = m_host->piece().readPiece();
    const PieceText &text = *piece.text(view->role);
    const int line = focused->CaretLine();
    if (text.stateAt(line).section == PieceSection::Score)
        goToInstrument(instrumentPlayed(text, line), line);
    else if (const auto body = bodyAt(piece, text, line))
        goToNote(body->names);
}

void GoFeature::goToInstrument(const QByteArray &name, int noteLine)
{
    if (name.isEmpty())
        return;
    m_lastNote = noteLine;
    if (const auto place = instrumentNamed(m_host->piece().piece(), name))
        goToPlace(*m_host, *place);
    else
        tell(QStringLiteral("The orchestra has no instrument %1.").arg(QString::fromUtf8(name)));
}

void GoFeature::goToNote(const QStringList &instruments)
{
    if (const auto place = nextNote(m_host->piece().piece(), instruments, m_lastNote)) {
        m_lastNote = place->line;
        goToPlace(*m_host, *place);
    } else {
        tell(QStringLiteral("No line of the score plays this instrument."));
    }
}

void GoFeature::tell(const QString &text)
{
    m_host->dialogs().message({.text = text, .icon = MessageIcon::Information});
}

} // namespace ardiphon
