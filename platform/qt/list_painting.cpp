#include <QPainter>

#include "platform/native.h"
#include "platform/qt/list_peer.h"

// How the list looks: the toolkit's view, with the owner asked for colours by custom draw.

namespace toolkit {

void ListPeer::paintEvent(QPaintEvent* event) {
    if (rowsStale_ || statesStale_) {
        Flush();
    }
    asksRows_ = AskCustomDraw(CDDS_PREPAINT, -1, 0, nullptr) == CDRF_NOTIFYITEMDRAW;
    QTreeView::paintEvent(event);
}

void ListPeer::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    // Asking the owner is no change of the view, though the question takes the window's record.
    auto* self = const_cast<ListPeer*>(this);
    asksCells_ = asksRows_ && self->AskCustomDraw(CDDS_ITEMPREPAINT, index.row(), 0, nullptr) ==
                                  CDRF_NOTIFYSUBITEMDRAW;
    QTreeView::drawRow(painter, option, index);
    const bool selected = (model_.Row(index.row()).state & LVIS_SELECTED) != 0;
    if (hasFocus() && index.row() == currentIndex().row() && !selected) {
        painter->setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

void ListPeer::AskCellColours(int row, int column, CellColours& colours) {
    if (asksCells_) {
        AskCustomDraw(CDDS_ITEMPREPAINT | CDDS_SUBITEM, row, column, &colours);
    }
}

// A paint of the view's inner widget may come straight from the toolkit, with no message behind it.
LRESULT ListPeer::AskCustomDraw(DWORD stage, int row, int column, CellColours* colours) {
    if (Record() == nullptr) {
        return CDRF_DODEFAULT;
    }
    NMLVCUSTOMDRAW notice;
    notice.hdr.hwndFrom = Record();
    notice.hdr.code = NM_CUSTOMDRAW;
    notice.dwDrawStage = stage;
    notice.iItem = row;
    notice.iSubItem = column;
    if (colours != nullptr) {
        notice.clrText = FromColour(colours->text);
        notice.clrTextBk = FromColour(colours->background);
    }
    LRESULT answer = CDRF_DODEFAULT;
    CallOut([&] { answer = dispatch::Notify(notice.hdr); });
    if (colours != nullptr && answer == CDRF_NEWFONT) {
        *colours = {ToColour(notice.clrText), ToColour(notice.clrTextBk)};
    }
    return answer;
}

}  // namespace toolkit
