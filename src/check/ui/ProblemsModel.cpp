#include "check/ui/ProblemsModel.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>

namespace ardiphon {

namespace {

enum Column { PlaceColumn, SentenceColumn, SourceColumn, ColumnCount };

QPixmap dot(const QColor &color)
{
    QPixmap pixmap(12, 12);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(2, 2, 8, 8));
    return pixmap;
}

QString placeText(const PiecePlace &place)
{
    const QString line = QStringLiteral("line %1").arg(place.line);
    switch (place.role) {
    case DocumentRole::Orchestra:
        return QStringLiteral("Orchestra, ") + line;
    case DocumentRole::Score:
        return QStringLiteral("Score, ") + line;
    case DocumentRole::Csd:
        break;
    }
    return QStringLiteral("Line %1").arg(place.line);
}

QString severityText(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return QStringLiteral("Error");
    case Severity::Warning:
        return QStringLiteral("Warning");
    case Severity::Hint:
        break;
    }
    return QStringLiteral("Hint");
}

} // namespace

QColor severityColor(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return {208, 0, 0};
    case Severity::Warning:
        return {220, 140, 0};
    case Severity::Hint:
        break;
    }
    return {130, 130, 130};
}

void ProblemsModel::setProblems(const QList<Problem> &problems)
{
    if (m_problems == problems)
        return;
    beginResetModel();
    m_problems = problems;
    endResetModel();
}

const Problem *ProblemsModel::problem(const QModelIndex &index) const
{
    return index.row() >= 0 && index.row() < m_problems.size() ? &m_problems[index.row()] : nullptr;
}

int ProblemsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_problems.size());
}

int ProblemsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ProblemsModel::data(const QModelIndex &index, int role) const
{
    const Problem *const found = problem(index);
    if (!found)
        return {};
    if (role == Qt::DecorationRole && index.column() == PlaceColumn)
        return dot(severityColor(found->severity));
    if (role == Qt::ToolTipRole)
        return severityText(found->severity) + QStringLiteral(": ") + found->sentence;
    if (role == Qt::AccessibleTextRole && index.column() == PlaceColumn)
        return severityText(found->severity) + u' ' + placeText(found->place);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case PlaceColumn:
        return placeText(found->place);
    case SentenceColumn:
        return found->sentence;
    default:
        return found->source;
    }
}

QVariant ProblemsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString titles[] = {QStringLiteral("Place"), QStringLiteral("Problem"),
                                     QStringLiteral("Source")};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount)
        return {};
    return titles[section];
}

} // namespace ardiphon
