#include "host/services/localizer.h"

#include <charconv>
#include <optional>

#include "framework/engine/report.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

// The number of "Lng=1911;" in a tag.
std::optional<int> textId(std::string_view tag) {
    constexpr std::string_view mark = "Lng=";
    const auto start = tag.find(mark);
    if (start == std::string_view::npos) return std::nullopt;
    const char* digits = tag.data() + start + mark.size();
    int id = 0;
    const auto [end, error] = std::from_chars(digits, tag.data() + tag.size(), id);
    if (error != std::errc{} || end == tag.data() + tag.size() || *end != ';') return std::nullopt;
    return id;
}

}  // namespace

void TagLocalizer::Translate(Report& report) {
    std::optional<NameError> missing;
    for (const auto& section : report.sections()) {
        for (const auto& control : section->controls) {
            auto* label = dynamic_cast<Label*>(control.get());
            const auto id = label != nullptr ? textId(label->Tag) : std::nullopt;
            if (!id) continue;
            try {
                label->Caption = language_.text(*id);
            } catch (const NameError& failure) {
                if (!missing) missing = failure;
            }
        }
    }
    if (missing) throw NameError(*missing);
}

}  // namespace quillo
