#pragma once

#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "framework/page_texts.h"

namespace quillo {

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
