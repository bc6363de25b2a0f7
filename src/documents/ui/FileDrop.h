#pragma once

#include <QObject>

class QWidget;

namespace ardiphon {

class Dialogs;

/// Makes a window accept files that are dropped on it, the first of each drop.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    FileDrop(QWidget &window, Dialogs &dialogs);

signals:
    /// A file was dropped. \a path is absolute; a name that is not a text is refused with a
    /// message.
    void dropped(const QString &path);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;

private:
    void take(const QByteArray &nativePath, const QString &path);

    Dialogs &m_dialogs;
};

} // namespace ardiphon
