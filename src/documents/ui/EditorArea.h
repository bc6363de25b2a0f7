#pragma once

#include "workbench/ui/EditorView.h"

#include <QList>
#include <QWidget>

namespace ardiphon {

class Gutter;
class LEditOCX;
struct ConfigurationBlock;

/// The centre of an editor window: the views with all that stands around them. It gives its
/// controls their places by its own size, so nothing beside it has to know them.
class EditorArea : public QWidget
{
    Q_OBJECT

public:
    explicit EditorArea(ConfigurationBlock &config) : m_config(config) {}

    /// The first view first.
    virtual QList<EditorView> views() const = 0;
    /// Gives every control its place, after something other than the size has changed.
    virtual void arrange() = 0;

protected:
    ConfigurationBlock &config() const { return m_config; }
    /// Line numbers of \a editor that have the area arranged when they become wider.
    Gutter *newGutter(const QString &name, LEditOCX &editor);
    void resizeEvent(QResizeEvent *event) override;

private:
    ConfigurationBlock &m_config;
};

} // namespace ardiphon
