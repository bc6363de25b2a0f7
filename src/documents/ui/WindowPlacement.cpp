#include "documents/ui/WindowPlacement.h"

#include "app/ConfigurationBlock.h"
#include "documents/ScreenHalves.h"
#include "platform/Twips.h"

#include <QScreen>
#include <QWidget>

namespace ardiphon {

void TrovaPosForm(const QWidget &window, ConfigurationBlock &config)
{
    config.WindowMaximized = window.isMaximized();
    if (config.WindowMaximized)
        return;
    config.WindowLeft = toTwips(window.x());
    config.WindowTop = toTwips(window.y());
    config.WindowWidth = toTwips(window.width());
    config.WindowHeight = toTwips(window.height());
}

void takePlacement(QWidget &window, const ConfigurationBlock &config)
{
    if (config.WindowMaximized) {
        // The size for when it is not maximised any more.
        window.resize(normalSize(window.screen()->availableGeometry().size()));
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
        return;
    }
    window.move(toPixels(int(config.WindowLeft)), toPixels(int(config.WindowTop)));
    window.resize(toPixels(int(config.WindowWidth)), toPixels(int(config.WindowHeight)));
}

} // namespace ardiphon
