#pragma once

#include <libdeflate.h>

#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/locale_format.h"

namespace quillo::bench {

// The least that a PDF of texts costs: their content, deflated a page at a time at the writer's own level. No fonts, no
// links, no pages, no file.
class ContentFloor {
public:
    const LocaleFormat& locale() const { return locale_; }

    // The height of the next line, in points; a full page is deflated first.
    int nextLine() {
        if (++line_ == linesOnPage) deflate();
        return 700 - line_ * 18;
    }

    void text(int left, int top, std::string_view text) {
        content_ += "1 0 0 1 ";
        number(left);
        content_ += ' ';
        number(top);
        content_.append(" Tm (").append(text).append(") Tj\n");
    }

    void amount(int left, int top, Money value) {
        amount_.clear();
        locale_.appendCurrency(amount_, value);
        text(left, top, amount_);
    }

    std::size_t deflated() {
        deflate();
        return total_;
    }

private:
    static constexpr int linesOnPage = 34;
    static constexpr int level = 1;

    void number(int value) {
        char digits[16];
        content_.append(digits, std::to_chars(digits, digits + 16, value).ptr);
    }

    void deflate() {
        line_ = 0;
        packed_.resize(libdeflate_zlib_compress_bound(compressor_.get(), content_.size()));
        total_ += libdeflate_zlib_compress(compressor_.get(), content_.data(), content_.size(), packed_.data(),
                                           packed_.size());
        content_.clear();
    }

    LocaleFormat locale_;
    std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor_{
        libdeflate_alloc_compressor(level), libdeflate_free_compressor};
    std::string content_, amount_;
    std::vector<char> packed_;
    std::size_t total_ = 0;
    int line_ = -1;
};

}  // namespace quillo::bench
