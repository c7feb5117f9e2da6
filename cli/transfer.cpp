#include "cli/transfer.h"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

#include "cli/exit_codes.h"
#include "link/local_link.h"
#include "platform/hooks.h"
#include "ports/playback.h"

namespace {

constexpr DWORD kProgressAfterMilliseconds = 500;
constexpr DWORD kProgressEveryMilliseconds = 100;

static_assert(std::atomic<std::size_t>::is_always_lock_free, "a signal handler reads them");
std::atomic<std::size_t> sentMessages = 0;
std::atomic<std::size_t> allMessages = 0;

// A transfer may be waiting for another holder or for a system that doesn't answer, so it isn't
// asked to end. Only calls that a signal handler may make.
void EndOnInterrupt(int /*signal*/) {
    char words[96] = "\norbix: stopped; ";
    char* end = words + std::strlen(words);
    const auto append = [&end](const char* text) {
        while (*text != '\0') {
            *end++ = *text++;
        }
    };
    const auto appendNumber = [&](std::size_t number) {
        char digits[24] = {};
        char* first = digits + sizeof digits - 1;
        do {
            *--first = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number > 0);
        append(first);
    };
    appendNumber(sentMessages);
    append(" of ");
    appendNumber(allMessages);
    append(" messages went out\n");
    [[maybe_unused]] const ssize_t written =
        ::write(STDERR_FILENO, words, static_cast<std::size_t>(end - words));
    ::_exit(static_cast<int>(ExitCode::notSent));
}

// A line on the terminal that counts, once a transfer takes longer than a moment.
class ProgressLine {
public:
    explicit ProgressLine(bool quiet) : shown_(!quiet && ::isatty(STDERR_FILENO) == 1) {}
    ~ProgressLine() {
        if (begun_) {
            std::fputc('\n', stderr);
        }
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(std::size_t sent) {
        const DWORD now = GetTickCount();
        if (shown_ && now - start_ >= kProgressAfterMilliseconds &&
            (!begun_ || now - last_ >= kProgressEveryMilliseconds || sent == allMessages)) {
            std::fprintf(stderr, "\r%zu of %zu messages", sent, allMessages.load());
            begun_ = true;
            last_ = now;
        }
    }

private:
    bool shown_;
    bool begun_ = false;
    DWORD start_ = GetTickCount();
    DWORD last_ = 0;
};

std::string ReasonOf(const Device& device) {
    const CString words = device.FailureText();
    return words.empty() ? "another program holds the device" : words;
}

}  // namespace

void RunTransfer(const Transfer& transfer) {
    allMessages = transfer.messages.size();
    std::signal(SIGINT, &EndOnInterrupt);
    std::signal(SIGTERM, &EndOnInterrupt);
    const std::unique_ptr<Device> device = MakeDevice(transfer.target);
    LocalLink link;
    link.Open(LinkName(transfer.target), *device);
    ProgressLine progress(transfer.quiet);
    const std::size_t sent = PlayOut(transfer.messages, transfer.gap,
                                     {[&link](const std::string& message) {
                                          const auto length =
                                              static_cast<std::uint32_t>(message.size());
                                          return link.Manager().SendData(message.data(), length) ==
                                                 static_cast<std::int32_t>(length);
                                      },
                                      [&progress](std::size_t count) {
                                          sentMessages = count;
                                          progress.Show(count);
                                      }});
    if (sent < transfer.messages.size()) {
        throw Failure(ExitCode::notSent, transfer.target.name + ": " + ReasonOf(*device) + "; " +
                                             std::to_string(sent) + " of " +
                                             std::to_string(transfer.messages.size()) +
                                             " messages went out");
    }
}
