#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include "platform/hooks.h"

/// A clock that only sleeping moves on; `onSleep` may act in the rests of the thread that made it.
struct FakeClock {
    FakeClock() {
        Hooks().tickCount = [this] { return now.load(); };
        Hooks().sleep = [this](DWORD milliseconds) {
            now += milliseconds;
            if (std::this_thread::get_id() == maker && onSleep) {
                onSleep(milliseconds);
            }
            std::this_thread::yield();
        };
        Hooks().waitCursor = [this](bool on) { cursor.push_back(on); };
    }
    DWORD Elapsed() const { return now - kStart; }

    static constexpr DWORD kStart = 0xFFFFFF00;  // wraps in the middle of what is measured
    HooksScope scope;
    std::thread::id maker = std::this_thread::get_id();
    std::atomic<DWORD> now = kStart;
    std::function<void(DWORD)> onSleep;
    std::vector<bool> cursor;
};

/// The real clock, five times as fast.
struct FastClock {
    FastClock() {
        Hooks().tickCount = [] {
            const auto now = std::chrono::steady_clock::now().time_since_epoch();
            return static_cast<DWORD>(now / std::chrono::microseconds(200));
        };
        Hooks().sleep = [](DWORD milliseconds) {
            std::this_thread::sleep_for(std::chrono::microseconds(200) * milliseconds);
        };
        Hooks().waitCursor = [this](bool on) { waits += on ? 1 : 0; };
    }
    HooksScope scope;
    std::atomic<int> waits = 0;
};
