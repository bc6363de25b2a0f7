#pragma once

#include "piece/PieceOutline.h"
#include "workbench/ui/WindowFeature.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QAction;
class QDockWidget;
class QLineEdit;
class QTimer;
class QTreeView;

namespace ardiphon {

class IncludeFollower;
class OutlineModel;

/// `DockOutline`: what the piece is made of, beside the text. It follows the text, and marks where
/// the caret is.
class OutlineFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    void followText();
    void readAgain();
    void showRows();
    void expandRows();
    void markCaret();
    void filter(const QString &typed);
    void goToRow(const QModelIndex &index);

    FeatureHost *m_host = nullptr;
    QPointer<QDockWidget> m_dock;
    QLineEdit *LineOutlineFilter = nullptr;
    QTreeView *TreeOutline = nullptr;
    OutlineModel *m_model = nullptr;
    IncludeFollower *m_includes = nullptr;
    Outline m_own;               ///< without what is included
    QHash<QString, bool> m_open; ///< the included files that the user has opened or closed here
    QTimer *m_rows = nullptr;    ///< reads the rows again a little after the last change
    QTimer *m_caret = nullptr;   ///< looks for the caret's row a little after it has moved
    bool m_isStale = true;       ///< the piece has changed since the rows were read
};

} // namespace ardiphon
