#pragma once

#include <QApplication>
#include <QLabel>
#include <QTextDocument>

/// The tool tip on the screen, or null.
inline const QLabel *toolTipWindow()
{
    for (const QWidget *each : QApplication::topLevelWidgets())
        if (each->objectName() == QLatin1String("qtooltip_label") && each->isVisible())
            return qobject_cast<const QLabel *>(each);
    return nullptr;
}

/// What a user reads in the tool tip that the toolkit makes of \a tip.
inline QString readToolTip(const QString &tip)
{
    if (!Qt::mightBeRichText(tip))
        return tip;
    QTextDocument document;
    document.setHtml(tip);
    return document.toPlainText();
}
