#include "platform/qt/list_peer.h"

#include <QContextMenuEvent>
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

void ListPeer::ShowRow(int row) {
    if (model_.HasRow(row)) {
        rowToShow_ = row;
        Schedule();
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

}  // namespace toolkit
