#include <QAccessible>
#include <QAccessibleWidget>
#include <utility>

#include "platform/native.h"
#include "platform/qt/accessible.h"
#include "platform/qt/convert.h"
#include "platform/qt/static_peers.h"

// What is painted inside a place, told to screen readers as a list with items.

namespace toolkit {

namespace {

class PlaceInterface;

class ItemInterface : public QAccessibleInterface {
public:
    ItemInterface(PlaceInterface& place, int index) : place_(place), index_(index) {}

    bool isValid() const override { return Item() != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        const VirtualItem* item = Item();
        return item != nullptr && kind == QAccessible::Name ? ToQt(item->text) : QString();
    }

    QRect rect() const override;

    QAccessible::State state() const override {
        QAccessible::State state;
        const VirtualItem* item = Item();
        state.selectable = true;
        state.selected = item != nullptr && item->isCurrent;
        state.invalid = item == nullptr;
        return state;
    }

private:
    const VirtualItem* Item() const;

    PlaceInterface& place_;
    int index_;
};

class PlaceInterface : public QAccessibleWidget {
public:
    explicit PlaceInterface(PlacePeer& place) : QAccessibleWidget(&place), place_(place) {}
    PlaceInterface(const PlaceInterface&) = delete;
    PlaceInterface& operator=(const PlaceInterface&) = delete;
    ~PlaceInterface() override {
        for (const QAccessible::Id id : itemIds_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    QAccessible::Role role() const override {
        return place_.HasVirtualItems() ? QAccessible::List : QAccessible::Client;
    }

    // A reader asks for the number before it walks the items; that is when they are fetched.
    int childCount() const override {
        items_ = place_.VirtualItems();
        return static_cast<int>(items_.size());
    }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) {
            return nullptr;
        }
        while (itemIds_.size() <= static_cast<std::size_t>(index)) {
            auto& self = const_cast<PlaceInterface&>(*this);  // NOLINT: Qt asks a const object.
            auto* item = new ItemInterface(self, static_cast<int>(itemIds_.size()));
            // The toolkit's registry owns the item from here on.
            itemIds_.push_back(QAccessible::registerAccessibleInterface(item));
        }
        return QAccessible::accessibleInterface(itemIds_[static_cast<std::size_t>(index)]);
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        for (int index = 0, count = childCount(); index < count; ++index) {
            if (child(index)->rect().contains(x, y)) {
                return child(index);
            }
        }
        return nullptr;
    }

    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int index = 0, count = childCount(); index < count; ++index) {
            if (child(index) == wanted) {
                return index;
            }
        }
        return -1;
    }

    const VirtualItem* Item(int index) const {
        const auto place = static_cast<std::size_t>(index);
        return place < items_.size() ? &items_[place] : nullptr;
    }

    QPoint OriginOfItems() const { return place_.parentWidget()->mapToGlobal(QPoint(0, 0)); }

private:
    PlacePeer& place_;
    mutable std::vector<VirtualItem> items_;
    mutable std::vector<QAccessible::Id> itemIds_;
};

QAccessibleInterface* ItemInterface::parent() const {
    return &place_;
}

const VirtualItem* ItemInterface::Item() const {
    return place_.Item(index_);
}

QRect ItemInterface::rect() const {
    const VirtualItem* item = Item();
    if (item == nullptr) {
        return {};
    }
    return QRect(item->rect.left, item->rect.top, Width(item->rect), Height(item->rect))
        .translated(place_.OriginOfItems());
}

QAccessibleInterface* MakePlaceInterface(const QString&, QObject* object) {
    auto* place = dynamic_cast<PlacePeer*>(object);
    return place == nullptr ? nullptr : new PlaceInterface(*place);
}

}  // namespace

// Before any window exists: the toolkit makes an interface when it first hears of a widget and
// keeps it.
void InstallVirtualItems() {
    static const bool installed = (QAccessible::installFactory(&MakePlaceInterface), true);
    static_cast<void>(installed);
}

}  // namespace toolkit

namespace native {

void SetVirtualItems(HWND window, std::function<std::vector<VirtualItem>()> provider) {
    if (auto* place = toolkit::PeerAs<toolkit::PlacePeer>(window)) {
        place->SetVirtualItems(std::move(provider));
    }
}

}  // namespace native
