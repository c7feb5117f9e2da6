#include "studio/autosave.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QProcess>
#include <array>
#include <random>
#include <sstream>

#include "platform/files.h"
#include "studio/recovery.h"
#include "tests/studio/desk.h"

namespace {

/// What a program leaves that dies with unsaved work: all but its lock's holder.
void Crash(const std::string& folder, const std::string& origin, const std::string& bytes) {
    AutosaveSlot slot(folder);
    std::string reason;
    EXPECT_TRUE(slot.Keep(origin, bytes, reason)) << reason;
}

std::size_t CountFiles(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

}  // namespace

TEST(Autosave, WorkOfRunningProgramsIsNotTakenForCrashed) {
    const Desk desk;
    const std::string folder = desk / "a/b";
    std::string reason;
    AutosaveSlot running(folder);
    ASSERT_TRUE(running.Keep("/doc.3dp", Stored(1), reason)) << reason;
    EXPECT_TRUE(FindCrashedAutosaves(folder).empty());
    Crash(folder, "", Stored(2));
    {
        const auto found = FindCrashedAutosaves(folder);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].Origin() + *ReadWholeFile(found[0].File()), Stored(2));
        EXPECT_TRUE(FindCrashedAutosaves(folder).empty()) << "one of two starts gets it";
    }
    EXPECT_EQ(FindCrashedAutosaves(folder).size(), 1U);
    FindCrashedAutosaves(folder)[0].Remove();
    WriteFileCommitted(folder + "/half.origin", "");  // A crash came before the work was there.
    EXPECT_TRUE(FindCrashedAutosaves(folder).empty());
    ASSERT_TRUE(running.Keep("/other.3dp", Stored(3), reason));
    running.Drop();
    EXPECT_EQ(CountFiles(folder), 1U) << "the lock of the running program";
    WriteFileCommitted(desk / "file", "");
    EXPECT_FALSE(AutosaveSlot(desk / "file").Keep("", Stored(1), reason));
    EXPECT_EQ(reason.substr(0, (desk / "file").size()), desk / "file");
}

TEST(Autosave, RecoveryNamesBothVersionsAndDoesWhatWasChosen) {
    Desk desk;
    const std::string folder = desk / "autosave";
    const std::string file = desk / "doc.3dp";
    WriteFileCommitted(file, Stored(3));
    utimensat(AT_FDCWD, file.c_str(), std::array<timespec, 2>{{{86400, 0}, {86400, 0}}}.data(), 0);
    AutosaveSlot slot(folder);
    const std::string saved = "Saved version: 1970-01-02 00:00:00, ";
    const auto offer = [&](const std::string& askedFor) {
        return OfferRecovery(nullptr, folder, askedFor, slot);
    };

    Crash(folder, file, Stored(3));
    EXPECT_FALSE(offer("")) << "it says nothing that the file doesn't";
    Crash(folder, file, Stored(5));
    desk.Box(file + "\n\n" + saved, "Decide Later");
    EXPECT_FALSE(offer(""));
    desk.Box("Autosaved version: ", "Saved");
    EXPECT_EQ(offer("")->StoredBytes(), Stored(3));
    EXPECT_FALSE(offer(""));

    Crash(folder, file, Stored(5));
    desk.Box(", 307 bytes\nAutosaved version: ", "Autosaved");
    std::optional<Document> document = offer(file);
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->IsModified());
    EXPECT_EQ(document->File() + document->StoredBytes(), file + Stored(5));
    EXPECT_EQ(CountFiles(folder), 3U) << "kept by the running program now";

    WriteFileCommitted(folder + "/x.3dp", "no pattern");
    desk.Box("Kept as " + folder + "/x.3dp.damaged", "OK");
    EXPECT_FALSE(offer(file));
    Crash(folder, file, Stored(5));
    desk.Box("Autosaved version: ", "Saved");
    EXPECT_FALSE(offer(file)) << "that one is opened anyway";
    Crash(folder, "", Stored(1));
    desk.Box("never saved\n\nSaved version: none", "Discard Autosave");
    EXPECT_FALSE(offer(""));
    EXPECT_EQ(ReadWholeFile(file), Stored(3));

    WriteFileCommitted(file, "no pattern");
    Crash(folder, file, Stored(5));
    for (const std::string& askedFor : {std::string(), file}) {
        desk.Box("Autosaved version: ", "Saved").Box("not a 3D pattern", "OK");
        EXPECT_FALSE(offer(askedFor));
        EXPECT_EQ(FindCrashedAutosaves(folder).size(), 1U) << "all that is left of the work";
    }
}

namespace {

/// One session, killed as soon as it has told `steps` steps; all that it told.
std::string RunAndKill(const std::string& file, unsigned seed, int steps) {
    QProcess session;
    session.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    session.start(ORBIX_EDITING_SESSION, {QString::fromStdString(file), QString::number(seed)});
    QByteArray told;
    while (told.count('\n') < steps && session.waitForReadyRead(30000)) {
        told += session.readAllStandardOutput();
    }
    session.kill();
    session.waitForFinished();
    return (told + session.readAllStandardOutput()).toStdString();
}

int EventsIn(const std::string& file) {
    std::string reason;
    const auto document = Document::Open(file, reason);
    EXPECT_TRUE(document && !document->IsModified()) << reason;
    return document ? document->Events().CountEvents(0) : -1;
}

/// The newest state on the disk: the autosave's, or the file's when none was left.
int EventsLeft(const std::string& folder, const std::string& file) {
    const auto crashed = FindCrashedAutosaves(folder);
    EXPECT_LE(crashed.size(), 2U);  // two when it was killed while one took the other over
    return crashed.empty() ? EventsIn(file) : EventsIn(crashed.front().File());
}

}  // namespace

TEST(Autosave, FiftyKillsCostTenSecondsEachAndNeverTheSavedFile) {
    std::mt19937 random(4);
    for (int group = 0; group < 10; ++group) {
        const Desk desk;
        const std::string file = desk / "doc.3dp";
        const std::string folder = desk / "data/editing_session/autosave";
        WriteFileCommitted(file, Stored(0));
        int inFile = 0;
        for (int session = 0; session < 5; ++session) {
            const int left = EventsLeft(folder, file);
            const int steps = 1 + static_cast<int>(random() % 45);
            const std::string told = RunAndKill(file, static_cast<unsigned>(random()), steps);
            SCOPED_TRACE(told);
            std::istringstream lines(told);
            int found = -1, fewest = 0, most = 0, saved = -1, begun = -1;
            while (lines >> fewest >> most >> saved >> begun) {
                found = found < 0 ? most : found;
            }
            ASSERT_EQ(found, left);
            const int nowInFile = EventsIn(file);
            inFile = saved >= 0 ? saved : inFile;
            ASSERT_TRUE(nowInFile == inFile || nowInFile == begun) << nowInFile;
            inFile = nowInFile;
            const int nowLeft = EventsLeft(folder, file);
            ASSERT_TRUE(nowLeft >= fewest && nowLeft <= most) << nowLeft;
        }
    }
}
