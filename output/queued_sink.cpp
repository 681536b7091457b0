#include "output/queued_sink.h"

namespace quillo {
namespace {

// Pages change hands by the handful, so that the threads seldom wait for each other.
constexpr std::size_t handful = 4, mostWaiting = 8;

}  // namespace

QueuedSink::QueuedSink(std::unique_ptr<PageSink> inner) : inner_(std::move(inner)), painter_([this] { work(); }) {}

QueuedSink::~QueuedSink() {
    dropped_ = true;
    close();
}

void QueuedSink::page(const Page& page) {
    take(page.clone());
}

std::unique_ptr<Page> QueuedSink::take(std::unique_ptr<Page> handed) {
    std::unique_lock lock(mutex_);
    left_.wait(lock, [this] { return waiting_.size() < mostWaiting || failure_; });
    if (failure_) std::rethrow_exception(failure_);
    waiting_.push_back(std::move(handed));
    if (waiting_.size() == handful) arrived_.notify_one();
    if (painted_.empty()) return nullptr;
    auto spare = std::move(painted_.back());
    painted_.pop_back();
    return spare;
}

void QueuedSink::finish() {
    close();
    if (failure_) std::rethrow_exception(failure_);
    inner_->finish();
}

void QueuedSink::close() {
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
    }
    arrived_.notify_one();
    if (painter_.joinable()) painter_.join();
}

void QueuedSink::work() {
    try {
        for (Pages pages; exchange(pages);) {
            for (auto& page : pages) {
                if (dropped_) return;
                page = inner_->take(std::move(page));
            }
        }
    } catch (...) {
        fail(std::current_exception());
    }
}

bool QueuedSink::exchange(Pages& pages) {
    std::unique_lock lock(mutex_);
    for (auto& page : pages)
        if (page) painted_.push_back(std::move(page));
    pages.clear();
    arrived_.wait(lock, [this] { return waiting_.size() >= handful || closed_; });
    pages.swap(waiting_);
    left_.notify_one();
    return !pages.empty();
}

void QueuedSink::fail(std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    left_.notify_one();
}

}  // namespace quillo
