#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAction>
#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "studio/monitor_pane.h"
#include "studio/port_choice.h"
#include "tests/support/bytes.h"

namespace {

const std::string kMessage = Bytes("F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7");

struct DeviceTest : testing::Test {
    DeviceTest() {
        folder = (std::filesystem::temp_directory_path() / "orbix-device-XXXXXX").string();
        EXPECT_NE(::mkdtemp(folder.data()), nullptr);
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        ::setenv("JACK_DEFAULT_SERVER", "orbix-no-such-server", 1);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        static const QApplication application(count, arguments);
    }
    ~DeviceTest() override { std::filesystem::remove_all(folder); }

    static QString Texts(const QMenu& menu) {
        QString texts;
        for (const QAction* action : menu.actions()) {
            texts += action->isEnabled() && !action->isSeparator()
                         ? action->text() + (action->isChecked() ? "*|" : "|")
                         : QString();
        }
        return texts;
    }
    void Send() { link.Manager().SendData(kMessage.data(), 18); }

    std::string folder;
    DeviceLink link;
};

TEST_F(DeviceTest, AMonitorRowTellsWhatWentOutAndWhetherItWasTaken) {
    MonitorPane pane(nullptr);
    link.onSent = [&](const DeviceLink::Sent& sent) { pane.Note(sent); };
    Send();
    link.Choose(ChoiceOf("path:" + folder + "/none/x"));
    Send();
    link.Choose(ChoiceOf("path:" + folder + "/out.syx"));
    Send();
    link.Manager().SendData("\x90\x40", 2);
    const auto* table = pane.findChild<QTableWidget*>();
    const QString decoded =
        "|F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7|2|1.00 m|-90\u00B0|30\u00B0|";
    const QString rows[] = {decoded + "not taken: no device is chosen",
                            decoded + "not taken: No such file or directory", decoded + "taken",
                            "|90 40|||||taken"};
    ASSERT_EQ(table->rowCount(), 4);
    for (int row = 0; row < 4; ++row) {
        QString text;
        for (int column = 1; column < 7; ++column) {
            text += "|" + table->item(row, column)->text();
        }
        EXPECT_EQ(text, rows[row]);
    }
    std::ostringstream file;
    file << std::ifstream(folder + "/out.syx").rdbuf();
    EXPECT_EQ(Hex(file.str()), Hex(kMessage + "\x90\x40"));
}

TEST_F(DeviceTest, TheMenuKeepsWhatIsGoneAndRemembersTheChoice) {
    QMenu menu;
    PortChoice choice(menu, link, "jack:far-synth:in & out");
    std::vector<std::string> chosen;
    choice.onChosen = [&](const std::string& line) { chosen.push_back(line); };
    const QString gone = "JACK: far-synth:in && out (disconnected)";
    EXPECT_EQ(Texts(menu), "&No Device|" + gone + "*|&File, Pipe or Raw Device...|");
    menu.actions()[0]->trigger();
    EXPECT_EQ(link.Choice(), std::nullopt);
    emit menu.aboutToShow();
    EXPECT_EQ(Texts(menu), "&No Device*|" + gone + "|&File, Pipe or Raw Device...|");
    menu.actions()[2]->trigger();
    EXPECT_EQ(chosen, (std::vector<std::string>{"", "jack:far-synth:in & out"}));
    link.Choose(ChoiceOf("path:/tmp/x"));
    emit menu.aboutToShow();
    EXPECT_EQ(Texts(menu), "&No Device|" + gone + "|/tmp/x*|&File, Pipe or Raw Device...|");
}

}  // namespace
