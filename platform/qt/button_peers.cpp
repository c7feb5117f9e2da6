#include "platform/qt/button_peers.h"

#include <QButtonGroup>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "platform/native.h"
#include "platform/qt/pictures.h"

namespace toolkit {

PushButtonPeer::PushButtonPeer(NativeWindow& record, QWidget* parent) : ButtonPeer(record, parent) {
    setAutoDefault(false);
    setDefault((record.flags & kDefaultButton) != 0);
    setCheckable(record.kind == ControlKind::pushLikeCheck);
}

// The icon stands above the caption where there is room for both, as the style can't do it.
void PushButtonPeer::paintEvent(QPaintEvent* event) {
    const int stacked = iconSize().height() + fontMetrics().height();
    if (icon().isNull() || text().isEmpty() || height() < stacked + 2) {
        QPushButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = {};
    painter.drawControl(QStyle::CE_PushButton, option);
    const int top = (height() - stacked) / 2;
    const QRect iconPlace((width() - iconSize().width()) / 2, top, iconSize().width(),
                          iconSize().height());
    icon().paint(&painter, iconPlace, Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawItemText(QRect(0, iconPlace.bottom() + 1, width(), fontMetrics().height()),
                         Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(), text(),
                         QPalette::ButtonText);
}

CheckBoxPeer::CheckBoxPeer(NativeWindow& record, QWidget* parent)
    : ButtonPeer(record, parent), automatic_(record.kind == ControlKind::autoCheckBox) {}

void CheckBoxPeer::nextCheckState() {
    if (automatic_) {
        QCheckBox::nextCheckState();
    }
}

}  // namespace toolkit

namespace native {

HWND DefaultButton(HWND dialog) {
    if (dialog == nullptr || dialog->widget == nullptr) {
        return nullptr;
    }
    NativeWindow* focus = GetFocus();
    if (auto* button = toolkit::PeerAs<toolkit::PushButtonPeer>(focus);
        button != nullptr && !button->isCheckable() &&
        &toolkit::RootOf(*focus) == &toolkit::RootOf(*dialog)) {
        return focus;
    }
    for (const auto& child : dialog->children) {
        if ((child->flags & kDefaultButton) != 0) {
            return child.get();
        }
    }
    return nullptr;
}

void Click(HWND button) {
    if (auto* peer = toolkit::PeerAs<QAbstractButton>(button)) {
        const toolkit::DispatchScope scope;
        peer->click();
    }
}

int GetCheck(HWND button) {
    const auto* peer = toolkit::PeerAs<QAbstractButton>(button);
    return peer != nullptr && peer->isChecked() ? 1 : 0;
}

void SetCheck(HWND button, int check) {
    auto* peer = toolkit::PeerAs<QAbstractButton>(button);
    if (peer == nullptr) {
        return;
    }
    // An exclusive group would not let its last mark go.
    QButtonGroup* group = peer->group();
    if (group != nullptr) {
        group->setExclusive(check != 0);
    }
    peer->setChecked(check != 0);
    if (group != nullptr) {
        group->setExclusive(true);
    }
}

void SetIcon(HWND button, UINT iconId) {
    auto* peer = toolkit::PeerAs<QAbstractButton>(button);
    const PictureResource* picture = FindIcon(iconId);
    if (peer != nullptr && picture != nullptr) {
        peer->setIconSize(QSize(picture->size, picture->size));
        peer->setIcon(toolkit::MakeIcon(iconId));
    }
}

}  // namespace native
