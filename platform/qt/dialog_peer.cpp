#include "platform/qt/dialog_peer.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "platform/native.h"
#include "platform/qt/controls.h"
#include "platform/qt/surface.h"
#include "platform/qt/text_cache.h"

namespace toolkit {

DialogPeer::DialogPeer(NativeWindow& record, QWidget* parent, bool child) : Peer(record, parent) {
    if (!child) {
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    }
    setFont(InterfaceFont());
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // The host's application must not end because an editor closed.
    setAttribute(Qt::WA_QuitOnClose, false);
}

// A key that no control wanted is nobody's; the base class would hand it to the parent.
bool DialogPeer::RunDefault(QEvent& event) {
    const bool key = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    return key || Peer::RunDefault(event);
}

void DialogPeer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (Record() != nullptr) {
        ShowSurface(*Record(), painter);
    }
}

// The toolkit lets drops through to a window that stands behind a box.
void DialogPeer::dragEnterEvent(QDragEnterEvent* event) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (event->mimeData()->hasUrls() && (modal == nullptr || modal == this)) {
        event->acceptProposedAction();
    }
}

// The program that the files come from waits until the drop has been dealt with, so the handler,
// which may ask the user, comes later.
void DialogPeer::dropEvent(QDropEvent* event) {
    std::vector<CString> paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        paths.push_back(FromQt(url.isLocalFile() ? url.toLocalFile() : url.toString()));
    }
    event->acceptProposedAction();
    const auto send = [this, paths] {
        CallOut(
            [&] { dispatch::Send(Record(), WM_DROPFILES, reinterpret_cast<WPARAM>(&paths), 0); });
    };
    QMetaObject::invokeMethod(this, send, Qt::QueuedConnection);
}

namespace {

// A page lies in the dialog of its tab control, above it, so that assistive programs find its
// controls: a tab bar shows them only its tabs.
QWidget* WidgetForChildren(NativeWindow* parent) {
    return parent == nullptr ? nullptr : DialogOf(*parent).widget;
}

}  // namespace

}  // namespace toolkit

namespace native {

HWND CreateDialogWindow(const DialogTemplate& dialog, HWND parent, CWnd& owner) {
    NativeWindow* above = dialog.child ? parent : nullptr;
    NativeWindow& window = toolkit::AddWindow(above);
    window.role = dialog.child ? toolkit::WindowRole::childDialog : toolkit::WindowRole::dialog;
    auto* peer = new toolkit::DialogPeer(window, toolkit::WidgetForChildren(above), dialog.child);
    peer->hide();
    const RECT size = MapDialogRect(0, 0, dialog.width, dialog.height);
    peer->setFixedSize(size.right, size.bottom);
    peer->SetText(toolkit::ToQt(dialog.caption));
    peer->setAcceptDrops(dialog.acceptsFiles);
    toolkit::MakeControls(window, dialog);
    // Only now, so that nothing the making stirs up reaches a handler.
    window.owner = &owner;
    owner.m_hWnd = &window;
    return &window;
}

}  // namespace native
