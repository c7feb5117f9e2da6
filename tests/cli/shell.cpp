#include "shell.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

// The address sanitizer reserves terabytes of addresses and can't live under a limit.
#ifdef __SANITIZE_ADDRESS__
constexpr const char* kPrelude = "PATH='" ORBIX_PROGRAM_FOLDER "':$PATH && ";
#else
constexpr const char* kPrelude = "PATH='" ORBIX_PROGRAM_FOLDER "':$PATH && ulimit -S -v 131072 && ";
#endif

}  // namespace

std::string ReadBytes(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

Shell::Shell() {
    fs::create_directory(folder_ / "work");
}

Outcome Shell::Run(const std::string& line, const std::string& input) const {
    std::ofstream(folder_ / "in", std::ios::binary) << input;
    // The locks of a device stay where they were made.
    const std::string command =
        "cd '" + folder_ / "work" + "' && export XDG_RUNTIME_DIR='" + folder_.Path() +
        "' && EXAMPLES='" ORBIX_EXAMPLES "' SMF='" ORBIX_TEST_DATA "/smf' && " + kPrelude + "{ " +
        line + "\n} <../in >../out 2>../err";
    const int status = std::system(command.c_str());
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {code, ReadBytes(folder_ / "out"), ReadBytes(folder_ / "err")};
}

std::set<std::string> Shell::Names() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_ / "work")) {
        names.insert(entry.path().filename().string());
    }
    return names;
}
