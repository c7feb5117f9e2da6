#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

/// A new folder, in that for temporary files or another one; gone with the object.
class TemporaryFolder {
public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : path_((parent / "orbix-XXXXXX").string()) {
        EXPECT_NE(::mkdtemp(path_.data()), nullptr);
        // For a test that lays down the rights of its user.
        std::filesystem::permissions(path_, std::filesystem::perms{0755});
    }
    ~TemporaryFolder() {
        std::filesystem::current_path("/");  // It may be this very folder.
        std::filesystem::remove_all(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};
