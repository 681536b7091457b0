#include "host/session/failure_log.h"

#include <algorithm>

#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr std::size_t mostEntries = 100, mostBytes = 2000;

std::string shortened(std::string_view text) {
    if (text.size() <= mostBytes) return std::string(text);
    return std::string(text.substr(0, startOfCharacter(text, mostBytes))) + "\xE2\x80\xA6";
}

}  // namespace

void FailureLog::Show(std::string_view text) {
    messages_.Show(text);
    std::string kept = shortened(text);
    const auto known =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.text == kept; });
    if (known != entries_.end()) {
        ++known->times;
    } else if (entries_.size() < mostEntries) {
        entries_.push_back({std::move(kept)});
    } else {
        ++others_;
    }
}

void FailureLog::clear() {
    entries_.clear();
    others_ = 0;
}

}  // namespace quillo
