#pragma once

#include <memory>

#include "framework/engine/text_measure.h"
#include "output/shaper.h"

namespace quillo {

struct ShapedText;

// Measures with the fonts that the outputs print with. Throws FontError as the shaper does.
class FontMeasure final : public TextMeasure {
public:
    explicit FontMeasure(std::shared_ptr<TextShaper> shaper = makeTextShaper());
    ~FontMeasure() override;

    float lineHeight(const TextStyle& style) override;
    float baseline(const TextStyle& style) override;
    float width(std::string_view text, const TextStyle& style) override;
    void breakLines(std::string_view text, const TextStyle& style, float width,
                    std::vector<std::uint32_t>& starts) override;

private:
    void breakParagraph(std::string_view text, std::uint32_t start, std::uint32_t end, float width,
                        std::vector<std::uint32_t>& starts);
    void shape(std::string_view text, const TextStyle& style);

    std::shared_ptr<TextShaper> shaper_;
    std::unique_ptr<ShapedText> shaped_;
    std::size_t glyph_ = 0;  // the next to place, while lines are broken
};

}  // namespace quillo
