#include "output/text_shaper.h"

#include <algorithm>
#include <charconv>

#include "framework/values/utf8.h"
#include "output/output_error.h"

namespace quillo {
namespace {

constexpr std::size_t keptWords = 64 * 1024;
constexpr std::size_t longestKeptWord = 128;
// Bytes that HarfBuzz gets at once: its time grows with their square where they are marks. No word that is read comes
// near; a longer run is cut before a character that stands for itself, or anywhere in the end.
constexpr std::size_t longRun = 256, longestRun = 320;

// The ranges of simple characters, each with the slot at which it begins: letters, digits and signs
// that stand for themselves, without marks that combine and characters that only steer.
struct SlotRange {
    char32_t first, last;
    std::size_t slot = 0;
};
constexpr auto slotRanges = [] {
    std::array<SlotRange, 10> ranges = {{{0x20, 0x7E},
                                         {0xA0, 0xAC},
                                         {0xAE, 0x2FF},
                                         {0x370, 0x482},
                                         {0x48A, 0x52F},
                                         {0x1E00, 0x1EFF},
                                         {0x2010, 0x2027},
                                         {0x202F, 0x205E},
                                         {0x20A0, 0x20CF},
                                         {0x2212, 0x2212}}};
    std::size_t next = 0;
    for (SlotRange& range : ranges) {
        range.slot = next;
        next += range.last - range.first + 1;
    }
    return ranges;
}();
static_assert(slotRanges.back().slot + 1 == slotCount && slotRanges[1].slot == asciiSlots);

constexpr std::string_view blanks = " \n\t";

bool isBlank(char32_t character) {
    return character < 0x80 && blanks.find(static_cast<char>(character)) != blanks.npos;
}
bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Marks and joiners belong to the character before them, whatever the font.
bool joinsTheOneBefore(char32_t character) {
    hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
    const hb_unicode_general_category_t category = hb_unicode_general_category(unicode, character);
    return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK || category == HB_UNICODE_GENERAL_CATEGORY_FORMAT;
}

const hb_feature_t plainFeatures[] = {
    {HB_TAG('k', 'e', 'r', 'n'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'a', 'l', 't'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
};

}  // namespace

void ShapedText::cut(std::size_t glyphCount) {
    glyphs.resize(glyphCount);
    while (!runs.empty() && runs.back().first >= glyphCount) runs.pop_back();
    if (!runs.empty()) runs.back().count = static_cast<std::uint32_t>(glyphCount) - runs.back().first;
}

float ShapedText::width() const {
    float sum = 0;
    for (const Glyph& glyph : glyphs) sum += glyph.advance;
    return sum;
}

std::uint16_t TextShaper::slotBehindAscii(char32_t character) {
    for (const SlotRange& range : slotRanges) {
        if (character < range.first) return noSlot;
        if (character <= range.last) return static_cast<std::uint16_t>(range.slot + (character - range.first));
    }
    return noSlot;
}

char32_t TextShaper::characterOf(std::uint16_t slot) {
    const auto range =
        std::find_if(slotRanges.rbegin(), slotRanges.rend(), [&](const SlotRange& each) { return each.slot <= slot; });
    return static_cast<char32_t>(range->first + (slot - range->slot));
}

void TextShaper::shape(std::string_view text, const Face& face, ShapedText& out) {
    Table& table = tableOf(face);
    const std::size_t firstGlyph = out.glyphs.size();
    for (std::size_t pos = 0; (pos = shapeAscii(text, pos, face, table, out)) < text.size();) {
        const std::size_t from = pos;
        char32_t character = nextCharacter(text, pos);
        if (isBlank(character)) {
            character = ' ';
        } else if (isControl(character)) {
            continue;
        }
        const std::uint16_t slot = slotOf(character);
        if (slot == noSlot) {
            pos = shapeWordAt(text, from, firstGlyph, face, out);
            continue;
        }
        Entry& entry = table[slot];
        if (!entry.face) lookUp(character, face, entry);
        out.add(*entry.face, false,
                {entry.glyph, static_cast<std::uint32_t>(from), static_cast<std::uint32_t>(pos), entry.advance, 0, 0,
                 slot});
    }
}

// Characters of ASCII that the face has: most texts hold nothing else, so this is the hottest loop of all outputs.
// Gives the place of the first that is none.
std::size_t TextShaper::shapeAscii(std::string_view text, std::size_t pos, const Face& face, const Table& table,
                                   ShapedText& out) const {
    const std::size_t start = pos;
    for (; pos < text.size(); ++pos) {
        const std::size_t slot = static_cast<unsigned char>(text[pos]) - std::size_t{' '};
        if (slot >= asciiSlots || table[slot].face != &face) break;
        const auto from = static_cast<std::uint32_t>(pos);
        out.glyphs.push_back(
            {table[slot].glyph, from, from + 1, table[slot].advance, 0, 0, static_cast<std::uint16_t>(slot)});
    }
    if (pos > start) out.extendRun(face, false, pos - start);
    return pos;
}

// One character that is not simple makes its whole word one for HarfBuzz. Gives the place behind the word.
std::size_t TextShaper::shapeWordAt(std::string_view text, std::size_t pos, std::size_t firstGlyph, const Face& face,
                                    ShapedText& out) {
    const std::size_t start = text.find_last_of(blanks, pos) + 1,
                      end = std::min(text.find_first_of(blanks, pos), text.size());
    std::size_t kept = out.glyphs.size();
    while (kept > firstGlyph && out.glyphs[kept - 1].from >= start) --kept;
    out.cut(kept);
    const ShapedText& shaped = word(text.substr(start, end - start), face);
    for (const GlyphRun& run : shaped.runs) {
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            Glyph glyph = shaped.glyphs[i];
            glyph.from += static_cast<std::uint32_t>(start);
            glyph.to += static_cast<std::uint32_t>(start);
            out.add(*run.face, run.placed, glyph);
        }
    }
    return end;
}

TextShaper::Table& TextShaper::tableOf(const Face& face) {
    if (face.id() >= tables_.size()) tables_.resize(face.id() + 1);
    auto& table = tables_[face.id()];
    if (!table) table = std::make_unique<Table>();
    return *table;
}

void TextShaper::lookUp(char32_t character, const Face& face, Entry& entry) {
    const Face& found = faceFor(character, face);
    entry.glyph = found.glyph(character);
    entry.advance = found.advance(entry.glyph);
    entry.face = &found;
}

const Face& TextShaper::faceFor(char32_t character, const Face& wanted) {
    if (wanted.glyph(character) != 0) return wanted;
    const auto [known, isNew] = fallbacks_.try_emplace({wanted.id(), character}, nullptr);
    if (isNew) known->second = fonts_.fallback(wanted, character);
    if (!known->second) reportMissing(character, wanted);
    return known->second ? *known->second : wanted;
}

void TextShaper::reportMissing(char32_t character, const Face& wanted) {
    if (!reported_.insert(character).second && missing_) return;
    char hex[16];
    const char* end = std::to_chars(hex, hex + sizeof hex, static_cast<std::uint32_t>(character), 16).ptr;
    std::string code(hex, static_cast<std::size_t>(end - hex));
    for (char& digit : code) digit = static_cast<char>(digit >= 'a' ? digit - 'a' + 'A' : digit);
    if (code.size() < 4) code.insert(0, 4 - code.size(), '0');
    std::string failure = "No installed font has U+" + code + " (";
    appendUtf8(character, failure);
    failure += "); " + wanted.name() + " was asked";
    if (!missing_) throw FontError(failure);
    missing_(failure);
}

const ShapedText& TextShaper::word(std::string_view word, const Face& face) {
    if (word.size() > longestKeptWord) {
        if (longWordKey_.face == face.id() && longWordKey_.word == word) return longWord_;
        longWordKey_ = {};  // shaping may fail
        longWord_.clear();
        shapeWord(word, face, longWord_);
        longWordKey_ = {face.id(), std::string(word)};
        return longWord_;
    }
    const auto found = words_.find(WordKey{face.id(), word});
    if (found != words_.end()) return found->second;
    if (words_.size() >= keptWords) words_.clear();
    ShapedText shaped;
    shapeWord(word, face, shaped);
    return words_.emplace(OwnWordKey{face.id(), std::string(word)}, std::move(shaped)).first->second;
}

void TextShaper::shapeWord(std::string_view word, const Face& face, ShapedText& out) {
    const Face* runFace = nullptr;
    std::size_t runStart = 0;
    for (std::size_t pos = 0; pos < word.size();) {
        const std::size_t from = pos, length = from - runStart;
        const char32_t character = nextCharacter(word, pos);
        const bool joins = isControl(character) || (runFace && joinsTheOneBefore(character));
        if (joins && (length < longestRun || !runFace)) continue;
        const Face& charFace = joins ? *runFace : faceFor(character, face);
        if (runFace && (runFace != &charFace || length >= longRun)) {
            shapeRun(word, runStart, from, *runFace, out);
            runStart = from;
        }
        runFace = &charFace;
    }
    if (runFace) shapeRun(word, runStart, word.size(), *runFace, out);
}

void TextShaper::shapeRun(std::string_view word, std::size_t from, std::size_t to, const Face& face, ShapedText& out) {
    if (!buffer_) buffer_.reset(hb_buffer_create());
    hb_buffer_t* buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, word.data(), static_cast<int>(word.size()), static_cast<unsigned>(from),
                       static_cast<int>(to - from));
    hb_buffer_set_language(buffer, hb_language_from_string("und", -1));  // else it would be the process's
    hb_buffer_guess_segment_properties(buffer);
    hb_buffer_set_flags(buffer, HB_BUFFER_FLAG_REMOVE_DEFAULT_IGNORABLES);
    hb_shape(face.shaping(), buffer, plainFeatures, std::size(plainFeatures));

    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer, &count);
    const bool rightToLeft = HB_DIRECTION_IS_BACKWARD(hb_buffer_get_direction(buffer));
    for (unsigned i = 0; i < count; ++i) {
        Glyph glyph{infos[i].codepoint,
                    infos[i].cluster,
                    infos[i].cluster,
                    face.ems(places[i].x_advance),
                    face.ems(places[i].x_offset),
                    face.ems(places[i].y_offset),
                    noSlot};
        const bool first = i == 0 || infos[i - 1].cluster != infos[i].cluster;
        if (first) {  // the first glyph of a cluster shows the cluster's text
            unsigned next = i + 1;
            while (next < count && infos[next].cluster == infos[i].cluster) ++next;
            const auto end = static_cast<std::uint32_t>(to);
            glyph.to = rightToLeft ? (i == 0 ? end : infos[i - 1].cluster) : (next < count ? infos[next].cluster : end);
        }
        if (glyph.index == 0) {
            std::size_t at = glyph.from;
            char32_t lacking = nextCharacter(word, at);
            while (at < glyph.to && face.glyph(lacking) != 0) lacking = nextCharacter(word, at);
            reportMissing(lacking, face);
        }
        const bool placed = glyph.dx != 0 || glyph.dy != 0 || glyph.advance != face.advance(glyph.index);
        out.add(face, placed, glyph);
    }
}

std::shared_ptr<TextShaper> makeTextShaper(MissingCharacter missing) {
    return std::make_shared<TextShaper>(std::move(missing));
}

}  // namespace quillo
