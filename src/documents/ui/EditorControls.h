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

// The controls of the areas of both editor windows. Each is a child of \a area with that \a name.

/// An editor with the settings of \a config, coloured by the rules for \a role.
LEditOCX *newEditor(const QString &name, DocumentRole role, ConfigurationBlock &config,
                    QWidget *area);
/// A tree on a light background, as its nodes are blue.
QTreeWidget *newTree(const QString &name, QWidget *area);
/// A label that shows \a caption as it is; a file name may look like markup.
QLabel *newLabel(const QString &name, const QString &caption, QWidget *area);
/// \a iconSize: in logical pixels.
QToolBar *newToolbar(const QString &name, int iconSize, QWidget *area);

} // namespace ardiphon
