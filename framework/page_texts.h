#pragma once

#include <functional>
#include <string>

namespace quillo {

// What a host's frame says around the pages, already translated and formatted.
struct PageFrameTexts {
    std::string company;
    std::string title;
    std::string printedOn;  // "Printed on 2024-03-31"
    std::string pageWord;   // "Page", before the number
    std::string ofWord{};   // "of", before the number of pages; empty where the output cannot tell it
    std::string period{};   // the dates that the report covers, below the company; may be empty
    // Stands below each page that is finished when failed() says that the report has failures; without it nowhere.
    std::string failureNote{};
    std::function<bool()> failed{};
};

}  // namespace quillo
