#include "platform/qt/list_model.h"

namespace toolkit {

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : toldRows_;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : toldColumns_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole) {
        return TextAt(index.row(), index.column());
    }
    // The row is what is chosen, so every cell reads as the whole row.
    if (role == Qt::AccessibleTextRole && HasRow(index.row()) &&
        !Row(index.row()).description.isEmpty()) {
        return Row(index.row()).description;
    }
    return {};
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto column = static_cast<std::size_t>(section);
    if (orientation != Qt::Horizontal || column >= columns.size()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    }
    return role == Qt::DisplayRole ? QVariant(columns[column].title) : QVariant();
}

QString ListModel::TextAt(int row, int column) const {
    if (!HasRow(row) || column < 0 || static_cast<std::size_t>(column) >= Row(row).texts.size()) {
        return {};
    }
    return Row(row).texts[static_cast<std::size_t>(column)];
}

void ListModel::Reset() {
    beginResetModel();
    toldRows_ = Count();
    toldColumns_ = static_cast<int>(columns.size());
    endResetModel();
}

}  // namespace toolkit
