#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// Files dragged from another program.
namespace FileDrop {

/// Drops the files at \a paths on the middle of \a control, as a file manager would: with their
/// names as a text as well.
inline void on(QWidget &control, const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    data.setText(paths.join(u'\n'));
    const QPoint at = control.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &drop);
}

/// Everything inside \a window that is seen.
inline QList<QWidget *> controlsOf(const QWidget &window)
{
    QList<QWidget *> shown;
    for (QWidget *control : window.findChildren<QWidget *>())
        if (control->isVisible() && control->window() == &window)
            shown.append(control);
    return shown;
}

} // namespace FileDrop
