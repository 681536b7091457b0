#include "output/queued_sink.h"

namespace quillo {
namespace {

constexpr std::size_t mostWaiting = 8;

}  // namespace

QueuedSink::QueuedSink(std::unique_ptr<PageSink> inner) : inner_(std::move(inner)), painter_([this] { work(); }) {}

QueuedSink::~QueuedSink() {
    close(true);
}

void QueuedSink::page(const Page& page) {
    take(page.clone());
}

std::unique_ptr<Page> QueuedSink::take(std::unique_ptr<Page> handed) {
    std::unique_lock lock(mutex_);
    left_.wait(lock, [this] { return waiting_.size() < mostWaiting || failure_; });
    if (failure_) std::rethrow_exception(failure_);
    waiting_.push_back(std::move(handed));
    arrived_.notify_one();
    if (painted_.empty()) return nullptr;
    PagePointer spare = std::move(painted_.back());
    painted_.pop_back();
    return spare;
}

void QueuedSink::finish() {
    close(false);
    if (failure_) std::rethrow_exception(failure_);
    inner_->finish();
}

void QueuedSink::close(bool drop) {
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        if (drop) waiting_.clear();
    }
    arrived_.notify_one();
    if (painter_.joinable()) painter_.join();
}

void QueuedSink::work() {
    try {
        for (PagePointer page = exchange(nullptr); page; page = exchange(std::move(page)))
            page = inner_->take(std::move(page));
    } catch (...) {
        fail(std::current_exception());
    }
}

QueuedSink::PagePointer QueuedSink::exchange(PagePointer painted) {
    std::unique_lock lock(mutex_);
    if (painted) painted_.push_back(std::move(painted));
    arrived_.wait(lock, [this] { return !waiting_.empty() || closed_; });
    if (waiting_.empty()) return nullptr;
    PagePointer next = std::move(waiting_.front());
    waiting_.pop_front();
    left_.notify_one();
    return next;
}

void QueuedSink::fail(std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    waiting_.clear();
    left_.notify_one();
}

}  // namespace quillo
