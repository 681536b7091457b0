#include "host/language/placeholders.h"

namespace quillo {

std::string withArguments(std::string_view pattern, const std::vector<std::string>& arguments) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const auto place = i + 1 < pattern.size() ? static_cast<std::size_t>(pattern[i + 1] - '1') : arguments.size();
        if (pattern[i] == '%' && place < arguments.size()) {
            text += arguments[place];
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

}  // namespace quillo
