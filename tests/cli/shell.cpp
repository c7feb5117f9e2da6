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
    std::string pattern = (fs::temp_directory_path() / "orbix-cli-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    fs::create_directory(folder_ + "/work");
}

Shell::~Shell() {
    std::error_code error;
    fs::remove_all(folder_, error);
}

Outcome Shell::Run(const std::string& line, const std::string& input) const {
    std::ofstream(folder_ + "/in", std::ios::binary) << input;
    const std::string command = "cd '" + folder_ +
                                "/work' && EXAMPLES='" ORBIX_EXAMPLES "' SMF='" ORBIX_TEST_DATA
                                "/smf' && " +
                                kPrelude + "{ " + line + "\n} <../in >../out 2>../err";
    const int status = std::system(command.c_str());
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {code, ReadBytes(folder_ + "/out"), ReadBytes(folder_ + "/err")};
}

std::set<std::string> Shell::Names() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_ + "/work")) {
        names.insert(entry.path().filename().string());
    }
    return names;
}
