#include "ports/limited_worker.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

// Where caller and thread meet; a thread that is left to itself keeps its own.
struct LimitedWorker::Desk {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> call;
    bool busy = false;  // a call waits or runs
    bool ended = false;
};

LimitedWorker::~LimitedWorker() {
    if (desk_ != nullptr) {
        {
            const std::lock_guard guard(desk_->mutex);
            desk_->ended = true;
        }
        desk_->changed.notify_all();
        thread_.join();
    }
}

bool LimitedWorker::Run(std::function<void()> call) {
    if (desk_ == nullptr && !Start()) {
        return false;
    }
    std::unique_lock lock(desk_->mutex);
    desk_->call = std::move(call);
    desk_->busy = true;
    desk_->changed.notify_all();
    if (desk_->changed.wait_for(lock, limit_, [this] { return !desk_->busy; })) {
        return true;
    }
    desk_->ended = true;
    lock.unlock();
    thread_.detach();
    desk_.reset();
    return false;
}

bool LimitedWorker::Start() {
    auto desk = std::make_shared<Desk>();
    try {
        thread_ = std::thread(&LimitedWorker::Serve, desk);
    } catch (const std::system_error&) {
        return false;
    }
    desk_ = std::move(desk);
    return true;
}

void LimitedWorker::Serve(const std::shared_ptr<Desk>& desk) {
    std::unique_lock lock(desk->mutex);
    while (!desk->ended) {
        if (desk->call) {
            std::function<void()> call = std::move(desk->call);
            desk->call = nullptr;
            lock.unlock();
            call();
            call = nullptr;  // What it holds is let go over here, too.
            lock.lock();
            desk->busy = false;
            desk->changed.notify_all();
        } else {
            desk->changed.wait(lock);
        }
    }
}
