#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::size_t LinesOf(const char* path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kSpare = 100;  // The sanitizer keeps mappings of its own.
#else
constexpr std::size_t kSpare = 2;
#endif

TEST(Library, LoadsAndUnloadsAHundredTimes) {
    std::size_t mappings = 0;
    for (int round = 0; round < 100; ++round) {
        void* library = dlopen(ORBIX_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        ASSERT_NE(dlsym(library, "_ZTV13COrbixMainDlg"), nullptr) << dlerror();
        ASSERT_EQ(dlclose(library), 0);
        if (round == 10) {
            mappings = LinesOf("/proc/self/maps");
        }
    }
    EXPECT_LE(LinesOf("/proc/self/maps"), mappings + kSpare) << "the heap may split a mapping";
}

}  // namespace
