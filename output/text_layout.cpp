#include "output/text_layout.h"

#include <algorithm>

#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr float narrowest = 0.7F;
constexpr float slack = 1;  // twips by which a line may be too wide without being narrowed
constexpr std::string_view ellipsis = "\xE2\x80\xA6";

bool isBlank(const Glyph& glyph) {
    return glyph.slot == 0;
}

bool isLetter(char32_t character) {
    return (character | 0x20) >= 'a' && (character | 0x20) <= 'z';
}

bool isNumberSign(char32_t character) {
    constexpr std::u32string_view signs =
        U" .,'+-()%/:$\u00A0\u00A2\u00A3\u00A4\u00A5\u2009\u2019\u202F\u2011\u2013\u2212";
    return signs.find(character) != signs.npos || (character >= 0x20A0 && character <= 0x20CF);
}

}  // namespace

bool isNumber(std::string_view text) {
    int digits = 0, letters = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const char32_t character = nextCharacter(text, pos);
        if (character >= '0' && character <= '9') {
            ++digits;
        } else if (isLetter(character)) {
            ++letters;
        } else if (!isNumberSign(character)) {
            return false;
        }
    }
    return digits > 0 && letters <= 3;
}

void TextLayout::start(const PlacedControl& control, float left, float top) {
    const TextStyle& style = *control.style;
    control_ = &control;
    face_ = &shaper_->face(style);
    left_ = left;
    bottom_ = top + control.height;
    nextLine_ = 0;
    lineCount_ = style.wrap && !control.lines.empty() ? control.lines.size() : (control.text.empty() ? 0 : 1);
    line_.size = style.size;
    const float height = face_->lineHeight() * style.size * twipsPerPoint * static_cast<float>(lineCount_);
    const float spare = std::max(control.height - height, 0.0F);
    lineTop_ = top + (style.verticalAlign == VerticalAlign::top      ? 0
                      : style.verticalAlign == VerticalAlign::middle ? spare / 2
                                                                     : spare);
}

const PlacedLine* TextLayout::next() {
    if (nextLine_ == lineCount_ || (nextLine_ > 0 && lineTop_ >= bottom_)) return nullptr;
    const float em = line_.size * twipsPerPoint;
    const bool last = nextLine_ + 1 == lineCount_;
    line_.text = takeText();
    shaped_.clear();
    shaper_->shape(line_.text, *face_, shaped_);
    line_.glyphs = &shaped_;
    line_.width = shaped_.width() * em;
    line_.condense = 1;
    line_.blankGap = 0;
    line_.baseline = lineTop_ + face_->baseline() * em;
    if (control_->width > 0 && line_.width > control_->width + slack) fit(control_->width);
    const Align alignment = control_->style->align;
    align(alignment == Align::justify && last ? Align::left : alignment, control_->width);
    lineTop_ += face_->lineHeight() * em;
    return &line_;
}

// The text of the next line, without the blanks at which it was broken.
std::string_view TextLayout::takeText() {
    const std::size_t index = nextLine_++;
    if (!control_->style->wrap || control_->lines.empty()) return control_->text;
    const std::size_t from = control_->lines[index];
    const std::size_t to = nextLine_ < lineCount_ ? control_->lines[nextLine_] : control_->text.size();
    const std::string_view text = control_->text.substr(from, to - from);
    return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

void TextLayout::fit(float room) {
    line_.condense = room / line_.width;
    if (line_.condense < narrowest && !isNumber(line_.text)) {
        line_.condense = narrowest;
        endInEllipsis(room / (narrowest * line_.size * twipsPerPoint));
    }
    line_.width = shaped_.width() * line_.size * twipsPerPoint * line_.condense;
}

void TextLayout::endInEllipsis(float room) {
    const std::size_t count = shaped_.glyphs.size();
    shaper_->shape(ellipsis, *face_, shaped_);
    const float mark = shaped_.glyphs.back().advance;
    shaped_.cut(count);
    float width = shaped_.width();
    std::size_t kept = count;
    const auto dropLast = [&] { width -= shaped_.glyphs[--kept].advance; };
    while (kept > 0 && (width + mark > room || isBlank(shaped_.glyphs[kept - 1]))) {
        while (kept > 1 && shaped_.glyphs[kept - 1].from == shaped_.glyphs[kept - 1].to)
            dropLast();  // a mark goes with its letter
        dropLast();
    }
    shaped_.cut(kept);
    shaper_->shape(ellipsis, *face_, shaped_);
}

void TextLayout::align(Align alignment, float room) {
    const float spare = room - line_.width;
    line_.left = left_;
    if (alignment == Align::right) line_.left += spare;
    if (alignment == Align::center) line_.left += spare / 2;
    if (alignment != Align::justify || spare <= 0) return;
    const auto blanks = std::count_if(shaped_.glyphs.begin(), shaped_.glyphs.end(), isBlank);
    const bool endsParagraph =
        line_.text.data() + line_.text.size() < control_->text.data() + control_->text.size() &&
        std::string_view("\r\n").find(line_.text.data()[line_.text.size()]) != std::string_view::npos;
    if (blanks == 0 || endsParagraph) return;
    line_.blankGap = spare / static_cast<float>(blanks) / (line_.size * twipsPerPoint);
    line_.width = room;
}

}  // namespace quillo
