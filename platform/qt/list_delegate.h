#pragma once

#include <QAbstractItemDelegate>

#include "platform/types.h"

namespace toolkit {

class ListPeer;

/// Paints one cell of a list: asks custom draw for its colours, then draws image and text.
class ListDelegate : public QAbstractItemDelegate {
public:
    explicit ListDelegate(ListPeer& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void PaintImage(QPainter& painter, const QRect& cell, int row) const;

    ListPeer& list_;
};

}  // namespace toolkit
