#pragma once

#include "typing/CompletionList.h"

#include <QAbstractListModel>

#include <memory>

namespace ardiphon {

/// The rows of suggestions, for a view.
class CompletionModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Of more suggestions the first ones are shown; a further letter tells more than they do.
    static constexpr int MostRows = 300;

    enum Role { Kind = Qt::UserRole, Form, Letters };

    CompletionModel(OpcodeSignatures &opcodes, QObject *parent)
        : QAbstractListModel(parent), m_opcodes(opcodes)
    {
    }

    /// Null for no suggestions.
    void setList(std::unique_ptr<CompletionList> list);
    const CompletionList *list() const { return m_list.get(); }
    /// See CompletionList::narrow.
    void narrow(const QString &typed);

    int rowCount(const QModelIndex &parent = {}) const override;
    /// The name as DisplayRole, and for the roles above the kind's word, the signature in one line,
    /// and which letters of the name are typed, as a list of numbers.
    QVariant data(const QModelIndex &index, int role) const override;

private:
    OpcodeSignatures &m_opcodes;
    std::unique_ptr<CompletionList> m_list;
};

} // namespace ardiphon
