#include "output/style_text.h"

#include <charconv>

namespace quillo {

std::string_view nameOf(Align align) {
    constexpr std::string_view names[] = {"left", "center", "right", "justify"};
    return names[static_cast<std::size_t>(align)];
}

std::string colorText(Color color) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {color.red, color.green, color.blue}) (text += digits[part >> 4]) += digits[part & 0xF];
    return text;
}

std::string styleText(const TextStyle& style) {
    static const TextStyle plain;
    char size[32];
    std::string text(size, std::to_chars(size, size + sizeof size, style.size).ptr);
    if (style.family != plain.family) text += " " + style.family;
    if (style.bold) text += " bold";
    if (style.italic) text += " italic";
    if (style.underline) text += " underline";
    if (style.wrap) text += " wrap";
    if (style.verticalAlign == VerticalAlign::middle) text += " middle";
    if (style.verticalAlign == VerticalAlign::bottom) text += " bottom";
    if (style.color != plain.color) text += " " + colorText(style.color);
    if (style.fill) text += " on " + colorText(*style.fill);
    return text;
}

}  // namespace quillo
