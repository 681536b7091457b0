#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/page.h"
#include "output/output_file.h"

namespace quillo {

// Pages as one JSON object, for tests and other programs. The members are report, member, title, pages
// and last the failures, which are known only when the run has ended. Measures are twips; sections
// stand in print order, controls in design order; a text tells its style in words (styleText) and
// its alignment. Throws OutputError when it cannot be written.
class JsonSink final : public PageSink {
public:
    using Failures = std::function<std::vector<std::string>()>;
    // The failures are asked for once, by finish().
    JsonSink(std::unique_ptr<Output> output, std::string_view report, std::string_view member, std::string_view title,
             Failures failures);

    void page(const Page& page) override;
    void finish() override;

private:
    void writeSections(std::span<const PlacedSection> sections);
    void writeControl(const PlacedControl& control);
    void writeChart(const ChartData& chart);
    void key(std::string_view name);
    void text(std::string_view value);
    template <class Number>
    void number(Number value);
    void escape(unsigned char byte);
    void hex(unsigned byte);
    template <class Items, class Write>
    void list(const Items& items, Write write);

    std::unique_ptr<Output> output_;
    Failures failures_;
    std::string buffer_;
    bool hasPages_ = false;
};

}  // namespace quillo
