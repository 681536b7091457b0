#include "framework/engine/controls.h"

#include <charconv>

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool applyPart(TextStyle& style, std::string_view property, std::string_view value) {
    if (equalNames(property, "font-size")) {
        if (value.ends_with("pt")) value.remove_suffix(2);
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), style.size);
        return error == std::errc{} && end == value.data() + value.size() && style.size > 0;
    }
    if (equalNames(property, "font-family")) {
        style.family = value;
        return !value.empty();
    }
    if (equalNames(property, "font-weight")) {
        style.bold = equalNames(value, "bold");
        return style.bold || equalNames(value, "normal");
    }
    if (equalNames(property, "font-style")) {
        style.italic = equalNames(value, "italic");
        return style.italic || equalNames(value, "normal");
    }
    if (equalNames(property, "text-decoration")) {
        style.underline = equalNames(value, "underline");
        return style.underline || equalNames(value, "none");
    }
    if (equalNames(property, "text-align")) {
        constexpr std::pair<std::string_view, Align> names[] = {
            {"left", Align::left}, {"center", Align::center}, {"right", Align::right}, {"justify", Align::justify}};
        for (const auto& [name, align] : names) {
            if (!equalNames(value, name)) continue;
            style.align = align;
            return true;
        }
    }
    return false;
}

}  // namespace

StyleProperty& StyleProperty::operator=(std::string_view css) {
    TextStyle style = value_;
    for (std::string_view rest = css; !trimmed(rest).empty();) {
        const auto end = std::min(rest.find(';'), rest.size());
        const std::string_view part = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const auto colon = part.find(':');
        if (colon == std::string_view::npos ||
            !applyPart(style, trimmed(part.substr(0, colon)), trimmed(part.substr(colon + 1))))
            throw InputError("The style \"" + std::string(css) + "\" cannot be read at \"" +
                             std::string(trimmed(part)) + "\"");
    }
    edit() = style;
    return *this;
}

Variant DataControl::Collect(std::string_view column) const {
    if (!Recordset) throw DatabaseError("The report has no recordset");
    return Recordset->Collect(column);
}

Control* Section::find(std::string_view name) const {
    for (const auto& control : controls)
        if (equalNames(control->Name(), name)) return control.get();
    return nullptr;
}

}  // namespace quillo
