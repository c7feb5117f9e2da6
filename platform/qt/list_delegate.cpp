#include "platform/qt/list_delegate.h"

#include <QPainter>

#include "platform/qt/list_peer.h"

namespace toolkit {

namespace {

constexpr int kRowHeight = 17;
constexpr int kTextMargin = 5;
constexpr int kImageMargin = 4;

}  // namespace

ListDelegate::ListDelegate(ListPeer& list) : QAbstractItemDelegate(&list), list_(list) {}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    const int grid = list_.HasGrid() ? 1 : 0;
    return {list_.columnWidth(index.column()), kRowHeight + grid};
}

void ListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    // A selection looks the same whether the list has the focus or not.
    const QPalette& palette = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    CellColours colours{palette.color(QPalette::Active, QPalette::Text),
                        palette.color(QPalette::Active, QPalette::Base)};
    list_.AskCellColours(index.row(), index.column(), colours);
    if (selected) {
        colours = {palette.color(QPalette::Active, QPalette::HighlightedText),
                   palette.color(QPalette::Active, QPalette::Highlight)};
    } else if (!option.state.testFlag(QStyle::State_Enabled)) {
        colours.text = palette.color(QPalette::Disabled, QPalette::Text);
    }
    painter->fillRect(option.rect, colours.background);
    if (index.column() == 0) {
        PaintImage(*painter, option.rect, index.row());
    }
    if (list_.HasGrid()) {
        painter->setPen(palette.color(QPalette::Active, QPalette::Midlight));
        painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }
    const QRect place = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    painter->setPen(colours.text);
    painter->drawText(
        place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(list_.Model().TextAt(index.row(), index.column()),
                                      Qt::ElideRight, place.width()));
}

void ListDelegate::PaintImage(QPainter& painter, const QRect& cell, int row) const {
    const QIcon* icon = list_.IconOfRow(row);
    if (icon != nullptr) {
        QRect place(QPoint(cell.left() + kImageMargin, cell.top()), list_.ImageSize());
        place.moveTop(cell.top() + (cell.height() - place.height()) / 2);
        icon->paint(&painter, place);
    }
}

}  // namespace toolkit
