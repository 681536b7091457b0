#pragma once

#include <fontconfig/fontconfig.h>
#include <harfbuzz/hb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "output/handle.h"

namespace quillo {

struct TextStyle;

// One font file, opened. Lengths are in ems: times the size they are points.
class Face {
public:
    // Throws FontError when the file is no font.
    Face(std::uint32_t id, std::string file, int index);

    struct Metrics {
        float ascent = 0, descent = 0, lineGap = 0;  // all counted as positive lengths
        float capHeight = 0;
        float underlineTop = 0, underlineThickness = 0;  // below the baseline is positive
        float slant = 0;                                 // degrees, negative when leaning to the right
        float box[4] = {};                               // left, bottom, right, top of all glyphs
    };
    std::uint32_t id() const { return id_; }  // its place among the faces of its Fonts
    const std::string& file() const { return file_; }
    int index() const { return index_; }               // of the face within the file
    const std::string& name() const { return name_; }  // the PostScript name
    const Metrics& metrics() const { return metrics_; }
    float lineHeight() const { return metrics_.ascent + metrics_.descent + metrics_.lineGap; }
    // From the top of a line.
    float baseline() const { return metrics_.lineGap / 2 + metrics_.ascent; }

    std::uint32_t glyph(char32_t character) const;  // 0: the font lacks it
    float advance(std::uint32_t glyph) const;
    float ems(hb_position_t units) const { return static_cast<float>(units) / unitsPerEm_; }
    hb_font_t* shaping() const { return font_.get(); }
    hb_face_t* tables() const { return face_.get(); }

private:
    void readMetrics();

    std::uint32_t id_;
    std::string file_;
    int index_;
    std::string name_;
    Handle<hb_face_t, hb_face_destroy> face_;
    Handle<hb_font_t, hb_font_destroy> font_;
    float unitsPerEm_ = 1;
    Metrics metrics_;
};

// The installed fonts, found by fontconfig and opened once each; faces live as long as this object.
// Only fonts with TrueType outlines are used, since these are what every output can embed.
class Fonts {
public:
    Fonts();

    // The closest to family, bold and italic; throws FontError when no font at all is installed.
    const Face& face(const TextStyle& style);
    // A font with the character, closest to the wanted one; null when none is installed.
    const Face* fallback(const Face& wanted, char32_t character);

private:
    struct Known {
        std::string family;
        bool bold, italic;
        const Face* face;
    };
    const Face& open(FcPattern* font);
    const Known& find(const TextStyle& style);

    // The usable fonts, the closest to the wanted one first; calls use until it says that the font will do.
    void eachCloseFont(FcPattern* wanted, const std::function<bool(FcPattern*)>& use) const;

    Handle<FcConfig, FcConfigDestroy> installed_;  // its own, so that two runs share nothing
    std::vector<Known> known_;
    std::vector<std::unique_ptr<Face>> faces_;
    std::size_t last_ = 0;  // texts of one style come in rows
};

}  // namespace quillo
