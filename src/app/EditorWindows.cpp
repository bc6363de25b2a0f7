#include "app/EditorWindows.h"

namespace ardiphon {

void EditorWindows::show(StartWindow window) const
{
    if (window == StartWindow::FormCSD)
        showFormCSD();
    else if (window == StartWindow::FormORCSCO)
        showFormORCSCO();
}

} // namespace ardiphon
