#pragma once

#include "insight/ui/RenamePlacesModel.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace ardiphon {

/// What "Rename" asks its window.
struct RenameContext
{
    /// The piece; it may still be read, by somebody else.
    const Piece &piece;
    /// Returns the meaning of the word at the caret as the piece is now.
    std::function<std::optional<PieceSymbol>()> symbol;
    RenamePlacesModel::DocumentName documentName;
};

/// "Rename": the new name, and every place that will change, before anything does. It changes no
/// text itself.
class FormRename : public QDialog
{
    Q_OBJECT

public:
    FormRename(RenameContext context, QWidget *owner);
    ~FormRename() override;

    /// The text has changed: the places are found anew.
    void restart();
    /// What is to be changed, after the dialog was accepted.
    QList<RenameEdit> edits() const;

private:
    void layOut();
    void readSlice();
    void showProgress();
    void showPlaces();
    void judge();
    void accept() override;
    QPushButton *newButton(const char *name, const char *caption);
    QLabel *newLabel(const char *name, const QString &text = {}, QWidget *buddy = nullptr);

    const RenameContext m_context;
    std::unique_ptr<PieceRename> m_rename; ///< null until the piece is read, and with an obstacle
    QString m_obstacle;
    bool m_isReady = false; ///< all places are found, or there is an obstacle
    bool m_hasName = false; ///< the field was filled
    QTimer m_slices;
    RenamePlacesModel *m_places;

    QLabel *LabelRenameName;
    QLineEdit *LineRenameName;
    QLabel *LabelRenameReason;
    QLabel *LabelRenamePlaces;
    QTreeView *TreeRenamePlaces;
    QPushButton *buttonRename;
    QPushButton *buttonRenameCancel;
};

} // namespace ardiphon
