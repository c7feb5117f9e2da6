#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

#include "link/local_link.h"

/// A device that shows when two sides use it at a time: each block makes a file that must not be
/// there, appends a byte to a log and removes the file. An overlap appends '!'.
class ContestedDevice : public Device {
public:
    explicit ContestedDevice(std::string folder) : folder_(std::move(folder)) {}
    bool PrepareOutput(std::uint32_t) override { return true; }
    std::int32_t WriteBlock(const void* data, std::uint32_t length) override {
        const std::string mark = folder_ + "/inside";
        const int inside = ::open(mark.c_str(), O_CREAT | O_EXCL | O_RDWR, 0600);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        const int log = ::open((folder_ + "/log").c_str(), O_CREAT | O_APPEND | O_WRONLY, 0600);
        const bool written = ::write(log, inside >= 0 ? data : "!", 1) == 1;
        ::close(log);
        ::close(inside);
        ::unlink(mark.c_str());
        return written ? static_cast<std::int32_t>(length) : -1;
    }

private:
    std::string folder_;
};

/// Sends `letter` until `count` went out, each time after another side had the chance to ask.
inline void SendRepeatedly(LocalLink& link, char letter, int count) {
    while (count > 0) {
        count -= link.Manager().SendData(&letter, 1) == 1 ? 1 : 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
