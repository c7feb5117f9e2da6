#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

/// A thread for calls into a system that may never come back: a sound server that dies leaves its
/// clients spinning. A call that outstays its limit is left to itself, with its thread; the next
/// one gets a new thread. Waits on the real clock. Calls of one worker must not overlap.
class LimitedWorker {
public:
    explicit LimitedWorker(std::chrono::milliseconds limit) : limit_(limit) {}
    ~LimitedWorker();
    LimitedWorker(const LimitedWorker&) = delete;
    LimitedWorker& operator=(const LimitedWorker&) = delete;

    /// Runs `call` on the worker's thread; false when it didn't come back in time, or no thread
    /// could be had. The call must own all that it touches (by shared pointers), and throw nothing.
    bool Run(std::function<void()> call);

    /// The same for a call with a result; nothing when it didn't come back in time.
    template <typename Call>
    auto Ask(Call call) -> std::optional<decltype(call())> {
        auto answer = std::make_shared<std::optional<decltype(call())>>();
        if (!Run([answer, call = std::move(call)]() mutable { *answer = call(); })) {
            return std::nullopt;
        }
        return std::move(*answer);
    }

private:
    struct Desk;

    bool Start();
    static void Serve(const std::shared_ptr<Desk>& desk);

    std::chrono::milliseconds limit_;
    std::shared_ptr<Desk> desk_;
    std::thread thread_;
};
