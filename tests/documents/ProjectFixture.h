#pragma once

#include "documents/ProjectWindow.h"
#include "workbench/Document.h"

#include <QMouseEvent>

#include <memory>

using ardiphon::Untitled;
inline const QString ProjectChanged = QStringLiteral("Project has changed!");
inline const QString OrchestraChanged = QStringLiteral("File Orchestra has changed!");
inline const QString ScoreChanged = QStringLiteral("File Score has changed!");
inline const QString OpenProject = QStringLiteral("Open Project");

/// A project's window, for test classes to derive from.
class ProjectFixture
{
protected:
    void start() { m = std::make_unique<ProjectWindow>(); }

    /// "" where each dialog was asked as the test said; else what went wrong.
    [[nodiscard]] QString finish()
    {
        delete m->window; // before anything can fail: it must not outlive the configuration
        return std::exchange(m, nullptr)->dialogs.verify();
    }

    QRect place(const char *name) const { return m->control<QWidget>(name)->geometry(); }
    bool shown(const char *name) const { return m->control<QWidget>(name)->isVisible(); }

    static void press(ardiphon::LEditOCX *editor, Qt::Key key,
                      Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(editor->focusProxy(), key, with);
    }

    /// Presses the left button on \a grip and moves the mouse by that many pixels.
    static void drag(QWidget *grip, QPoint by)
    {
        const QPointF start = grip->mapToGlobal(QPointF(3, 3));
        const QPointF end = start + by;
        const auto send = [&](QEvent::Type type, QPointF at, Qt::MouseButton button,
                              Qt::MouseButtons held) {
            QMouseEvent event(type, grip->mapFromGlobal(at), at, button, held, Qt::NoModifier);
            QApplication::sendEvent(grip, &event);
        };
        send(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseMove, end, Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, end, Qt::LeftButton, Qt::NoButton);
    }

    std::unique_ptr<ProjectWindow> m;
};
