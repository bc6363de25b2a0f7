#pragma once

#include "language/TokenColors.h"

class QLabel;
class QString;
class QToolBar;
class QTreeWidget;
class QWidget;

namespace ardiphon {

class LEditOCX;
struct ConfigurationBlock;

// The controls that the areas of both editor windows are built of. Each stands on \a area and bears
// \a name.

/// An editor with the settings of \a config, coloured by the rule of \a language.
LEditOCX *newEditor(const QString &name, DocumentRole role, ConfigurationBlock &config,
                    QWidget *area);
/// On a light ground, as its nodes are blue.
QTreeWidget *newTree(const QString &name, QWidget *area);
/// Shows \a caption as it is; a file name may look like markup.
QLabel *newLabel(const QString &name, const QString &caption, QWidget *area);
/// \a iconSize: in logical pixels.
QToolBar *newToolbar(const QString &name, int iconSize, QWidget *area);

} // namespace ardiphon
