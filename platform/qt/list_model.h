#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <vector>

#include "platform/types.h"

namespace toolkit {

struct ListRow {
    int image = -1;
    UINT state = 0;  ///< LVIS_ bits.
    std::vector<QString> texts;
    QString description;
};

struct ListColumn {
    QString title;
    int width = 0;
};

/// The rows of a list as plain values. The view is told of changes as a whole, by Reset, when it
/// next needs them: refilling a list by single steps costs a view hundreds of times as much.
class ListModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // A flat table: the tree view asks this for every row.
    QModelIndex parent(const QModelIndex&) const override { return {}; }

    bool HasRow(int row) const { return row >= 0 && row < Count(); }
    int Count() const { return static_cast<int>(rows.size()); }
    ListRow& Row(int row) { return rows[static_cast<std::size_t>(row)]; }
    const ListRow& Row(int row) const { return rows[static_cast<std::size_t>(row)]; }
    /// Empty when there is no such cell.
    QString TextAt(int row, int column) const;

    /// Tells the view that everything may have changed.
    void Reset();

    std::vector<ListRow> rows;
    std::vector<ListColumn> columns;

private:
    // What the view has been told; it must not see a table change under it.
    int toldRows_ = 0;
    int toldColumns_ = 0;
};

}  // namespace toolkit
