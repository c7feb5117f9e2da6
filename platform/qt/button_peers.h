#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/access_key.h"
#include "platform/qt/peer.h"

namespace toolkit {

/// What the kinds of button share over their toolkit classes: caption, click, and the message by
/// which a handler lets a held button pop out.
template <typename Button>
class ButtonPeer : public Peer<Button> {
public:
    ButtonPeer(NativeWindow& record, QWidget* parent) : Peer<Button>(record, parent) {
        const bool stop = (record.flags & kTabStop) != 0;
        this->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
        QObject::connect(this, &QAbstractButton::clicked, this,
                         [this] { this->NotifyCommand(BN_CLICKED); });
    }

    QString Text() const override { return this->text(); }
    void SetText(const QString& text) override { this->setText(text); }
    LRESULT DefaultMessage(UINT message, WPARAM, LPARAM) override {
        if (message == WM_LBUTTONUP) {
            this->setDown(false);
        }
        return 0;
    }
    bool RunDefault(QEvent& event) override {
        if (!IsAccessKey(event)) {
            return Peer<Button>::RunDefault(event);
        }
        UseAccessKey(this);
        return true;
    }
};

/// Push buttons, with or without an icon, and check boxes that look like one.
class PushButtonPeer : public ButtonPeer<QPushButton> {
public:
    PushButtonPeer(NativeWindow& record, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The plain kind leaves its mark alone when it is clicked.
class CheckBoxPeer : public ButtonPeer<QCheckBox> {
public:
    CheckBoxPeer(NativeWindow& record, QWidget* parent);

protected:
    void nextCheckState() override;

private:
    bool automatic_;
};

class RadioButtonPeer : public ButtonPeer<QRadioButton> {
public:
    using ButtonPeer::ButtonPeer;
};

}  // namespace toolkit
