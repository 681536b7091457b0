#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "output/fonts.h"
#include "output/handle.h"
#include "output/shaper.h"

namespace quillo {

// Lengths are in ems. A simple glyph stands for one common character at its own width: it has a slot,
// the same in every text, by which outputs keep what they know of it.
struct Glyph {
    std::uint32_t index = 0;         // in the font of its run
    std::uint32_t from = 0, to = 0;  // the bytes of the text that it shows; none when the glyph before shows them
    float advance = 0;
    float dx = 0, dy = 0;  // of the glyph alone, to the right and up
    std::uint16_t slot = 0;
};
inline constexpr std::uint16_t noSlot = 0xFFFF;
inline constexpr std::size_t slotCount = 1520, asciiSlots = 95;

// Glyphs in a row that are of one font.
struct GlyphRun {
    const Face* face = nullptr;
    std::uint32_t first = 0, count = 0;
    bool placed = false;  // a glyph has an offset or a width that is not its own
};

// A text as glyphs from left to right, kept by the caller for the next text.
struct ShapedText {
    std::vector<Glyph> glyphs;
    std::vector<GlyphRun> runs;

    void clear() { glyphs.clear(), runs.clear(); }
    void add(const Face& face, bool placed, const Glyph& glyph) {
        glyphs.push_back(glyph);
        extendRun(face, placed, 1);
    }
    // Says of which font the last glyphs are.
    void extendRun(const Face& face, bool placed, std::size_t count) {
        if (runs.empty() || runs.back().face != &face)
            runs.push_back({&face, static_cast<std::uint32_t>(glyphs.size() - count)});
        runs.back().placed |= placed;
        runs.back().count += static_cast<std::uint32_t>(count);
    }
    void cut(std::size_t glyphCount);  // back to this many glyphs
    float width() const;
};

// Turns text into glyphs, without kerning and ligatures so that columns of digits stand straight. Common
// letters are looked up in a table; words of other characters are shaped by HarfBuzz and kept. Knows
// nothing of sizes. Serves one run at a time; the objects of a run share one.
class TextShaper {
public:
    explicit TextShaper(MissingCharacter missing = {}) : missing_(std::move(missing)) {}

    const Face& face(const TextStyle& style) { return fonts_.face(style); }
    // Appends the glyphs of a text on one line. Line feeds and tabs count as blanks.
    void shape(std::string_view text, const Face& face, ShapedText& out);
    // noSlot: not a simple one. The printable characters of ASCII have the first slots.
    static std::uint16_t slotOf(char32_t character) {
        return character >= 0x20 && character < 0x20 + asciiSlots ? static_cast<std::uint16_t>(character - 0x20)
                                                                  : slotBehindAscii(character);
    }
    static char32_t characterOf(std::uint16_t slot);

private:
    struct Entry {
        const Face* face = nullptr;  // null: not looked up yet
        std::uint32_t glyph = 0;
        float advance = 0;
    };
    using Table = std::array<Entry, slotCount>;
    struct WordKey {
        std::uint32_t face;
        std::string_view word;
        bool operator==(const WordKey&) const = default;
    };
    struct OwnWordKey {
        std::uint32_t face;
        std::string word;
        operator WordKey() const { return {face, word}; }
    };
    struct WordHash {
        using is_transparent = void;
        std::size_t operator()(const WordKey& key) const {
            return std::hash<std::string_view>()(key.word) * 31 + key.face;
        }
        std::size_t operator()(const OwnWordKey& key) const { return (*this)(WordKey(key)); }
    };
    struct WordEqual {
        using is_transparent = void;
        bool operator()(const WordKey& a, const WordKey& b) const { return a == b; }
    };

    static std::uint16_t slotBehindAscii(char32_t character);
    std::size_t shapeAscii(std::string_view text, std::size_t pos, const Face& face, const Table& table,
                           ShapedText& out) const;
    std::size_t shapeWordAt(std::string_view text, std::size_t pos, std::size_t firstGlyph, const Face& face,
                            ShapedText& out);
    Table& tableOf(const Face& face);
    void lookUp(char32_t character, const Face& face, Entry& entry);
    const Face& faceFor(char32_t character, const Face& wanted);
    void reportMissing(char32_t character, const Face& wanted);
    const ShapedText& word(std::string_view word, const Face& face);
    void shapeWord(std::string_view word, const Face& face, ShapedText& out);
    void shapeRun(std::string_view word, std::size_t from, std::size_t to, const Face& face, ShapedText& out);

    Fonts fonts_;
    MissingCharacter missing_;
    std::vector<std::unique_ptr<Table>> tables_;                           // by the face's id
    std::map<std::pair<std::uint32_t, char32_t>, const Face*> fallbacks_;  // by the wanted face's id and the character
    std::set<char32_t> reported_;
    std::unordered_map<OwnWordKey, ShapedText, WordHash, WordEqual> words_;
    ShapedText longWord_;  // the last one: rows repeat it
    OwnWordKey longWordKey_{};
    Handle<hb_buffer_t, hb_buffer_destroy> buffer_;
};

}  // namespace quillo
