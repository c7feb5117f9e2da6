#include "platform/qt/list_peer.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "platform/native.h"
#include "platform/qt/list_delegate.h"
#include "platform/qt/pictures.h"
#include "platform/qt/static_peers.h"

namespace toolkit {

ListPeer::ListPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent), viewport_(*this) {
    setModel(&model_);
    setItemDelegate(new ListDelegate(*this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFocusPolicy((record.flags & kTabStop) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(0);
    header()->setHighlightSections(false);
    const auto touched = [this] {
        if (flushing_) {
            return;
        }
        viewTouched_ = true;
        // Assistive programs select without an event.
        if (!inEvent_) {
            CallOut([this] { TakeStatesFromView(); });
        }
    };
    QObject::connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, touched);
    QObject::connect(selectionModel(), &QItemSelectionModel::currentChanged, this, touched);
}

void ListPeer::SetExtendedStyle(DWORD style) {
    style_ = style;
    header()->setSectionsMovable((style & LVS_EX_HEADERDRAGDROP) != 0);
    Schedule();
}

void ListPeer::SetImages(const CImageList* images) {
    images_ = images;
    icons_.clear();
    if (images != nullptr) {
        for (const UINT icon : images->Icons()) {
            icons_.push_back(MakeIcon(icon));
        }
    }
    Schedule();
}

QSize ListPeer::ImageSize() const {
    const SIZE size = images_ == nullptr ? SIZE() : images_->ImageSize();
    return {size.cx, size.cy};
}

const QIcon* ListPeer::IconOfRow(int row) const {
    const auto image =
        model_.HasRow(row) ? static_cast<std::size_t>(model_.Row(row).image) : icons_.size();
    return image < icons_.size() ? &icons_[image] : nullptr;
}

void ListPeer::InsertColumn(int column, const QString& title, int width) {
    const auto place =
        std::min(static_cast<std::size_t>(std::max(column, 0)), model_.columns.size());
    model_.columns.insert(model_.columns.begin() + static_cast<std::ptrdiff_t>(place),
                          {title, width});
    model_.Reset();
    for (std::size_t index = 0; index < model_.columns.size(); ++index) {
        setColumnWidth(static_cast<int>(index), model_.columns[index].width);
    }
    RowsChanged();
}

int ListPeer::InsertRow(int row, int image) {
    const int place = row < 0 ? 0 : std::min(row, model_.Count());
    ListRow inserted;
    inserted.image = image;
    inserted.texts.resize(model_.columns.size());
    model_.rows.insert(model_.rows.begin() + place, std::move(inserted));
    RowsChanged();
    return place;
}

void ListPeer::DeleteRow(int row) {
    if (model_.HasRow(row)) {
        model_.rows.erase(model_.rows.begin() + row);
        RowsChanged();
    }
}

void ListPeer::DeleteAll() {
    model_.rows.clear();
    RowsChanged();
}

void ListPeer::RowsChanged() {
    ++generation_;
    rowsStale_ = true;
    viewTouched_ = false;
    Schedule();
}

void ListPeer::SetState(int row, UINT state, UINT mask) {
    const DispatchScope scope;
    const unsigned generation = generation_;
    if ((state & mask & LVIS_FOCUSED) != 0) {
        for (int other = 0; other < model_.Count(); ++other) {
            if (other != row && !ChangeState(other, model_.Row(other).state & ~LVIS_FOCUSED)) {
                return;
            }
        }
    }
    const int first = row < 0 ? 0 : row;
    const int last = row < 0 ? model_.Count() - 1 : row;
    for (int at = first; at <= last && model_.HasRow(at) && generation == generation_; ++at) {
        ChangeState(at, (model_.Row(at).state & ~mask) | (state & mask));
    }
}

bool ListPeer::ChangeState(int row, UINT state) {
    const UINT before = model_.Row(row).state;
    if (before == state) {
        return true;
    }
    const unsigned generation = generation_;
    model_.Row(row).state = state;
    statesStale_ = true;
    Schedule();
    NotifyRow(LVN_ITEMCHANGED, row, before, state);
    return Record() != nullptr && generation == generation_;
}

void ListPeer::ShowRow(int row) {
    if (model_.HasRow(row)) {
        rowToShow_ = row;
        Schedule();
    }
}

// One pass over whatever has gathered, with the loop's next turn.
void ListPeer::Schedule() {
    if (!scheduled_) {
        scheduled_ = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void ListPeer::customEvent(QEvent* event) {
    if (event->type() == QEvent::User) {
        scheduled_ = false;
        Flush();
        viewport()->update();
    }
}

void ListPeer::Flush() {
    const bool outer = std::exchange(flushing_, true);
    if (rowsStale_) {
        rowsStale_ = false;
        statesStale_ = true;
        model_.Reset();
    }
    if (statesStale_) {
        statesStale_ = false;
        FlushStates();
    }
    if (rowToShow_ >= 0 && model_.HasRow(rowToShow_)) {
        scrollTo(model_.index(rowToShow_, 0));
    }
    rowToShow_ = -1;
    flushing_ = outer;
}

void ListPeer::FlushStates() {
    QItemSelection selection;
    QModelIndex focused;
    const int lastColumn = model_.columnCount() - 1;
    for (int row = 0; row < model_.Count(); ++row) {
        if ((model_.Row(row).state & LVIS_FOCUSED) != 0) {
            focused = model_.index(row, 0);
        }
        if ((model_.Row(row).state & LVIS_SELECTED) == 0) {
            continue;
        }
        int end = row;
        while (end + 1 < model_.Count() && (model_.Row(end + 1).state & LVIS_SELECTED) != 0 &&
               (model_.Row(end + 1).state & LVIS_FOCUSED) == 0) {
            ++end;
        }
        selection.select(model_.index(row, 0), model_.index(end, lastColumn));
        row = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(focused, QItemSelectionModel::NoUpdate);
}

std::vector<UINT> ListPeer::StatesOfView() const {
    std::vector<UINT> states(static_cast<std::size_t>(model_.Count()), 0U);
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            states[static_cast<std::size_t>(row)] |= LVIS_SELECTED;
        }
    }
    if (const QModelIndex current = selectionModel()->currentIndex(); current.isValid()) {
        states[static_cast<std::size_t>(current.row())] |= LVIS_FOCUSED;
    }
    return states;
}

// The rows that lose something come first, as the user's click takes the old mark away before it
// sets the new one.
void ListPeer::TakeStatesFromView() {
    if (!std::exchange(viewTouched_, false) || rowsStale_ || Record() == nullptr) {
        return;
    }
    const std::vector<UINT> states = StatesOfView();
    for (const bool losing : {true, false}) {
        for (int row = 0; row < static_cast<int>(states.size()); ++row) {
            const UINT state = states[static_cast<std::size_t>(row)];
            const bool loses = (model_.Row(row).state & ~state) != 0;
            if (loses == losing && !ChangeState(row, state)) {
                return;
            }
        }
    }
}

LRESULT ListPeer::NotifyRow(int code, int row, UINT oldState, UINT newState) {
    if (Record() == nullptr) {
        return 0;
    }
    NMLISTVIEW notice;
    notice.hdr.hwndFrom = Record();
    notice.hdr.code = code;
    notice.iItem = row;
    notice.uOldState = oldState;
    notice.uNewState = newState;
    return dispatch::Notify(notice.hdr);
}

bool ListPeer::RunDefault(QEvent& event) {
    if (event.type() == QEvent::Paint) {
        QPainter painter(this);
        DrawFrame(painter, rect(), palette().color(QPalette::Mid));
        return true;
    }
    Flush();
    const bool outer = std::exchange(inEvent_, true);
    const bool result = Peer::RunDefault(event);
    inEvent_ = outer;
    TakeStatesFromView();
    return result;
}

bool ListPeer::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
            return Record() == nullptr ? QTreeView::viewportEvent(event)
                                       : Dispatch(*Record(), *event, *this, viewport_);
        case QEvent::ToolTip:
        case QEvent::Wheel:
            return RunViewportDefault(*event);
        default:
            return QTreeView::viewportEvent(event);
    }
}

bool ListPeer::RunViewportDefault(QEvent& event) {
    Flush();
    const bool outer = std::exchange(inEvent_, true);
    const bool result = QTreeView::viewportEvent(&event);
    inEvent_ = outer;
    TakeStatesFromView();
    RaiseClickNotice(event);
    return result;
}

void ListPeer::RaiseClickNotice(const QEvent& event) {
    const bool doubleClick = event.type() == QEvent::MouseButtonDblClick;
    if (Record() == nullptr || (!doubleClick && event.type() != QEvent::MouseButtonRelease)) {
        return;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const int row = rowsStale_ ? -1 : indexAt(mouse.position().toPoint()).row();
    if (doubleClick && mouse.button() == Qt::LeftButton) {
        NotifyRow(NM_DBLCLK, row, 0, 0);
    } else if (!doubleClick && mouse.button() == Qt::RightButton) {
        NotifyRow(NM_RCLICK, row, 0, 0);
    }
}

// The menu key stands for the right button on the row with the focus.
void ListPeer::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        NotifyRow(NM_RCLICK, currentIndex().row(), 0, 0);
    }
}

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
    const LRESULT answer = dispatch::Notify(notice.hdr);
    if (colours != nullptr && answer == CDRF_NEWFONT) {
        *colours = {ToColour(notice.clrText), ToColour(notice.clrTextBk)};
    }
    return answer;
}

}  // namespace toolkit
