#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "framework/engine/page.h"

namespace quillo {

// Lets the wrapped sink paint and write on a thread of its own while the engine goes on. A few pages wait at most; then
// the engine waits. What the wrapped sink throws ends the run: the engine's next page, or finish(), throws it. The
// wrapped sink must not share a text shaper or anything else with the engine's thread; its finish() runs on that one,
// when the other has ended.
class QueuedSink final : public PageSink {
public:
    explicit QueuedSink(std::unique_ptr<PageSink> inner);
    // Without finish() the pages that wait are dropped.
    ~QueuedSink() override;

    void page(const Page& page) override;
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override;
    void finish() override;

private:
    using Pages = std::vector<std::unique_ptr<Page>>;

    void work();
    // On the second thread: gives painted pages back and takes those that wait; false when none will come.
    bool exchange(Pages& pages);
    void fail(std::exception_ptr failure);
    void close();

    std::unique_ptr<PageSink> inner_;
    std::atomic<bool> dropped_ = false;  // nobody wants the pages that are left
    std::mutex mutex_;                   // for all below but the thread
    std::condition_variable arrived_, left_;
    Pages waiting_;
    Pages painted_;  // for the engine to use again
    std::exception_ptr failure_;
    bool closed_ = false;  // no page follows
    std::thread painter_;
};

}  // namespace quillo
