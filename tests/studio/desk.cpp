#include "tests/studio/desk.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <memory>

#include "event/event_store.h"
#include "params/pattern_form.h"
#include "platform/files.h"
#include "platform/native.h"
#include "tests/event/event_builders.h"
#include "tests/params/block_support.h"
#include "tests/support/ui_driver.h"

namespace {

// As the program's, and like it gone before the toolkit's static objects: a window or box of the
// program's own makes some of those that the library's application would outlive.
class ApplicationOfTests : public testing::Environment {
public:
    void SetUp() override { application_ = std::make_unique<QApplication>(count_, arguments_); }
    void TearDown() override { application_.reset(); }

private:
    char name_[12] = "studio_test";
    char* arguments_[2] = {name_, nullptr};
    int count_ = 1;
    std::unique_ptr<QApplication> application_;
};

const testing::Environment* const kEnvironment =
    testing::AddGlobalTestEnvironment(new ApplicationOfTests);

// Of a box; of other windows the title.
std::string TextOf(const QWidget& window) {
    const auto* box = qobject_cast<const QMessageBox*>(&window);
    return (box != nullptr ? box->text() : window.windowTitle()).toStdString();
}

}  // namespace

// In memory where there is such a place: bringing files to a disk is what takes long here.
Desk::Desk() : folder_(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") {
    setenv("XDG_DATA_HOME", (folder_ / "data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
    native::EnsureToolkit();
    QObject::connect(&poll_, &QTimer::timeout, [this] { Serve(); });
    poll_.start(1);
}

Desk::~Desk() {
    EXPECT_TRUE(scripts_.empty()) << scripts_.size() << " modal windows never came";
}

std::map<std::string, std::string> Desk::Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Folder())) {
        files[entry.path()] = ReadWholeFile(entry.path()).value_or("");
    }
    return files;
}

Desk& Desk::Next(std::function<void(QWidget&)> serve) {
    scripts_.push_back(std::move(serve));
    return *this;
}

Desk& Desk::Box(const std::string& text, const std::string& button) {
    return Next([=](QWidget& window) {
        EXPECT_NE(TextOf(window).find(text), std::string::npos)
            << "expected a box with: " << text << "\nfound: " << TextOf(window);
        ClickButton(window, button);
    });
}

Desk& Desk::File(const std::string& name) {
    return Next([=](QWidget& window) {
        EXPECT_NE(qobject_cast<QFileDialog*>(&window), nullptr) << TextOf(window);
        if (name.empty()) {
            QTest::keyClick(&window, Qt::Key_Escape);
        } else {
            EXPECT_TRUE(EnterName(dynamic_cast<QFileDialog&>(window), name));
        }
    });
}

void Desk::Serve() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window == served_ || !window->isActiveWindow()) {
        return;
    }
    served_ = window;
    if (scripts_.empty()) {
        ADD_FAILURE() << "unexpected window: " << TextOf(*window);
        window->close();
        return;
    }
    // Not from within the poll, which must go on when the script brings up another window.
    QTimer::singleShot(0, window,
                       [serve = std::move(scripts_.front()), window] { serve(*window); });
    scripts_.pop_front();
}

void ClickButton(QWidget& window, const std::string& text) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->text().remove('&').toStdString() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "no button " << text;
    window.close();
}

CQelCPB_3DPattern Positions(int count, int bad) {
    C3DEventData store;
    Add(store, TimeSig(0, 4, 4));
    CQelCPB_3DPattern pattern;
    for (int i = 0; i < count; ++i) {
        Add(store, Position(static_cast<std::uint8_t>(i % 4), static_cast<std::uint32_t>(i) * 120));
    }
    store.StoreToPattern(&pattern, "Song");
    std::vector<t_tSigRec> timeSigs = {{}};
    for (int i = 0; i < bad; ++i) {
        timeSigs.push_back({0, static_cast<std::uint32_t>(i) + 2, 1, 0, 99, 4});
    }
    SetTimeSigs(pattern, std::move(timeSigs));
    return pattern;
}

std::string Stored(int count, int bad) {
    return WritePatternBytes(Positions(count, bad));
}
