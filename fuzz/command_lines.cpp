// The command line, whole and in one process: an argument a line up to an empty line, then what
// stands in the files in.3dp, in.csv and in.mid. It works in a folder of its own, and no argument
// reaches outside, because slashes are taken out.

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "platform/hooks.h"

int OrbixMain(int count, char** arguments);

namespace {

namespace fs = std::filesystem;

constexpr int kLargestExitCode = 5;

class Folder {
public:
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "orbix-fuzz-XXXXXX").string();
        Require(mkdtemp(pattern.data()) != nullptr, "there is a folder to work in");
        path_ = pattern;
        fs::current_path(path_);
    }
    ~Folder() {
        fs::current_path("/");
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    void Empty() const {
        for (const auto& entry : fs::directory_iterator(path_)) {
            fs::remove_all(entry.path());
        }
    }

private:
    fs::path path_;
};

std::vector<std::string> ArgumentsOf(std::string text) {
    std::replace(text.begin(), text.end(), '/', '_');
    std::vector<std::string> arguments = {"orbix"};
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        arguments.push_back(text.substr(at, end - at).c_str());  // an argument ends at a zero
        at = end + 1;
    }
    return arguments;
}

// These reach the machine's MIDI systems and take their time for it.
bool IsForPorts(const std::vector<std::string>& arguments) {
    return std::ranges::any_of(arguments, [](const std::string& argument) {
        return argument == "send" || argument == "ports";
    });
}

}  // namespace

// The toolkit-free program writes to the standard streams; the fuzzer's own words go on as it
// kept the real stderr.
extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
    Require(std::freopen("/dev/null", "w", stdout) != nullptr, "there is a null device");
    stderr = std::fopen("/dev/null", "w");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t blank = std::min(input.find("\n\n"), input.size());
    const std::string content = input.substr(std::min(blank + 2, input.size()));
    folder.Empty();
    for (const char* name : {"in.3dp", "in.csv", "in.mid"}) {
        std::ofstream(name, std::ios::binary) << content;
    }
    Require(std::freopen("in.csv", "r", stdin) != nullptr, "the standard input opens");
    std::vector<std::string> arguments = ArgumentsOf(input.substr(0, blank));
    if (IsForPorts(arguments)) {
        return 0;
    }
    std::vector<char*> pointers;
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    const HooksScope scope;
    const int code = OrbixMain(static_cast<int>(arguments.size()), pointers.data());
    Require(code >= 0 && code <= kLargestExitCode, "the exit code is one of the stated ones");
    return 0;
}
