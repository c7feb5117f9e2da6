#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "params/pattern_form.h"
#include "params/position_block.h"
#include "params/value_forms.h"
#include "platform/files.h"
#include "studio/document.h"
#include "tests/studio/desk.h"
#include "tests/support/file_limit.h"

// What a file must hold is tested where it is read; here, what is not even looked at.
TEST(StudioDocument, OpenRefusesWhatIsNoFileAndKeepsTheWords) {
    const Desk desk;
    mkfifo((desk / "pipe.3dp").c_str(), 0600);
    WriteFileCommitted(desk / "text.3dp", "Division,480\r\n");
    const std::tuple<std::string, PatternFileFault, std::string> cases[] = {
        {desk.Folder(), PatternFileFault::unreadable, ": cannot be read: Is a directory"},
        {desk / "pipe.3dp", PatternFileFault::unreadable, ": cannot be read: not a plain file"},
        {"/dev/zero", PatternFileFault::unreadable, ": cannot be read: not a plain file"},
        {desk / "text.3dp", PatternFileFault::noPattern, ": not a 3D pattern: at byte "}};
    for (const auto& [file, expected, words] : cases) {
        std::string reason;
        PatternFileFault kind{};
        EXPECT_FALSE(Document::Open(file, reason, &kind).has_value()) << file;
        EXPECT_EQ(reason.substr(0, (file + words).size()), file + words);
        EXPECT_EQ(kind, expected) << reason;
    }
}

TEST(StudioDocument, AFailedSaveChangesNoFileAndKeepsTheDocumentModified) {
    const Desk desk;
    WriteFileCommitted(desk / "old.3dp", Stored(3));
    WriteFileCommitted(desk / "locked.3dp", Stored(3));
    chmod((desk / "locked.3dp").c_str(), 0444);
    chmod(desk.Folder().c_str(), 0777);
    std::string reason;
    auto document = Document::Open(desk / "old.3dp", reason);
    ASSERT_TRUE(document) << reason;
    document->TakeEdited(std::make_unique<CQelCPB_3DPattern>(Positions(200)));
    const auto before = desk.Files();
    const auto expectRefused = [&](const std::string& file, const std::string& words) {
        EXPECT_FALSE(document->Save(file, reason));
        EXPECT_EQ(reason, file + ": cannot be written: " + words);
        EXPECT_EQ(desk.Files(), before);
        EXPECT_TRUE(document->IsModified());
        EXPECT_EQ(document->File(), desk / "old.3dp");
        EXPECT_EQ(document->StoredBytes(), Stored(200));
    };
    // The rights of an ordinary user, also where the tests are run by root.
    const bool isRoot = geteuid() == 0 && setresuid(65534, 65534, 0) == 0;
    expectRefused(desk / "locked.3dp", "Permission denied");
    ASSERT_TRUE(!isRoot || setresuid(0, 0, 0) == 0);
    expectRefused(desk / (std::string(253, 'x') + ".3dp"), "File name too long");
    {
        const FileLimit limit(4096);
        expectRefused(desk / "old.3dp", "File too large");
    }
    for (const std::string& name : {std::string("old.3dp"), std::string("Größe und \n 音.3dp"),
                                    std::string("-x \xFF.3dp"), std::string(251, 'x') + ".3dp"}) {
        EXPECT_TRUE(document->Save(desk / name, reason)) << reason;
        EXPECT_EQ(ReadWholeFile(desk / name), document->StoredBytes());
        EXPECT_TRUE(!document->IsModified() && document->File() == desk / name);
    }
}

TEST(StudioDocument, OpeningIsCleanUnlessTheLoadCorrects) {
    const Desk desk;
    std::string reason;
    WriteFileCommitted(desk / "clean.3dp", Stored(8));
    const auto clean = Document::Open(desk / "clean.3dp", reason);
    ASSERT_TRUE(clean && !clean->IsModified() && clean->Report().IsEmpty());
    EXPECT_EQ(clean->StoredBytes(), Stored(8));

    WriteFileCommitted(desk / "bad.3dp", Stored(8, 6));
    auto corrected = Document::Open(desk / "bad.3dp", reason);
    ASSERT_TRUE(corrected && corrected->IsModified());
    EXPECT_EQ(corrected->Report().Lines().size(), 6U);
    ASSERT_TRUE(corrected->Save(desk / "bad.3dp", reason));
    EXPECT_EQ(ReadWholeFile(desk / "bad.3dp"), Stored(8));

    // A pattern may hold more than the table takes.
    CQelCPB_3DPattern many = Positions(1024);
    st_paramChild extra{0, -1, new CQelCPB_3DPosition};
    ASSERT_TRUE(many.SetParam(2900, &extra, kSizeParamChild));
    WriteFileCommitted(desk / "many.3dp", WritePatternBytes(many));
    const auto limited = Document::Open(desk / "many.3dp", reason);
    ASSERT_TRUE(limited && limited->IsModified());
    EXPECT_EQ(limited->Report().Lines().back(),
              "1 events over the limit of 256 an ID (Entries ignored)");
}
