#pragma once

#include <atomic>
#include <chrono>

namespace quillo::sqlite {

// What ends a connection's work early, and how long it waits for another program that has the file locked.
class Watch {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds patience{10};

    // While the flag is true, whatever runs or waits ends. nullptr: none.
    void setStopFlag(const std::atomic<bool>* stop) { stop_ = stop; }
    const std::atomic<bool>* stopFlag() const { return stop_; }
    void setDeadline(Clock::time_point deadline) { deadline_ = deadline; }

    bool stopped() const { return stop_ != nullptr && stop_->load(std::memory_order_relaxed); }
    bool over() const { return stopped() || (deadline_ != Clock::time_point::max() && Clock::now() > deadline_); }

    // Sleeps a little; false when it has waited long enough since then, or is not to wait any more.
    bool wait(Clock::time_point since, std::chrono::milliseconds most = patience) const;
    // The same for a wait that starts with its turn 0.
    bool wait(int turn);

private:
    const std::atomic<bool>* stop_ = nullptr;
    Clock::time_point deadline_ = Clock::time_point::max();
    Clock::time_point waitingSince_;
};

}  // namespace quillo::sqlite
