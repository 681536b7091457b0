#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/services/services.h"

namespace quillo {

// Passes each failure box on, and keeps what the pages of the report tell of them: the first texts that differ, with
// how often each came. A text that is too long for a page is kept without its end. Memory does not grow with the boxes.
class FailureLog final : public Messages {
public:
    // messages shows the boxes and must outlive the log.
    explicit FailureLog(Messages& messages) : messages_(messages) {}
    void Show(std::string_view text) override;

    struct Entry {
        std::string text;
        long times = 1;
    };
    bool empty() const { return entries_.empty(); }
    const std::vector<Entry>& entries() const { return entries_; }
    // Boxes beside those of the entries.
    long others() const { return others_; }
    void clear();

private:
    Messages& messages_;
    std::vector<Entry> entries_;
    long others_ = 0;
};

}  // namespace quillo
