#include "insight/ui/GoFeature.h"

#include "insight/ui/FormGo.h"
#include "insight/ui/GoToPlace.h"
#include "insight/ui/IncludeFollower.h"
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
    QList<PieceName> names = namesOf(m_host->piece().readPiece(), MostNames);
    names += IncludeFollower::of(*m_host).refreshed().names(int(MostNames - names.size()));
    FormGo form(names, &m_host->owner());
    if (form.exec() == QDialog::Accepted)
        goToPlace(*m_host, form.chosen().place, form.chosen().file);
}

/// In the score to the instrument of the line at the caret, in an instrument to the next line that
/// plays it, behind the caret of the score; from a statement that includes a file to that.
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
    if (openInclude(text, line))
        return;
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
    if (const auto place = instrumentNamed(m_host->piece().piece(), name)) {
        goToPlace(*m_host, *place);
        return;
    }
    const auto included = IncludeFollower::of(*m_host).refreshed().instrumentNamed(name);
    if (included)
        goToPlace(*m_host, included->place, included->file);
    else
        tell(QStringLiteral("The orchestra has no instrument %1.").arg(QString::fromUtf8(name)));
}

/// Whether there is such a statement in that line.
bool GoFeature::openInclude(const PieceText &text, int line)
{
    QString name;
    text.visit(line, line, kindsOf(LandmarkKind::Include), [&](PlacedLandmark found) {
        name = m_host->piece().piece().nameText(*found.mark);
        return false;
    });
    if (name.isEmpty())
        return false;
    const QString file = IncludeFollower::of(*m_host).refreshed().fileOf(name);
    if (file.isEmpty())
        tell(QStringLiteral("The included file %1 was not found.").arg(name));
    else
        goToPlace(*m_host, PiecePlace(), file);
    return true;
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
