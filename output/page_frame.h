#pragma once

#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "framework/engine/text_measure.h"
#include "framework/page_texts.h"

namespace quillo {

// Gives the wrapped sink each page with the host's frame in its top and bottom margins: company, dates
// and title above a rule, page number and date of printing below one. The page number stands at the left, where the
// number of pages can follow it before it is known how long that is. A margin that is too low for its part stays empty.
class PageFrame final : public PageSink {
public:
    // measure: tells how wide the title is, and must outlive the frame. The company's name has what the title leaves.
    PageFrame(std::unique_ptr<PageSink> inner, PageFrameTexts texts, TextMeasure& measure);

    void page(const Page& page) override { take(page.clone()); }
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override;
    void finish() override { inner_->finish(); }

private:
    PlacedSection top(Page& page) const;
    PlacedSection bottom(Page& page) const;

    std::unique_ptr<PageSink> inner_;
    PageFrameTexts texts_;
    float titleWidth_;
};

}  // namespace quillo
