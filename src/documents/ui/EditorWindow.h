#pragma once

#include "documents/ScreenHalves.h"
#include "documents/ui/CommandSet.h"

#include <QMainWindow>

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class LEditOCX;

/// What both editor windows are: commands made from tables, a placement that goes from one window
/// to the next, the wheel, and drops of files. It knows neither of them.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

protected:
    explicit EditorWindow(ProgramContext &program);

    ProgramContext &program() const { return m_program; }
    ConfigurationBlock &config() const;
    CommandSet &commands() { return m_commands; }

    /// Keeps the placement for the editor window that is shown next.
    void TrovaPosForm();
    /// Maximises the window, or gives it the placement that was kept.
    void takePlacement();

    /// Moves the window to one half of the screen's work area, whatever its state.
    void moveToHalf(ScreenHalf half);

    /// Opens the first file of a drop, by its absolute path.
    virtual void openDroppedFile(const QString &path) = 0;

    /// The view that the wheel scrolls: the one that has the focus, or none.
    virtual LEditOCX *focusedEditor() const = 0;

    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    ProgramContext &m_program;
    CommandSet m_commands;
};

} // namespace ardiphon
