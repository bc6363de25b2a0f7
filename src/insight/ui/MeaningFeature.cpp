#include "insight/ui/MeaningFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/LineSource.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "piece/MeaningReader.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

namespace ardiphon {

namespace {

size_t lookOf(const MeaningRanges &ranges)
{
    size_t look = 0;
    for (const MeaningRange &range : ranges)
        look = qHashMulti(look, range.start, range.length, int(range.meaning));
    return look;
}

} // namespace

void MeaningFeature::install(FeatureHost &host)
{
    m_host = &host;
    for (const EditorView &view : host.views()) {
        DrawnView &drawn = *m_views.emplace_back(std::make_unique<DrawnView>());
        drawn.view = view;
        view.editor->SetLineColors(
            [this, &drawn](int) { return isOn() ? readerFor(drawn) : LineReader(); });
    }
    connect(&host.piece(), &PieceFollower::pieceRead, this, &MeaningFeature::redrawWhatChanged);
}

bool MeaningFeature::isOn() const { return m_host->config().ColoursByMeaning; }

std::shared_ptr<MeaningReader> MeaningFeature::newReader(const DrawnView &drawn) const
{
    const Piece &piece = m_host->piece().piece();
    const MeaningWords words{
        [&piece](QByteArrayView name) { return piece.isOpcode(name) || piece.definesOpcode(name); },
        [this](QByteArrayView word) {
            return m_host->config().Words->IsCsdWord(QString::fromUtf8(word));
        }};
    return std::make_shared<MeaningReader>(*piece.text(drawn.view.role), words);
}

/// Also notes what it has read, for hasChanged().
LineReader MeaningFeature::readerFor(DrawnView &drawn) const
{
    return [this, &drawn, reader = newReader(drawn)](int line, QByteArrayView text) {
        const MeaningRanges meanings = reader->read(line, text);
        drawn.at(line) = {line, lookOf(meanings)};
        ColoredRanges ranges;
        ranges.reserve(meanings.size());
        for (const MeaningRange &each : meanings)
            ranges.append({each.start, each.length,
                           colorsOf(m_host->config(), drawn.view.role, each.meaning)});
        return ranges;
    };
}

void MeaningFeature::redrawWhatChanged()
{
    if (!isOn())
        return;
    for (const auto &drawn : m_views) {
        if (!drawn->view.editor->isHidden() && hasChanged(*drawn))
            drawn->view.editor->Redraw();
    }
}

/// Whether a line in view was drawn otherwise than it is read now.
bool MeaningFeature::hasChanged(DrawnView &drawn) const
{
    const LEditOCX &editor = *drawn.view.editor;
    const auto reader = newReader(drawn);
    const int first = editor.TopLine();
    const int rows = editor.height() / std::max(1, editor.LineHeight()) + 1;
    const int last = std::min(editor.LineCount(), first + rows);
    for (int line = first; line <= last; ++line) {
        const QByteArray text = editor.Lines().line(line).toByteArray();
        const size_t look = lookOf(reader->read(line, text));
        if (drawn.at(line).line == line && drawn.at(line).look != look)
            return true;
    }
    return false;
}

} // namespace ardiphon
