#pragma once

#include <QHash>
#include <QList>
#include <QObject>

#include <functional>

class QMenu;
class QWidget;

namespace ardiphon {

class CommandSet;
struct ConfigurationBlock;
struct ProgramContext;

/// One optional tool of the editor windows.
struct Tool
{
    const char *command; ///< its entry in the menu Window
    const char *value;   ///< its name in the settings store
    bool ConfigurationBlock::*visible;
};

extern const Tool LineNumbersTool;
extern const Tool BookBarTool;
extern const Tool OnLineHelpTool;
extern const Tool ToolbarTool;

/// Shows and hides the tools of an editor window, and keeps their flags between runs.
class ToolToggles : public QObject
{
    Q_OBJECT

public:
    /// \a tools: those that the window has, in the order of its menu.
    ToolToggles(ProgramContext &program, QList<const Tool *> tools, QObject *parent);

    const QList<const Tool *> &tools() const { return m_tools; }

    /// Adds a control of \a tool. While \a available returns false it stays hidden.
    void add(
        const Tool &tool, QWidget *control, std::function<bool()> available = [] { return true; });

    /// Reads the flags from the store, where the user wants them kept; otherwise all are shown.
    void load();
    /// Writes the flags, where the user wants them kept.
    void save() const;

    /// Binds the commands of the tools; each entry in \a menu is checked while its tool is shown.
    void bindTo(CommandSet &commands, const QMenu &menu);

    void toggle(const Tool &tool);
    /// Hides every control, whatever its flag, or acts as Restore when no flag is set.
    void hideOrRestoreAll();
    /// Shows every control, whatever its flag.
    void restoreAll();

signals:
    void toolsChanged();

private:
    struct Control
    {
        QWidget *widget;
        std::function<bool()> available;
    };

    void show(const Tool &tool, bool visible);

    ProgramContext &m_program;
    const QList<const Tool *> m_tools;
    QHash<const Tool *, QList<Control>> m_controls;
};

} // namespace ardiphon
