#include "apps/quillo/compare_command.h"

#include <algorithm>
#include <array>

#include "apps/quillo/outlet.h"
#include "apps/quillo/output_guard.h"
#include "framework/values/errors.h"
#include "host/comparable/comparable_tables.h"
#include "output/output_error.h"

namespace quillo::app {
namespace {

constexpr std::size_t columnCount = 6, firstAmount = 3;
using Line = std::array<std::string, columnCount>;

std::string differenceOf(const ComparedCell& cell) {
    if (cell.equal) return "";
    return cell.difference ? cell.difference->toText() : "differs";
}

// What tells two runs of a report apart.
std::string labelOf(const ComparableTables& tables) {
    return tables.period.empty() ? tables.company : tables.company + ", " + tables.period;
}

std::vector<Line> linesOf(const ComparableTables& left, const ComparableTables& right) {
    std::vector<Line> lines{{"table", "row", "cell", labelOf(left), labelOf(right), "difference"}};
    for (const ComparedCell& cell : compareTables(left, right))
        lines.push_back({cell.table, cell.row, cell.cell, cell.left, cell.right, differenceOf(cell)});
    return lines;
}

// Characters, not bytes: amounts may hold narrow blanks, names accents.
std::size_t lengthOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void print(const std::vector<Line>& lines, const Console& console) {
    std::array<std::size_t, columnCount> widths{};
    for (const Line& line : lines)
        for (std::size_t i = 0; i < columnCount; ++i) widths[i] = std::max(widths[i], lengthOf(line[i]));
    for (const Line& line : lines) {
        std::string text;
        for (std::size_t i = 0; i < columnCount; ++i) {
            const std::string blanks(widths[i] - lengthOf(line[i]), ' ');
            text += (i == 0 ? "" : "  ") + (i < firstAmount ? line[i] + blanks : blanks + line[i]);
        }
        console.print(text.substr(0, text.find_last_not_of(' ') + 1));
    }
}

std::string quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == text.npos) return text;
    std::string out = "\"";
    for (const char letter : text) out += letter == '"' ? "\"\"" : std::string(1, letter);
    return out + "\"";
}

void write(const std::vector<Line>& lines, const std::string& path, const Console& console) {
    Outlet outlet(console);
    const auto file = outlet.open(path);
    for (const Line& line : lines) {
        std::string text;
        for (const std::string& part : line) text += (text.empty() ? "" : ",") + quoted(part);
        file->write(text + "\r\n");
    }
    file->finish();
    outlet.deliver();
}

}  // namespace

void compareFiles(const std::string& left, const std::string& right, const std::string& output,
                  const Console& console) {
    guardOutputs({left, right}, {output});
    try {
        const auto lines = linesOf(readComparable(left), readComparable(right));
        if (output.empty()) return print(lines, console);
        write(lines, output, console);
    } catch (const InputError& failure) {
        throw UsageError(failure.what());
    } catch (const OutputError& failure) {
        throw UsageError(failure.what());
    }
    console.print(output);
}

}  // namespace quillo::app
