#include "app/ui/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

// The macro has to be outside every namespace.
static void initResources() { Q_INIT_RESOURCE(icons); }

namespace {

/// The colour that is used in the drawings for the desktop's text colour.
constexpr const char *DrawnColor = "#202020";

/// Draws a picture again at each size that is asked for.
class SvgIconEngine : public QIconEngine
{
public:
    SvgIconEngine(const QString &name, const QByteArray &picture) : m_name(name), m_picture(picture)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        QByteArray picture = m_picture;
        picture.replace(DrawnColor, textColor().toLatin1());
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.35);
        QSvgRenderer(picture).render(painter, rect);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        // Toolbars are painted whenever the pointer crosses them, and every window has the same.
        const QString key = QStringLiteral("icon %1 %2 %3x%4 %5")
                                .arg(m_name, textColor())
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode == QIcon::Disabled);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QIconEngine *clone() const override { return new SvgIconEngine(m_name, m_picture); }

private:
    static QString textColor()
    {
        return QGuiApplication::palette().color(QPalette::Active, QPalette::ButtonText).name();
    }

    QString m_name;
    QByteArray m_picture;
};

} // namespace

namespace ardiphon {

QIcon programIcon(const QString &name)
{
    initResources();
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? QIcon(new SvgIconEngine(name, file.readAll()))
                                          : QIcon();
}

} // namespace ardiphon
