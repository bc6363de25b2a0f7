#include "documents/ui/ToolToggles.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "workbench/ui/CommandSet.h"

#include <QMenu>
#include <QWidget>

#include <algorithm>

namespace ardiphon {

namespace {

const QString Hidden = QStringLiteral("HIDE");

bool keepsTools(const ConfigurationBlock &config)
{
    return config.SaveToolsPreferences == QLatin1String("YES");
}

} // namespace

const Tool LineNumbersTool{"menuWindowLineNumbers", "LineNumbers",
                           &ConfigurationBlock::LineNumbersVisible};
const Tool BookBarTool{"menuWindowBarraBook", "BookBar", &ConfigurationBlock::BookBarVisible};
const Tool OnLineHelpTool{"menuWindowHelp", "OnLineHelp", &ConfigurationBlock::OnLineHelpVisible};
const Tool ToolbarTool{"menuWindowToolbar", "Toolbar", &ConfigurationBlock::ToolbarVisible};

ToolToggles::ToolToggles(ProgramContext &program, QList<const Tool *> tools, QObject *parent)
    : QObject(parent), m_program(program), m_tools(std::move(tools))
{
}

void ToolToggles::add(const Tool &tool, QWidget *control, std::function<bool()> available)
{
    m_controls[&tool].append({control, std::move(available)});
}

void ToolToggles::load()
{
    ConfigurationBlock &config = m_program.config;
    for (const Tool *tool : m_tools) {
        const QString kept = keepsTools(config)
                                 ? ReadRegistryString(m_program.settings, registry::WindowKey,
                                                      QLatin1String(tool->value))
                                 : QString();
        // Set to the opposite, as the toggle that follows inverts it.
        config.*tool->visible = kept == Hidden;
        toggle(*tool);
    }
}

void ToolToggles::save() const
{
    const ConfigurationBlock &config = m_program.config;
    if (!keepsTools(config))
        return;
    for (const Tool *tool : m_tools)
        WriteRegistryString(m_program.settings, registry::WindowKey, QLatin1String(tool->value),
                            config.*tool->visible ? QString() : Hidden);
}

void ToolToggles::bindTo(CommandSet &commands, const QMenu &menu)
{
    for (const Tool *tool : m_tools)
        commands.bind(tool->command, this, [this, tool] { toggle(*tool); });
    connect(&menu, &QMenu::aboutToShow, this, [this, &commands] {
        for (const Tool *tool : m_tools)
            commands.action(tool->command)->setChecked(m_program.config.*tool->visible);
    });
    commands.bind("menuWindowAllTools", this, &ToolToggles::hideOrRestoreAll);
    commands.bind("menuWindowRestore", this, &ToolToggles::restoreAll);
}

void ToolToggles::toggle(const Tool &tool)
{
    bool &visible = m_program.config.*tool.visible;
    visible = !visible;
    show(tool, visible);
    emit toolsChanged();
}

void ToolToggles::show(const Tool &tool, bool visible)
{
    for (const Control &control : m_controls.value(&tool))
        control.widget->setVisible(visible && control.available());
}

void ToolToggles::hideOrRestoreAll()
{
    const bool noneShown = std::none_of(m_tools.begin(), m_tools.end(), [this](const Tool *tool) {
        return m_program.config.*tool->visible;
    });
    if (noneShown) {
        restoreAll();
        return;
    }
    for (const Tool *tool : m_tools)
        show(*tool, false);
    emit toolsChanged();
}

void ToolToggles::restoreAll()
{
    for (const Tool *tool : m_tools)
        show(*tool, true);
    emit toolsChanged();
}

} // namespace ardiphon
