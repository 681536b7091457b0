#include "framework/drill_tags.h"

#include "framework/values/names.h"
#include "framework/values/printable.h"
#include "framework/values/text.h"
#include "framework/values/utf8.h"

namespace quillo {

namespace {

// Nothing that a page's reader could be led astray by: no line break that would end a header, no other scheme than the
// web's, no sign that is not seen.
bool isHarmless(std::string_view address) {
    for (std::size_t pos = 0; pos < address.size();)
        if (isControl(nextCharacter(address, pos))) return false;
    return !containsName(address, "%0d") && !containsName(address, "%0a");
}

bool namesOtherScheme(std::string_view address) {
    for (const std::string_view scheme : {"javascript:", "vbscript:", "data:", "file:"})
        if (equalNames(trimmed(address).substr(0, scheme.size()), scheme)) return true;
    return false;
}

}  // namespace

std::string webTag(std::string_view address) {
    constexpr std::string_view scheme = "http://";
    if (!isHarmless(address) || namesOtherScheme(address)) return {};
    if (equalNames(address.substr(0, scheme.size()), scheme)) return std::string(address);
    return std::string(scheme) + std::string(address);
}

std::string mailTag(std::string_view address) {
    if (!isHarmless(address) || namesOtherScheme(address)) return {};
    return "mailto:" + std::string(address);
}

}  // namespace quillo
