#include "platform/qt/file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cstring>

#include "platform/hooks.h"
#include "platform/native.h"
#include "platform/qt/convert.h"

namespace toolkit {

namespace {

// The toolkit finds the patterns in the last brackets of a type's text.
QString TypeText(const native::FileType& type) {
    const QString description = ToQt(type.description);
    const QString patterns = ToQt(type.patterns).replace(';', ' ');
    const QString ending = " (" + patterns + ")";
    return description.endsWith(ending) ? description : description + ending;
}

QString ExpandHome(const QString& text) {
    return text == "~" || text.startsWith("~/") ? QDir::homePath() + text.mid(1) : text;
}

}  // namespace

FileDialogPart::FileDialogPart(NativeWindow& record, QWidget& widget, QLineEdit* field)
    : PeerBase(record), field_(field) {
    record.widget = &widget;
    record.peer = this;
}

void FileDialogPart::SetText(const QString& text) {
    if (field_ != nullptr) {
        field_->setText(text);
    }
}

FileDialogPeer::FileDialogPeer(NativeWindow& record) : PeerBase(record) {
    record.widget = this;
    record.peer = this;
    setOption(DontUseNativeDialog);
    setFileMode(AnyFile);
    setAttribute(Qt::WA_QuitOnClose, false);
    nameField_ = findChild<QLineEdit*>("fileNameEdit");
    connect(this, &QFileDialog::filterSelected, this, [this] { Notify(CDN_TYPECHANGE); });
}

void FileDialogPeer::AddParts(NativeWindow& nameField, NativeWindow& inside) {
    namePart_ = std::make_unique<FileDialogPart>(nameField, *nameField_, nameField_);
    insidePart_ = std::make_unique<FileDialogPart>(inside, *this, nullptr);
}

LRESULT FileDialogPeer::DefaultMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != CDM_GETFOLDERPATH) {
        return 0;
    }
    const CString folder = FromQt(directory().absolutePath());
    const std::size_t count = std::min<std::size_t>(wParam, folder.size() + 1);
    if (count > 0) {
        auto* buffer = reinterpret_cast<char*>(lParam);
        std::memcpy(buffer, folder.c_str(), count);
        buffer[count - 1] = '\0';
    }
    return static_cast<LRESULT>(folder.size() + 1);
}

// A name may become that of a folder when the owner completes it.
void FileDialogPeer::accept() {
    if (!EnterTypedFolder() && Notify(CDN_FILEOK) && !EnterTypedFolder()) {
        done(Accepted);
    }
}

void FileDialogPeer::done(int result) {
    QFileDialog::done(result);
    native::EndModal(Record(), result == Accepted ? IDOK : IDCANCEL);
}

// True when the name was nothing but a folder.
bool FileDialogPeer::EnterTypedFolder() {
    const QString text = ExpandHome(nameField_->text());
    const QFileInfo typed(directory(), text);
    if (!text.isEmpty() && typed.isDir()) {
        setDirectory(typed.absoluteFilePath());
        nameField_->clear();
        return true;
    }
    if (text.contains('/') && typed.absoluteDir().exists()) {
        setDirectory(typed.absolutePath());
        nameField_->setText(typed.fileName());
    }
    return false;
}

// True when the owner lets the dialog go on.
bool FileDialogPeer::Notify(int code) {
    LRESULT answer = 1;
    CallOut([&] {
        const QStringList types = nameFilters();
        OFNOTIFY notice{{Record(), 0, code},
                        static_cast<DWORD>(types.indexOf(selectedNameFilter()) + 1)};
        if (Record() != nullptr) {
            answer = dispatch::Send(Record()->children.back().get(), WM_NOTIFY, 0,
                                    reinterpret_cast<LPARAM>(&notice));
        }
    });
    return answer == 0 && Record() != nullptr;
}

}  // namespace toolkit

namespace native {

HWND CreateFileDialog(const FileDialogSetup& setup, CWnd& owner) {
    NativeWindow& window = toolkit::AddWindow(nullptr);
    window.role = toolkit::WindowRole::dialog;
    window.plain = std::make_unique<CWnd>();
    auto* peer = new toolkit::FileDialogPeer(window);
    NativeWindow& nameField = toolkit::AddWindow(&window);
    nameField.kind = ControlKind::edit;
    nameField.id = kFileNameField;
    nameField.plain = std::make_unique<CEdit>();
    NativeWindow& inside = toolkit::AddWindow(&window);
    inside.role = toolkit::WindowRole::childDialog;
    peer->AddParts(nameField, inside);
    // What it is for shows in its words alone: in its own mode for saving the toolkit changes
    // extensions by rules of its own.
    peer->setWindowTitle(setup.open ? "Open" : "Save As");
    peer->setLabelText(QFileDialog::Accept, setup.open ? "&Open" : "&Save");
    const QFileInfo folder(toolkit::ToQt(setup.folder));
    peer->setDirectory(folder.isDir() ? folder.absoluteFilePath() : QDir::currentPath());
    QStringList types;
    for (const FileType& type : setup.types) {
        types.append(toolkit::TypeText(type));
    }
    peer->setNameFilters(types);
    nameField.peer->SetText(toolkit::ToQt(setup.name));
    // Only now, so that nothing the making stirs up reaches the owner.
    SetOwner(&window, nullptr);
    SetOwner(&nameField, nullptr);
    SetOwner(&inside, &owner);
    return &window;
}

}  // namespace native
