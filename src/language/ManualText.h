#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardiphon {

/// A link of a manual page.
struct ManualLink
{
    QString title;  ///< the text of the link, runs of white space made one blank
    QString target; ///< as it is written
};

/// Whether \a path names a page of HTML, by its extension.
bool isManualPage(const QString &path);

/// The bytes of a page: at most \a limit, none when it cannot be read.
QByteArray readManualPage(const QString &path, qint64 limit = qint64{8} * 1024 * 1024);

/// The text of a piece of HTML: no tags, entities as characters, white space made one blank.
QString plainManualText(const QByteArray &html);

/// The links of a page that lead somewhere, in their order.
QList<ManualLink> manualLinks(const QByteArray &page);

/// The names of the commands whose syntax the page shows, in their order.
QStringList manualSynopses(const QByteArray &page);

/// The anchor of the heading that contains "<tag>", or "".
QString manualTagAnchor(const QByteArray &page, const QString &tag);

} // namespace ardiphon
