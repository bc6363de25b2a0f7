#pragma once

#include "workbench/ui/EditorView.h"

#include <QList>
#include <QWidget>

namespace ardiphon {

class Gutter;
class LEditOCX;
struct ConfigurationBlock;

/// The centre of an editor window: the views with all that is around them. It places its controls
/// by its own size, so nothing outside has to know them.
class EditorArea : public QWidget
{
    Q_OBJECT

public:
    explicit EditorArea(ConfigurationBlock &config) : m_config(config) {}

    /// The views, the first one first.
    virtual QList<EditorView> views() const = 0;
    /// Places every control; to be called when something other than the size has changed.
    virtual void arrange() = 0;

protected:
    ConfigurationBlock &config() const { return m_config; }
    /// Makes line numbers for \a editor; the area is arranged again when their width changes.
    Gutter *newGutter(const QString &name, LEditOCX &editor);
    void resizeEvent(QResizeEvent *event) override;

private:
    ConfigurationBlock &m_config;
};

} // namespace ardiphon
