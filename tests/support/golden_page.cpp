#include "tests/support/golden_page.h"

#include <algorithm>
#include <cmath>

#include "output/style_text.h"

namespace quillo::test {
namespace {

std::string twips(float value) {
    return std::to_string(std::lround(value));
}

// A text in one line.
std::string inOneLine(std::string_view text) {
    std::string line;
    for (const char letter : text) {
        if (letter == '\n')
            line += " / ";
        else if (letter != '\r')
            line += letter;
    }
    return line;
}

void write(const PlacedSection& section, const std::string& indent, std::string& text);

void write(const PlacedControl& control, const std::string& indent, std::string& text) {
    text += indent + control.info->name + " " + twips(control.left) + "," + twips(control.top) + " " +
            twips(control.width) + "x" + twips(control.height);
    const ControlKind kind = control.info->kind;
    if (kind == ControlKind::label || kind == ControlKind::field || kind == ControlKind::richEdit)
        text += " " + std::string(nameOf(control.style->align)) + " " + styleText(*control.style) +
                (control.text.empty() ? " |" : " | " + inOneLine(control.text));
    if (!control.link.empty()) text += " -> " + std::string(control.link);
    if (control.fill) text += " on " + colorText(*control.fill);
    text += "\n";
    for (const PlacedSection& inner : control.sections) write(inner, indent + "  ", text);
}

void write(const PlacedSection& section, const std::string& indent, std::string& text) {
    text += indent + section.info->name + " " + twips(section.top) + "+" + twips(section.height) +
            (section.continued ? " continued" : "") + (section.repeat ? " again" : "") + "\n";
    for (const PlacedControl& control : section.controls) write(control, indent + "  ", text);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool isSection(const std::string& line) {
    return !line.empty() && line.front() != ' ';
}

}  // namespace

std::string goldenText(const ReportResult& result) {
    std::string text;
    for (const auto& page : result.kept.pages) {
        text += "-- page " + std::to_string(page->number) + "\n";
        for (const PlacedSection& section : page->sections) write(section, "", text);
    }
    for (const std::string& box : result.boxes) text += "box: " + inOneLine(box) + "\n";
    return text;
}

std::string lineDifference(const std::string& expected, const std::string& actual) {
    const auto a = linesOf(expected), b = linesOf(actual);
    // common[i][j]: how many lines, in order, the rests from i and from j have in common.
    std::vector<std::vector<int>> common(a.size() + 1, std::vector<int>(b.size() + 1, 0));
    for (std::size_t i = a.size(); i-- > 0;)
        for (std::size_t j = b.size(); j-- > 0;)
            common[i][j] = a[i] == b[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    std::string difference, section, told;
    const auto note = [&](char sign, const std::string& line) {
        if (section != told && !isSection(line)) difference += "  " + section + "\n";
        told = section;
        difference.append(1, sign).append(" ").append(line).append("\n");
    };
    for (std::size_t i = 0, j = 0; i < a.size() || j < b.size();) {
        if (i < a.size() && j < b.size() && a[i] == b[j]) {
            if (isSection(a[i])) section = a[i];
            ++i, ++j;
        } else if (j == b.size() || (i < a.size() && common[i + 1][j] >= common[i][j + 1])) {
            note('-', a[i++]);
        } else {
            note('+', b[j++]);
        }
    }
    return difference;
}

}  // namespace quillo::test
