#include "output/fonts.h"

#include <harfbuzz/hb-ot.h>

#include <algorithm>

#include "framework/engine/page.h"
#include "output/output_error.h"

namespace quillo {
namespace {

using Pattern = Handle<FcPattern, FcPatternDestroy>;
using FontSet = Handle<FcFontSet, FcFontSetDestroy>;

const FcChar8* bytes(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

Pattern patternOf(const std::string& family, bool bold, bool italic) {
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(family));
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(TextStyle().family));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddInteger(pattern.get(), FC_WIDTH, FC_WIDTH_NORMAL);
    return pattern;
}

bool isUsable(FcPattern* font) {
    FcChar8* format = nullptr;
    FcBool variable = FcFalse, color = FcFalse;
    FcPatternGetBool(font, FC_VARIABLE, 0, &variable);
    FcPatternGetBool(font, FC_COLOR, 0, &color);
    return FcPatternGetString(font, FC_FONTFORMAT, 0, &format) == FcResultMatch &&
           std::string_view(reinterpret_cast<const char*>(format)) == "TrueType" && !variable && !color;
}

bool has(FcPattern* font, char32_t character) {
    FcCharSet* characters = nullptr;
    return FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch &&
           FcCharSetHasChar(characters, character);
}

std::int16_t bigEndian(const char* at) {
    const auto high = static_cast<unsigned char>(at[0]), low = static_cast<unsigned char>(at[1]);
    return static_cast<std::int16_t>(high << 8 | low);
}

}  // namespace

Face::Face(std::uint32_t id, std::string file, int index) : id_(id), file_(std::move(file)), index_(index) {
    const Handle<hb_blob_t, hb_blob_destroy> blob(hb_blob_create_from_file_or_fail(file_.c_str()));
    if (!blob) throw FontError("The font " + file_ + " cannot be read");
    face_.reset(hb_face_create(blob.get(), static_cast<unsigned>(index_)));
    if (hb_face_get_glyph_count(face_.get()) == 0) throw FontError("The font " + file_ + " is damaged");
    font_.reset(hb_font_create(face_.get()));
    unitsPerEm_ = static_cast<float>(hb_face_get_upem(face_.get()));
    char name[128];
    unsigned size = sizeof name;
    hb_ot_name_get_utf8(face_.get(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, name);
    name_ = size > 0 ? name : "Font";
    readMetrics();
}

void Face::readMetrics() {
    const auto metric = [this](hb_ot_metrics_tag_t tag) {
        hb_position_t units = 0;
        hb_ot_metrics_get_position_with_fallback(font_.get(), tag, &units);
        return ems(units);
    };
    metrics_.ascent = metric(HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER);
    metrics_.descent = -metric(HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER);
    metrics_.lineGap = metric(HB_OT_METRICS_TAG_HORIZONTAL_LINE_GAP);
    metrics_.capHeight = metric(HB_OT_METRICS_TAG_CAP_HEIGHT);
    metrics_.underlineTop = -metric(HB_OT_METRICS_TAG_UNDERLINE_OFFSET);
    metrics_.underlineThickness = metric(HB_OT_METRICS_TAG_UNDERLINE_SIZE);
    metrics_.slant = hb_style_get_value(font_.get(), HB_STYLE_TAG_SLANT_ANGLE);

    const Handle<hb_blob_t, hb_blob_destroy> head(hb_face_reference_table(face_.get(), HB_TAG('h', 'e', 'a', 'd')));
    unsigned size = 0;
    const char* data = hb_blob_get_data(head.get(), &size);
    constexpr unsigned boxAt = 36;
    if (size < boxAt + 8) return;
    for (unsigned i = 0; i < 4; ++i) metrics_.box[i] = ems(bigEndian(data + boxAt + 2 * i));
}

std::uint32_t Face::glyph(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font_.get(), character, &glyph) ? glyph : 0;
}

float Face::advance(std::uint32_t glyph) const {
    return ems(hb_font_get_glyph_h_advance(font_.get(), glyph));
}

Fonts::Fonts() : installed_(FcInitLoadConfigAndFonts()) {
    if (!installed_) throw FontError("The list of installed fonts cannot be read");
}

void Fonts::eachCloseFont(FcPattern* wanted, const std::function<bool(FcPattern*)>& use) const {
    FcConfigSubstitute(installed_.get(), wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultMatch;
    const FontSet sorted(FcFontSort(installed_.get(), wanted, FcFalse, nullptr, &result));
    if (!sorted) return;
    for (int i = 0; i < sorted->nfont; ++i) {
        if (isUsable(sorted->fonts[i]) && use(sorted->fonts[i])) return;
    }
}

const Face& Fonts::open(FcPattern* font) {
    FcChar8* file = nullptr;
    int index = 0;
    FcPatternGetString(font, FC_FILE, 0, &file);
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    const std::string path = reinterpret_cast<const char*>(file);
    for (const auto& face : faces_) {
        if (face->file() == path && face->index() == index) return *face;
    }
    faces_.push_back(std::make_unique<Face>(static_cast<std::uint32_t>(faces_.size()), path, index));
    return *faces_.back();
}

const Face& Fonts::face(const TextStyle& style) {
    const auto fits = [&](const Known& known) {
        return known.bold == style.bold && known.italic == style.italic && known.family == style.family;
    };
    if (last_ < known_.size() && fits(known_[last_])) return *known_[last_].face;
    const auto found = std::find_if(known_.begin(), known_.end(), fits);
    if (found == known_.end()) return *find(style).face;
    last_ = static_cast<std::size_t>(found - known_.begin());
    return *found->face;
}

const Fonts::Known& Fonts::find(const TextStyle& style) {
    const Face* face = nullptr;
    const Pattern wanted = patternOf(style.family, style.bold, style.italic);
    eachCloseFont(wanted.get(), [&](FcPattern* font) { return (face = &open(font)) != nullptr; });
    if (!face) throw FontError("No TrueType font is installed (" + style.family + " was asked)");
    known_.push_back({style.family, style.bold, style.italic, face});
    return known_.back();
}

const Face* Fonts::fallback(const Face& wanted, char32_t character) {
    const auto known =
        std::find_if(known_.begin(), known_.end(), [&](const Known& each) { return each.face == &wanted; });
    const Known style = known == known_.end() ? Known{TextStyle().family, false, false, nullptr} : *known;
    const Pattern pattern = patternOf(style.family, style.bold, style.italic);
    const Handle<FcCharSet, FcCharSetDestroy> characters(FcCharSetCreate());
    FcCharSetAddChar(characters.get(), character);
    FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters.get());
    const Face* face = nullptr;
    eachCloseFont(pattern.get(),
                  [&](FcPattern* font) { return has(font, character) && (face = &open(font)) != nullptr; });
    return face;
}

}  // namespace quillo
