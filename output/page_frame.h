#pragma once

#include <memory>
#include <string>

#include "framework/engine/page.h"

namespace quillo {

// What the host's frame says, already translated and formatted.
struct PageFrameTexts {
    std::string company;
    std::string title;
    std::string printedOn;  // "Printed on 2024-03-31"
    std::string pageWord;   // "Page", before the number
    std::string period{};   // the dates that the report covers, below the company; may be empty
};

// Gives the wrapped sink each page with the host's frame in its top and bottom margins: company, dates
// and title above a rule, date of printing and page number below one. A margin that is too low for its
// part stays empty.
class PageFrame final : public PageSink {
public:
    PageFrame(std::unique_ptr<PageSink> inner, PageFrameTexts texts)
        : inner_(std::move(inner)), texts_(std::move(texts)) {}

    void page(const Page& page) override { take(page.clone()); }
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override;
    void finish() override { inner_->finish(); }

private:
    PlacedSection top(Page& page) const;
    PlacedSection bottom(Page& page) const;

    std::unique_ptr<PageSink> inner_;
    PageFrameTexts texts_;
};

}  // namespace quillo
