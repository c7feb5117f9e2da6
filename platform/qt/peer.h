#pragma once

#include <QEvent>
#include <QWidget>

#include "platform/qt/convert.h"
#include "platform/qt/event_dispatch.h"
#include "platform/qt/window_record.h"

namespace toolkit {

/// What every widget of ours has beside its toolkit class: the way to its record, and the
/// toolkit's own share in messages.
class PeerBase : public EventSink {
public:
    PeerBase(const PeerBase&) = delete;
    PeerBase& operator=(const PeerBase&) = delete;
    virtual ~PeerBase();

    NativeWindow* Record() const { return record_; }
    /// From here on the widget stands alone.
    void Detach() { record_ = nullptr; }

    virtual QString Text() const { return {}; }
    virtual void SetText(const QString&) {}
    /// The default procedure for a message that no stored event stands behind.
    virtual LRESULT DefaultMessage(UINT, WPARAM, LPARAM) { return 0; }

protected:
    explicit PeerBase(NativeWindow& record) : record_(&record) {}

    /// A command notification of this control.
    void NotifyCommand(UINT code);

private:
    NativeWindow* record_;
};

/// A widget class of the toolkit whose events run through the record's owner first. Overriding
/// event() rather than filtering it is what lets a handler run the default in its own middle.
template <typename Widget>
class Peer : public Widget, public PeerBase {
public:
    template <typename... Arguments>
    explicit Peer(NativeWindow& record, QWidget* parent, Arguments&&... arguments)
        : Widget(std::forward<Arguments>(arguments)..., parent), PeerBase(record) {
        record.widget = this;
        record.peer = this;
    }

    bool event(QEvent* event) override {
        return Record() == nullptr ? Widget::event(event)
                                   : Dispatch(*Record(), *event, *this, *this);
    }
    bool RunDefault(QEvent& event) override { return Widget::event(&event); }

protected:
    // Tab is handled above the widgets; this is how a widget that is disabled or hidden gives
    // the focus away.
    bool focusNextPrevChild(bool next) override { return GiveFocusAway(Record(), next); }
};

/// The window's widget as the class, or null.
template <typename PeerClass>
PeerClass* PeerAs(HWND window) {
    return window == nullptr ? nullptr : dynamic_cast<PeerClass*>(window->widget);
}

}  // namespace toolkit
