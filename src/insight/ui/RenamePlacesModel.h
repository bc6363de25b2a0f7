#pragma once

#include "piece/PieceRename.h"

#include <QAbstractTableModel>

#include <functional>

namespace ardiphon {

/// The places of a rename as rows: the document, the line, and the line's text, which is read from
/// the piece when a row comes into view.
class RenamePlacesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { DocumentColumn, LineColumn, TextColumn, ColumnCount };
    /// Roles of the text: the first character of the name in it, and how many there are.
    enum Role { NameStart = Qt::UserRole, NameLength };

    /// Returns the name of the document of a role, as it is shown.
    using DocumentName = std::function<QString(DocumentRole role)>;

    RenamePlacesModel(DocumentName documentName, QObject *parent);

    /// Shows the places of \a rename, in the texts of \a piece; nothing for null. Both are as they
    /// are now until the next call.
    void setPlaces(const Piece *piece, const PieceRename *rename);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant textData(const PiecePlace &place, int role) const;

    const DocumentName m_documentName;
    const Piece *m_piece = nullptr;
    const PieceRename *m_rename = nullptr;
};

} // namespace ardiphon
