#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <memory>

#include "platform/qt/peer.h"

namespace toolkit {

/// A window that lies in the file dialog: the name field, or the one that the dialog's owner
/// stands for, which nothing is seen of.
class FileDialogPart : public PeerBase {
public:
    FileDialogPart(NativeWindow& record, QWidget& widget, QLineEdit* field);

    QString Text() const override { return field_ == nullptr ? QString() : field_->text(); }
    void SetText(const QString& text) override;
    bool RunDefault(QEvent&) override { return false; }

private:
    QLineEdit* field_;
};

/// The toolkit's own file dialog. Its keys and its mouse stay its own; what it does with a name
/// is asked of the owner.
class FileDialogPeer : public QFileDialog, public PeerBase {
public:
    explicit FileDialogPeer(NativeWindow& record);

    void AddParts(NativeWindow& nameField, NativeWindow& inside);

    QString Text() const override { return windowTitle(); }
    void SetText(const QString& text) override { setWindowTitle(text); }
    bool RunDefault(QEvent& event) override { return QFileDialog::event(&event); }
    LRESULT DefaultMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void accept() override;
    void done(int result) override;

private:
    bool EnterTypedFolder();
    bool Notify(int code);

    QLineEdit* nameField_;
    std::unique_ptr<FileDialogPart> namePart_;
    std::unique_ptr<FileDialogPart> insidePart_;
};

}  // namespace toolkit
