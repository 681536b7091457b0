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
    PageFrame(PageSink& inner, PageFrameTexts texts) : inner_(inner), texts_(std::move(texts)) {}

    void page(const Page& page) override;
    void finish() override { inner_.finish(); }

private:
    PlacedControl text(std::string_view name, std::string_view text, const TextStyle& style);
    PlacedControl rule(float top, float width);
    void addTop(const PageSetup& setup);
    void addBottom(const PageSetup& setup);
    void addSection(SectionKind kind, std::string_view name, const PageSetup& setup, float top, float height,
                    std::span<const PlacedControl> controls);

    PageSink& inner_;
    PageFrameTexts texts_;
    std::string pageNumber_;
    Page framed_;  // the page's own sections, which it does not own, and the frame's
    PlacedControl top_[4], bottom_[3];
};

}  // namespace quillo
