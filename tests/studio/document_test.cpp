#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "params/pattern_form.h"
#include "params/position_block.h"
#include "params/value_forms.h"
#include "studio/document.h"
#include "tests/studio/desk.h"

namespace {

std::string Stored(const CQelCPB_3DPattern& pattern) {
    return WritePatternBytes(pattern);
}

/// No file may grow beyond some bytes while this lives.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &old_); }

private:
    rlimit old_{};
};

/// The rights of an ordinary user while this lives, also where the tests are run by root.
class OrdinaryUser {
public:
    OrdinaryUser() : root_(geteuid() == 0 && setresuid(65534, 65534, 0) == 0) {}
    ~OrdinaryUser() {
        if (root_) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
    }

private:
    bool root_;
};

}  // namespace

TEST(StudioDocument, OpenRefusesEachFaultWithItsWords) {
    const Desk desk;
    const std::string good = Stored(Positions(3));
    PutBytes(desk / "text.3dp", "Division,480\r\n");
    PutBytes(desk / "empty.3dp", "");
    PutBytes(desk / "short.3dp", good.substr(0, 40));
    PutBytes(desk / "secret.3dp", good);
    mkfifo((desk / "pipe.3dp").c_str(), 0600);
    chmod((desk / "secret.3dp").c_str(), 0);
    chmod(desk.Folder().c_str(), 0755);
    const std::string none = ": cannot be read: ";
    const struct {
        std::string file;
        PatternFileFault kind;
        std::string words;
    } cases[] = {
        {desk.Folder().string(), PatternFileFault::unreadable, none + "Is a directory"},
        {desk / "gone.3dp", PatternFileFault::unreadable, none + "No such file or directory"},
        {desk / "pipe.3dp", PatternFileFault::unreadable, none + "not a plain file"},
        {"/dev/zero", PatternFileFault::unreadable, none + "not a plain file"},
        {desk / "secret.3dp", PatternFileFault::unreadable, none + "Permission denied"},
        {desk / "text.3dp", PatternFileFault::noPattern, ": not a 3D pattern: at byte "},
        {desk / "empty.3dp", PatternFileFault::noPattern, ": not a 3D pattern: expected a stored"},
        {desk / "short.3dp", PatternFileFault::noPattern, ": not a 3D pattern: at byte "},
    };
    const OrdinaryUser user;
    for (const auto& fault : cases) {
        std::string reason;
        PatternFileFault kind{};
        EXPECT_FALSE(Document::Open(fault.file, reason, &kind).has_value()) << fault.file;
        EXPECT_EQ(reason.substr(0, (fault.file + fault.words).size()), fault.file + fault.words);
        EXPECT_EQ(kind, fault.kind) << reason;
    }
}

TEST(StudioDocument, AFailedSaveChangesNoFileAndKeepsTheDocumentModified) {
    const Desk desk;
    const std::string old = Stored(Positions(3));
    PutBytes(desk / "old.3dp", old);
    PutBytes(desk / "locked.3dp", old);
    chmod((desk / "locked.3dp").c_str(), 0444);
    mkdir((desk / "folder.3dp").c_str(), 0777);
    chmod(desk.Folder().c_str(), 0777);
    std::string reason;
    auto document = Document::Open(desk / "old.3dp", reason);
    ASSERT_TRUE(document) << reason;
    document->TakeEdited(Positions(200));
    const std::string before = desk.Files();
    const auto expectRefused = [&](const std::string& file, const std::string& words) {
        EXPECT_FALSE(document->Save(file, reason));
        EXPECT_EQ(reason, file + ": cannot be written: " + words);
        EXPECT_EQ(desk.Files(), before);
        EXPECT_TRUE(document->IsModified());
        EXPECT_EQ(document->File(), desk / "old.3dp");
        EXPECT_EQ(document->StoredBytes(), Stored(Positions(200)));
    };
    {
        const OrdinaryUser user;
        expectRefused(desk / "locked.3dp", "Permission denied");
    }
    expectRefused(desk / "gone/new.3dp", "No such file or directory");
    expectRefused(desk / "folder.3dp", "Is a directory");
    expectRefused(desk / (std::string(253, 'x') + ".3dp"), "File name too long");
    {
        const FullDisk full(4096);
        expectRefused(desk / "old.3dp", "File too large");
    }
    for (const std::string& name : {std::string("old.3dp"), std::string("Größe und \n 音.3dp"),
                                    std::string("-x \xFF.3dp"), std::string(251, 'x') + ".3dp"}) {
        EXPECT_TRUE(document->Save(desk / name, reason)) << reason;
        EXPECT_EQ(Bytes(desk / name), document->StoredBytes());
        EXPECT_TRUE(!document->IsModified() && document->File() == desk / name);
    }
}

TEST(StudioDocument, OpeningIsCleanUnlessTheLoadCorrects) {
    const Desk desk;
    std::string reason;
    PutBytes(desk / "clean.3dp", Stored(Positions(8)));
    const auto clean = Document::Open(desk / "clean.3dp", reason);
    ASSERT_TRUE(clean);
    EXPECT_TRUE(!clean->IsModified() && clean->Report().IsEmpty());
    EXPECT_EQ(clean->StoredBytes(), Bytes(desk / "clean.3dp"));

    PutBytes(desk / "bad.3dp", Stored(Positions(8, 6)));
    auto corrected = Document::Open(desk / "bad.3dp", reason);
    ASSERT_TRUE(corrected && corrected->IsModified());
    ASSERT_EQ(corrected->Report().Lines().size(), 6U);
    EXPECT_EQ(corrected->Report().Lines()[5],
              "Index=6 : TimeSig. 99/4 out of range (Entry ignored)");
    ASSERT_TRUE(corrected->Save(desk / "bad.3dp", reason));
    EXPECT_EQ(Bytes(desk / "bad.3dp"), Bytes(desk / "clean.3dp"));

    // A pattern may hold more than the table takes.
    CQelCPB_3DPattern many = Positions(1024);
    st_paramChild extra{0, -1, new CQelCPB_3DPosition};
    ASSERT_TRUE(many.SetParam(2900, &extra, kSizeParamChild));
    PutBytes(desk / "many.3dp", Stored(many));
    const auto limited = Document::Open(desk / "many.3dp", reason);
    ASSERT_TRUE(limited && limited->IsModified());
    EXPECT_EQ(limited->Report().Lines().back(),
              "1 events over the limit of 256 an ID (Entries ignored)");
}
