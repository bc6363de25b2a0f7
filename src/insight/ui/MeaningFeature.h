#pragma once

#include "language/ColoredRange.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>

#include <array>
#include <memory>
#include <vector>

namespace ardiphon {

class MeaningReader;
struct MeaningWords;

/// Colours the views as the language reads the text, while the settings say so: each time from the
/// first line that is drawn downwards. When the piece has been read on, and lines in view would now
/// be drawn otherwise, their view is drawn once again.
class MeaningFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    struct DrawnLine
    {
        int line = 0;
        size_t look = 0;
    };
    /// A view, and how its lines were drawn last: each by its number, and as many as a screen has
    /// at most.
    struct DrawnView
    {
        EditorView view;
        std::array<DrawnLine, 512> lines;

        DrawnLine &at(int line) { return lines[size_t(line) % lines.size()]; }
    };

    bool isOn() const;
    std::shared_ptr<MeaningReader> newReader(const DrawnView &drawn) const;
    LineReader readerFor(DrawnView &drawn) const;
    void redrawWhatChanged();
    bool hasChanged(DrawnView &drawn) const;

    FeatureHost *m_host = nullptr;
    std::vector<std::unique_ptr<DrawnView>> m_views;
};

} // namespace ardiphon
