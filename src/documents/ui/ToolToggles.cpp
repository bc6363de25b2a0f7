#include "documents/ui/ToolToggles.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"

#include <QWidget>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr Tool fourTools[] = {
    {"menuWindowLineNumbers", "LineNumbers", &ConfigurationBlock::LineNumbersVisible},
    {"menuWindowBarraBook", "BookBar", &ConfigurationBlock::BookBarVisible},
    {"menuWindowHelp", "OnLineHelp", &ConfigurationBlock::OnLineHelpVisible},
    {"menuWindowToolbar", "Toolbar", &ConfigurationBlock::ToolbarVisible},
};

const QString Hidden = QStringLiteral("HIDE");

bool keepsTools(const ConfigurationBlock &config)
{
    return config.SaveToolsPreferences == QLatin1String("YES");
}

} // namespace

std::span<const Tool> tools() { return fourTools; }

ToolToggles::ToolToggles(ProgramContext &program, QObject *parent)
    : QObject(parent), m_program(program)
{
}

void ToolToggles::add(const Tool &tool, QWidget *control, std::function<bool()> available)
{
    m_controls[&tool].append({control, std::move(available)});
}

void ToolToggles::load()
{
    ConfigurationBlock &config = m_program.config;
    for (const Tool &tool : tools()) {
        const QString kept = keepsTools(config)
                                 ? ReadRegistryString(m_program.settings, registry::WindowKey,
                                                      QLatin1String(tool.value))
                                 : QString();
        // Set the wrong way round, so that the toggle leaves it as it should be.
        config.*tool.visible = kept == Hidden;
        toggle(tool);
    }
}

void ToolToggles::save() const
{
    const ConfigurationBlock &config = m_program.config;
    if (!keepsTools(config))
        return;
    for (const Tool &tool : tools())
        WriteRegistryString(m_program.settings, registry::WindowKey, QLatin1String(tool.value),
                            config.*tool.visible ? QString() : Hidden);
}

void ToolToggles::toggle(const Tool &tool)
{
    bool &visible = m_program.config.*tool.visible;
    visible = !visible;
    show(tool, visible);
    emit arrangeDue();
}

void ToolToggles::show(const Tool &tool, bool visible)
{
    for (const Control &control : m_controls.value(&tool))
        control.widget->setVisible(visible && control.available());
}

void ToolToggles::hideOrRestoreAll()
{
    const bool noneShown =
        std::none_of(std::begin(fourTools), std::end(fourTools),
                     [this](const Tool &tool) { return m_program.config.*tool.visible; });
    if (noneShown) {
        restoreAll();
        return;
    }
    for (const Tool &tool : tools())
        show(tool, false);
    emit arrangeDue();
}

void ToolToggles::restoreAll()
{
    for (const Tool &tool : tools())
        show(tool, true);
    emit arrangeDue();
}

} // namespace ardiphon
