#include "platform/qt/controls.h"

#include <QButtonGroup>
#include <QLabel>

#include "platform/native.h"
#include "platform/qt/accessible.h"
#include "platform/qt/button_peers.h"
#include "platform/qt/combo_peer.h"
#include "platform/qt/convert.h"
#include "platform/qt/edit_peer.h"
#include "platform/qt/list_peer.h"
#include "platform/qt/radio_group.h"
#include "platform/qt/slider_peer.h"
#include "platform/qt/spin_peer.h"
#include "platform/qt/static_peers.h"
#include "platform/qt/tab_peer.h"

namespace toolkit {

namespace {

void MakePeer(NativeWindow& window, QWidget* parent) {
    switch (window.kind) {
        case ControlKind::pushButton:
        case ControlKind::iconButton:
        case ControlKind::pushLikeCheck:
            new PushButtonPeer(window, parent);
            break;
        case ControlKind::checkBox:
        case ControlKind::autoCheckBox:
            new CheckBoxPeer(window, parent);
            break;
        case ControlKind::radioButton:
            new RadioButtonPeer(window, parent);
            break;
        case ControlKind::groupBox:
            new GroupBoxPeer(window, parent);
            break;
        case ControlKind::staticText:
            new StaticPeer(window, parent);
            break;
        case ControlKind::placeFrame:
            new PlacePeer(window, parent);
            break;
        case ControlKind::customStatic:
            new CustomStaticPeer(window, parent);
            break;
        case ControlKind::edit:
            new EditPeer(window, parent);
            break;
        case ControlKind::comboBox:
            new ComboPeer(window, parent);
            break;
        case ControlKind::list:
            new ListPeer(window, parent);
            break;
        case ControlKind::slider:
            new SliderPeer(window, parent);
            break;
        case ControlKind::spin:
            new SpinPeer(window, parent);
            break;
        case ControlKind::tab:
            new TabPeer(window, parent);
            break;
    }
}

void MakeControl(NativeWindow& dialog, const ControlTemplate& description) {
    NativeWindow& window = AddWindow(&dialog);
    window.kind = description.kind;
    window.id = description.id;
    window.flags = description.flags;
    window.plain = dispatch::MakePlainControl(description.kind);
    window.owner = window.plain.get();
    window.plain->m_hWnd = &window;
    MakePeer(window, dialog.widget);

    QWidget& widget = *window.widget;
    widget.setGeometry(
        ToQt(MapDialogRect(description.x, description.y, description.width, description.height)));
    if (description.caption != nullptr) {
        window.peer->SetText(ToQt(description.caption));
    }
    for (const char* item : description.items) {
        native::ComboAdd(&window, item);
    }
    widget.setEnabled((description.flags & kDisabled) == 0);
    widget.setVisible((description.flags & kHidden) == 0);
    SetAccessibleWords(window, description);
}

void JoinRadioGroups(NativeWindow& dialog) {
    for (const auto& child : dialog.children) {
        if (child->kind != ControlKind::radioButton ||
            RadioGroupOf(*child).front() != child.get()) {
            continue;
        }
        auto group = std::make_unique<QButtonGroup>();
        for (NativeWindow* radio : RadioGroupOf(*child)) {
            group->addButton(PeerAs<RadioButtonPeer>(radio));
        }
        group.release()->setParent(dialog.widget);
    }
}

// A box for a tick without a caption of its own has its label behind it, all other controls have
// theirs, or the frame that names them, before them.
void JoinToLabel(NativeWindow& before, NativeWindow& window) {
    auto* label = PeerAs<StaticPeer>(&window);
    const auto* box = PeerAs<CheckBoxPeer>(&before);
    if (label != nullptr && box != nullptr && box->text().isEmpty()) {
        label->setBuddy(before.widget);
        return;
    }
    if (window.widget == nullptr || window.widget->focusPolicy() == Qt::NoFocus) {
        return;
    }
    label = PeerAs<StaticPeer>(&before);
    if (label != nullptr && label->buddy() == nullptr) {
        label->setBuddy(window.widget);
    }
    if (auto* frame = PeerAs<GroupBoxPeer>(&before)) {
        frame->SetBuddy(window.widget);
    }
}

void JoinNeighbours(NativeWindow& dialog) {
    for (std::size_t index = 1; index < dialog.children.size(); ++index) {
        NativeWindow& before = *dialog.children[index - 1];
        NativeWindow& window = *dialog.children[index];
        auto* edit = PeerAs<EditPeer>(&before);
        if (auto* spin = PeerAs<SpinPeer>(&window); spin != nullptr && edit != nullptr) {
            spin->SetBuddy(before);
            edit->SetSpin(spin);
        }
        JoinToLabel(before, window);
    }
}

// Frames lie under what stands in them, whatever the order in the template.
void LowerFrames(NativeWindow& dialog) {
    for (const auto& child : dialog.children) {
        if (child->kind == ControlKind::groupBox) {
            child->widget->lower();
        }
    }
}

}  // namespace

void MakeControls(NativeWindow& dialog, const DialogTemplate& description) {
    dialog.children.reserve(description.controls.size());
    for (const ControlTemplate& control : description.controls) {
        MakeControl(dialog, control);
    }
    JoinRadioGroups(dialog);
    JoinNeighbours(dialog);
    LowerFrames(dialog);
}

}  // namespace toolkit
