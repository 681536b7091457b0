#include "output/pdf/pdf_font.h"

#include <harfbuzz/hb-subset.h>

#include <algorithm>
#include <cmath>

#include "output/errors.h"
#include "output/utf8.h"

namespace quillo {
namespace {

using Blob = Handle<hb_blob_t, hb_blob_destroy>;
using SubsetPlan = Handle<hb_subset_plan_t, hb_subset_plan_destroy>;

constexpr std::size_t mostCodes = 0xFFFF;
constexpr std::size_t rangesAtOnce = 100;  // a bfchar block may hold no more

// Tables that only programs that lay out text need; the document holds glyphs already.
constexpr hb_tag_t layoutTables[] = {HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'),
                                     HB_TAG('k', 'e', 'r', 'n'), HB_TAG('n', 'a', 'm', 'e'), HB_TAG('p', 'o', 's', 't'),
                                     HB_TAG('O', 'S', '/', '2'), HB_TAG('c', 'm', 'a', 'p')};

std::int64_t perThousand(float ems) {
    return std::lround(ems * 1000.0F);
}
std::int64_t hundredthsPerThousand(float ems) {
    return std::lround(ems * 100000.0F);
}

void escapeInto(PdfFont::Token& token, unsigned byte) {
    const auto put = [&](char c) { token.bytes[token.size++] = c; };
    const auto character = static_cast<char>(byte);
    if (character == '(' || character == ')' || character == '\\' || character == '\r') put('\\');
    put(character == '\r' ? 'r' : character);
}

}  // namespace

std::string PdfFont::characterText(std::uint16_t slot) {
    std::string text;
    appendUtf8(TextShaper::characterOf(slot), text);
    return text;
}

const PdfFont::Token& PdfFont::shapedToken(const Glyph& glyph, std::string_view text) {
    std::string shown(text.substr(glyph.from, glyph.to - glyph.from));
    const auto [known, isNew] = shaped_.try_emplace({glyph.index, shown});
    if (isNew) known->second = newToken(glyph.index, std::move(shown));
    return known->second;
}

PdfFont::Token PdfFont::newToken(std::uint32_t glyph, std::string text) {
    if (codes_.size() == mostCodes)
        throw OutputError("A document cannot show more than 65535 different glyphs of " + face_.name());
    codes_.push_back({glyph, std::move(text)});
    const auto code = static_cast<unsigned>(codes_.size());
    Token token;
    escapeInto(token, code >> 8);
    escapeInto(token, code & 0xFF);
    return token;
}

void PdfFont::write(PdfFile& file) const {
    const std::uint32_t descendant = file.reserve(5), descriptor = descendant + 1, unicode = descendant + 2;
    const std::uint32_t fontFile = descendant + 3, glyphMap = descendant + 4;
    const std::string name = subsetName();
    file.object(number_) << "<</Type/Font/Subtype/Type0/BaseFont/" << name << "/Encoding/Identity-H/DescendantFonts["
                         << descendant << " 0 R]/ToUnicode " << unicode << " 0 R>>";
    Bytes& out = file.object(descendant);
    out << "<</Type/Font/Subtype/CIDFontType2/BaseFont/" << name
        << "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>"
        << "/FontDescriptor " << descriptor << " 0 R/CIDToGIDMap " << glyphMap << " 0 R";
    writeWidths(out);
    out << ">>";
    writeDescriptor(file, descriptor, name, fontFile);
    writeToUnicode(file, unicode);
    writeFontFile(file, fontFile, glyphMap);
}

void PdfFont::writeWidths(Bytes& out) const {
    out << "/DW 0/W[1[";
    for (const Code& code : codes_) out.hundredths(hundredthsPerThousand(face_.advance(code.glyph))) << ' ';
    out << "]]";
}

void PdfFont::writeDescriptor(PdfFile& file, std::uint32_t number, std::string_view name,
                              std::uint32_t fontFile) const {
    constexpr std::uint32_t symbolic = 4, italic = 64;
    const Face::Metrics& metrics = face_.metrics();
    Bytes& out = file.object(number);
    out << "<</Type/FontDescriptor/FontName/" << name << "/Flags " << (symbolic | (metrics.slant != 0 ? italic : 0))
        << "/FontBBox[";
    for (const float side : metrics.box) out << perThousand(side) << ' ';
    out << "]/ItalicAngle " << static_cast<std::int64_t>(std::lround(metrics.slant)) << "/Ascent "
        << perThousand(metrics.ascent) << "/Descent " << perThousand(-metrics.descent) << "/CapHeight "
        << perThousand(metrics.capHeight) << "/StemV 80/FontFile2 " << fontFile << " 0 R>>";
}

void PdfFont::writeToUnicode(PdfFile& file, std::uint32_t number) const {
    Bytes out;
    out << "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
           "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n/CMapName/Adobe-Identity-UCS "
           "def\n/CMapType 2 def\n"
           "1 begincodespacerange\n<0000><FFFF>\nendcodespacerange\n";
    for (std::size_t from = 0; from < codes_.size(); from += rangesAtOnce) {
        const std::size_t to = std::min(from + rangesAtOnce, codes_.size());
        out << to - from << " beginbfchar\n";
        for (std::size_t i = from; i < to; ++i) {
            (out << '<').hex(static_cast<std::uint32_t>(i + 1), 4) << "><";
            const std::string& text = codes_[i].text;
            for (std::size_t pos = 0; pos < text.size();) out.utf16Hex(nextCharacter(text, pos));
            out << ">\n";
        }
        out << "endbfchar\n";
    }
    out << "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
    file.stream(number, "", out.view());
}

void PdfFont::writeFontFile(PdfFile& file, std::uint32_t fontFile, std::uint32_t glyphMap) const {
    const Handle<hb_subset_input_t, hb_subset_input_destroy> input(hb_subset_input_create_or_fail());
    hb_set_t* glyphs = hb_subset_input_glyph_set(input.get());
    for (const Code& code : codes_) hb_set_add(glyphs, code.glyph);
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const hb_tag_t table : layoutTables) hb_set_add(dropped, table);
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING);

    const SubsetPlan plan(hb_subset_plan_create_or_fail(face_.tables(), input.get()));
    const Handle<hb_face_t, hb_face_destroy> subset(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
    if (!subset) throw OutputError("The font " + face_.file() + " cannot be embedded");
    const Blob blob(hb_face_reference_blob(subset.get()));
    unsigned size = 0;
    const char* data = hb_blob_get_data(blob.get(), &size);
    Bytes entries;
    entries << "/Length1 " << size;
    file.stream(fontFile, entries.view(), {data, size});

    const hb_map_t* newGlyphs = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    Bytes map;
    map << '\0' << '\0';
    for (const Code& code : codes_) {
        const hb_codepoint_t glyph = hb_map_get(newGlyphs, code.glyph);
        map << static_cast<char>(glyph >> 8) << static_cast<char>(glyph & 0xFF);
    }
    file.stream(glyphMap, "", map.view());
}

// Six letters that say which glyphs there are, then the font's own name.
std::string PdfFont::subsetName() const {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const Code& code : codes_) hash = (hash ^ code.glyph) * 0x100000001B3;
    std::string name;
    for (int i = 0; i < 6; ++i, hash /= 26) name += static_cast<char>('A' + hash % 26);
    name += '+';
    for (const char c : face_.name()) {
        if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-') name += c;
    }
    return name;
}

}  // namespace quillo
