#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/qt/peer.h"

namespace toolkit {

/// A frame of one logical pixel inside the rectangle's edges.
void DrawFrame(QPainter& painter, const QRect& frame, const QColor& colour);

/// A line of text at the top left of its place, in the colour that the dialog gives it.
class StaticPeer : public Peer<QLabel> {
public:
    StaticPeer(NativeWindow& record, QWidget* parent);
    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    bool RunDefault(QEvent& event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor TextColour();
};

/// A frame with its title on the line.
class GroupBoxPeer : public Peer<QGroupBox> {
public:
    GroupBoxPeer(NativeWindow& record, QWidget* parent);
    QString Text() const override { return title(); }
    void SetText(const QString& text) override { setTitle(text); }
    bool RunDefault(QEvent& event) override;
    /// The control that the title's access key stands for.
    void SetBuddy(QWidget* control) { buddy_ = control; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointer<QWidget> buddy_;
};

/// A place without a look: it paints nothing and lets the mouse through.
class PlacePeer : public Peer<QWidget> {
public:
    PlacePeer(NativeWindow& record, QWidget* parent);
    QString Text() const override { return text_; }
    void SetText(const QString& text) override { text_ = text; }

    /// What screen readers are told stands in this place.
    void SetVirtualItems(std::function<std::vector<VirtualItem>()> provider) {
        items_ = std::move(provider);
    }
    bool HasVirtualItems() const { return static_cast<bool>(items_); }
    std::vector<VirtualItem> VirtualItems() const {
        return items_ ? items_() : std::vector<VirtualItem>();
    }

private:
    QString text_;
    std::function<std::vector<VirtualItem>()> items_;
};

/// A static that its owner paints.
class CustomStaticPeer : public PlacePeer {
public:
    CustomStaticPeer(NativeWindow& record, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace toolkit
