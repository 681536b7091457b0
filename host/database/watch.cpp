#include "host/database/watch.h"

#include <random>
#include <thread>

namespace quillo::sqlite {

// Short and uneven naps: two programs that take turns do not miss each other for long, and a stop is seen at once.
bool Watch::wait(Clock::time_point since, std::chrono::milliseconds most) const {
    static thread_local std::minstd_rand random{std::random_device{}()};
    if (over() || Clock::now() - since >= most) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(500 + random() % 4500));
    return true;
}

bool Watch::wait(int turn) {
    if (turn == 0) waitingSince_ = Clock::now();
    return wait(waitingSince_);
}

}  // namespace quillo::sqlite
