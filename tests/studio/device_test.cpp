#include <gtest/gtest.h>

#include <QAction>

#include "platform/files.h"
#include "studio/monitor_pane.h"
#include "studio/port_choice.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace {

const std::string kMessage = Bytes("F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7");

struct DeviceTest : testing::Test {
    DeviceTest() { ::setenv("JACK_DEFAULT_SERVER", "orbix-no-such-server", 1); }

    // What can be chosen; a star behind what is.
    static std::string Texts(const QMenu& menu) {
        std::string texts;
        for (const QAction* action : menu.actions()) {
            if (action->isEnabled() && !action->isSeparator()) {
                texts += action->text().toStdString() + (action->isChecked() ? "*|" : "|");
            }
        }
        return texts;
    }

    TemporaryFolder folder;
    DeviceLink link;
};

TEST_F(DeviceTest, AMonitorRowTellsWhatWentOutAndWhetherItWasTaken) {
    MonitorPane pane(nullptr);
    link.onSent = [&](const DeviceLink::Sent& sent) { pane.Note(sent); };
    for (const std::string& choice :
         std::vector<std::string>{"", "path:" + folder / "none/x", "path:" + folder / "out.syx"}) {
        link.Choose(ChoiceOf(choice));
        link.Manager().SendData(kMessage.data(), 18);
    }
    link.Manager().SendData("\x90\x40", 2);
    const auto* table = pane.findChild<QTableWidget*>();
    std::string rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 1; column < 7; ++column) {
            rows += table->item(row, column)->text().toStdString() + (column < 6 ? "|" : "\n");
        }
    }
    const std::string decoded =
        "F0 43 79 08 7F 29 02 00 00 07 68 22 4A 00 00 00 00 F7|2|1.00 m|-90°|30°|";
    EXPECT_EQ(rows, decoded + "not taken: no device is chosen\n" + decoded +
                        "not taken: No such file or directory\n" + decoded +
                        "taken\n90 40|||||taken\n");
    EXPECT_EQ(ReadWholeFile(folder / "out.syx"), kMessage + "\x90\x40");
}

TEST_F(DeviceTest, TheMenuKeepsWhatIsGoneAndRemembersTheChoice) {
    QMenu menu;
    PortChoice choice(menu, link, "jack:far-synth:in & out");
    std::vector<std::string> chosen;
    choice.onChosen = [&](const std::string& line) { chosen.push_back(line); };
    const std::string gone = "JACK: far-synth:in && out (disconnected)";
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
