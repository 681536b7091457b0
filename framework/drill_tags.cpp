#include "framework/drill_tags.h"

#include "framework/values/names.h"

namespace quillo {

std::string webTag(std::string_view address) {
    constexpr std::string_view scheme = "http://";
    if (equalNames(address.substr(0, scheme.size()), scheme)) return std::string(address);
    return std::string(scheme) + std::string(address);
}

std::string mailTag(std::string_view address) {
    return "mailto:" + std::string(address);
}

}  // namespace quillo
