#pragma once

#include "platform/Color.h"

#include <QGroupBox>
#include <QList>

class QGridLayout;

namespace ardiphon {

class ColorPatch;
class Dialogs;
class LEditOCX;
struct ConfigurationBlock;

/// The settings' sheet of colours. A picked colour is used in the open editors at once, and until
/// the program ends, whether it is saved or not.
class ColorSheet : public QGroupBox
{
    Q_OBJECT

public:
    /// \a editors: the open editors.
    ColorSheet(ConfigurationBlock &config, Dialogs &dialogs, const QList<LEditOCX *> &editors,
               QWidget *parent);

private:
    struct Patch;
    static const Patch patches[];
    static const Patch &patchNamed(const char *name);

    void layOut();
    QGroupBox *newTextGroup();
    QGroupBox *newSyntaxGroup();
    QGroupBox *newGroup(const QString &name, const QString &title);
    void addPatch(QGridLayout &grid, int row, int column, const char *name,
                  const QString &description);
    ColorPatch *control(const Patch &patch) const;
    void showColors();

    void pick(const Patch &patch);
    /// Gives the groups of the highlight the back colour of the text.
    void levelBackColors();
    void restoreDefaults();
    void repaintEditors() const;

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    const QList<LEditOCX *> m_editors;
    Color m_lastPicked; ///< the first colour of the next colour dialog
};

} // namespace ardiphon
