#include "documents/ui/EditorControls.h"

#include "language/editor/LEditOCX.h"
#include "language/ui/EditorSettings.h"

#include <QLabel>
#include <QToolBar>
#include <QTreeWidget>

namespace ardiphon {

LEditOCX *newEditor(const QString &name, DocumentRole role, ConfigurationBlock &config,
                    QWidget *area)
{
    auto *editor = new LEditOCX(area);
    editor->setObjectName(name);
    editor->ClearState(TextState);
    applySettings(*editor, config);
    editor->SetGetTokenColors([&config, role](TokenKind kind, const QString &text) {
        return GetTokenColors(config, role, kind, text);
    });
    return editor;
}

QTreeWidget *newTree(const QString &name, QWidget *area)
{
    auto *tree = new QTreeWidget(area);
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);
    tree->setTextElideMode(Qt::ElideMiddle);
    QPalette palette = tree->palette();
    palette.setColor(QPalette::Base, Qt::white);
    tree->setPalette(palette);
    return tree;
}

QLabel *newLabel(const QString &name, const QString &caption, QWidget *area)
{
    auto *label = new QLabel(caption, area);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QToolBar *newToolbar(const QString &name, int iconSize, QWidget *area)
{
    auto *toolbar = new QToolBar(area);
    toolbar->setMovable(false);
    toolbar->setObjectName(name);
    toolbar->setIconSize({iconSize, iconSize});
    return toolbar;
}

} // namespace ardiphon
