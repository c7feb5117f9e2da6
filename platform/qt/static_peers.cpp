#include "platform/qt/static_peers.h"

#include <QPainter>
#include <QStyle>

#include "platform/native.h"
#include "platform/qt/access_key.h"
#include "platform/qt/qt_dc.h"
#include "platform/qt/surface.h"

namespace toolkit {

// Filled, as lines of a pen get lost at the edge of a widget that lies between device pixels.
void DrawFrame(QPainter& painter, const QRect& frame, const QColor& colour) {
    painter.fillRect(QRect(frame.left(), frame.top(), frame.width(), 1), colour);
    painter.fillRect(QRect(frame.left(), frame.bottom(), frame.width(), 1), colour);
    painter.fillRect(QRect(frame.left(), frame.top(), 1, frame.height()), colour);
    painter.fillRect(QRect(frame.right(), frame.top(), 1, frame.height()), colour);
}

StaticPeer::StaticPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setTextFormat(Qt::PlainText);
}

// A caption a pixel wider than its place is shown whole.
void StaticPeer::SetText(const QString& text) {
    setText(text);
    resize(std::max(width(), fontMetrics().size(Qt::TextShowMnemonic, text).width()), height());
}

bool StaticPeer::RunDefault(QEvent& event) {
    if (!IsAccessKey(event)) {
        return Peer::RunDefault(event);
    }
    UseAccessKey(buddy());
    return true;
}

QColor StaticPeer::TextColour() {
    const QColor own = palette().color(foregroundRole());
    if (Record() == nullptr || !isEnabled()) {
        return own;
    }
    QtDC colours(1.0);
    colours.SetTextColor(FromColour(own));
    CtlColorQuery query{&colours, Record()->owner};
    dispatch::Send(&DialogOf(*Record()), WM_CTLCOLOR, reinterpret_cast<WPARAM>(&query), 0);
    return ToColour(colours.GetTextColor());
}

void StaticPeer::paintEvent(QPaintEvent*) {
    const QColor colour = TextColour();
    QPainter painter(this);
    painter.setPen(colour);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic | Qt::TextDontClip,
                     text());
}

GroupBoxPeer::GroupBoxPeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

bool GroupBoxPeer::RunDefault(QEvent& event) {
    if (!IsAccessKey(event)) {
        return Peer::RunDefault(event);
    }
    UseAccessKey(buddy_);
    return true;
}

void GroupBoxPeer::paintEvent(QPaintEvent*) {
    constexpr int kTitleLeft = 8;
    constexpr int kTitleGap = 2;
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.height() / 2;
    const int titleWidth = metrics.size(Qt::TextShowMnemonic, title()).width();
    const QRect titleRect(kTitleLeft, 0, titleWidth, metrics.height());
    QPainter painter(this);
    const QRegion gap(titleRect.adjusted(-kTitleGap, 0, kTitleGap, 0));
    painter.setClipRegion(titleWidth == 0 ? QRegion(rect()) : QRegion(rect()) - gap);
    DrawFrame(painter, QRect(0, line, width(), height() - line), palette().color(QPalette::Mid));
    painter.setClipping(false);
    style()->drawItemText(&painter, titleRect,
                          Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextDontClip, palette(),
                          isEnabled(), title(), QPalette::WindowText);
}

PlacePeer::PlacePeer(NativeWindow& record, QWidget* parent) : Peer(record, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

CustomStaticPeer::CustomStaticPeer(NativeWindow& record, QWidget* parent)
    : PlacePeer(record, parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CustomStaticPeer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (Record() != nullptr) {
        ShowSurface(*Record(), painter);
    }
}

}  // namespace toolkit
