#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/pdf_file.h"

namespace quillo {

// The document's outline. An item is written as soon as the next of its level is known; only the items
// that are still open, one a level, stay in memory.
class PdfOutline {
public:
    // Top is in hundredths of a point from the page's bottom. A title that repeats the open one of its
    // level, as a group header does on each page, is not listed again.
    void add(int level, std::string_view title, std::uint32_t page, std::int64_t top, PdfFile& file);
    // Writes what is open and gives the number of the outline itself; 0 when there is none.
    std::uint32_t finish(PdfFile& file);

private:
    struct Item {
        std::uint32_t number = 0, parent = 0, previous = 0;
        std::uint32_t firstChild = 0, lastChild = 0, children = 0;
        int level = 0;
        std::string title;
        std::uint32_t page = 0;
        std::int64_t top = 0;
    };
    void closeLast(std::uint32_t next, PdfFile& file);

    Item root_;
    std::vector<Item> open_;  // the outermost first
};

}  // namespace quillo
