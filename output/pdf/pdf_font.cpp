#include "output/pdf/pdf_font.h"

#include <harfbuzz/hb-subset.h>

#include <algorithm>
#include <cmath>

#include "framework/values/utf8.h"
#include "output/output_error.h"

namespace quillo {
namespace {

using Blob = Handle<hb_blob_t, hb_blob_destroy>;
using SubsetPlan = Handle<hb_subset_plan_t, hb_subset_plan_destroy>;

// A code of one byte is its own CID. Those of two bytes begin where they cannot be taken for one of one byte.
constexpr std::uint32_t firstLongCode = 0x8000, mostLongCodes = 0x8000, firstLongCid = 0x100;
constexpr std::string_view codeSpace = "2 begincodespacerange\n<20><7E>\n<8000><FFFF>\nendcodespacerange\n";
constexpr std::size_t rowsInBlock = 100;  // a block of a map may hold no more

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

Bytes& appendCode(Bytes& out, std::uint32_t cid) {
    return cid < firstLongCid ? out.hex(cid, 2) : out.hex(firstLongCode + cid - firstLongCid, 4);
}

// The rows of a map, in blocks of as many as one may hold.
template <class Row>
void appendBlocks(Bytes& out, std::string_view kind, std::size_t count, Row row) {
    for (std::size_t i = 0; i < count; ++i) {
        if (i % rowsInBlock == 0) out << std::min(count - i, rowsInBlock) << " begin" << kind << '\n';
        row(i);
        if ((i + 1) % rowsInBlock == 0 || i + 1 == count) out << "end" << kind << '\n';
    }
}

}  // namespace

PdfFont::PdfFont(const Face& face, std::uint32_t number) : face_(face), number_(number), nextLongCid_(firstLongCid) {}

PdfFont::Token PdfFont::simpleToken(const Glyph& glyph) {
    const char32_t character = TextShaper::characterOf(glyph.slot);
    std::string text;
    appendUtf8(character, text);
    if (glyph.slot >= asciiSlots) return newToken(glyph.index, std::move(text));
    codes_[character] = {glyph.index, std::move(text)};
    Token token;
    escapeInto(token, character);
    return token;
}

const PdfFont::Token& PdfFont::shapedToken(const Glyph& glyph, std::string_view text) {
    std::string shown(text.substr(glyph.from, glyph.to - glyph.from));
    const auto [known, isNew] = shaped_.try_emplace({glyph.index, shown});
    if (isNew) known->second = newToken(glyph.index, std::move(shown));
    return known->second;
}

PdfFont::Token PdfFont::newToken(std::uint32_t glyph, std::string text) {
    const std::uint32_t index = nextLongCid_ - firstLongCid;
    if (index == mostLongCodes)
        throw OutputError("A document cannot show more than 32768 different glyphs of " + face_.name());
    codes_[nextLongCid_++] = {glyph, std::move(text)};
    Token token;
    escapeInto(token, (firstLongCode + index) >> 8);
    escapeInto(token, (firstLongCode + index) & 0xFF);
    return token;
}

void PdfFont::write(PdfFile& file, std::uint32_t encoding) const {
    const std::uint32_t descendant = file.reserve(5), descriptor = descendant + 1, unicode = descendant + 2;
    const std::uint32_t fontFile = descendant + 3, glyphMap = descendant + 4;
    const std::string name = subsetName();
    file.object(number_) << "<</Type/Font/Subtype/Type0/BaseFont/" << name << "/Encoding " << encoding
                         << " 0 R/DescendantFonts[" << descendant << " 0 R]/ToUnicode " << unicode << " 0 R>>";
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

void PdfFont::writeEncoding(PdfFile& file, std::uint32_t number) {
    constexpr std::string_view system = "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>";
    Bytes entries, out;
    entries << "/Type/CMap/CMapName/Quillo" << system;
    out << "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        << system << "def\n/CMapName/Quillo def\n/CMapType 1 def\n"
        << codeSpace;
    appendBlocks(out, "cidrange", 1, [&](std::size_t) { out << "<20><7E> 32\n"; });
    constexpr std::uint32_t codesInRange = 0x100;  // those of one first byte
    appendBlocks(out, "cidrange", mostLongCodes / codesInRange, [&](std::size_t range) {
        const std::uint32_t index = static_cast<std::uint32_t>(range) * codesInRange;
        (out << '<').hex(firstLongCode + index, 4) << "><";
        out.hex(firstLongCode + index + codesInRange - 1, 4) << "> " << firstLongCid + index << '\n';
    });
    out << "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
    file.stream(number, entries.view(), out.view());
}

void PdfFont::writeWidths(Bytes& out) const {
    out << "/DW 0/W[";
    for (const auto& [cid, code] : codes_)
        (out << cid << '[').hundredths(hundredthsPerThousand(face_.advance(code.glyph))) << ']';
    out << "]";
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
        << codeSpace;
    auto next = codes_.begin();
    appendBlocks(out, "bfchar", codes_.size(), [&](std::size_t) {
        const auto& [cid, code] = *next++;
        appendCode(out << '<', cid) << "><";
        for (std::size_t pos = 0; pos < code.text.size();) out.utf16Hex(nextCharacter(code.text, pos));
        out << ">\n";
    });
    out << "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
    file.stream(number, "", out.view());
}

void PdfFont::writeFontFile(PdfFile& file, std::uint32_t fontFile, std::uint32_t glyphMap) const {
    const Handle<hb_subset_input_t, hb_subset_input_destroy> input(hb_subset_input_create_or_fail());
    hb_set_t* glyphs = hb_subset_input_glyph_set(input.get());
    for (const auto& [cid, code] : codes_) hb_set_add(glyphs, code.glyph);
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
    std::string map(2 * std::size_t{nextLongCid_}, '\0');
    for (const auto& [cid, code] : codes_) {
        const hb_codepoint_t glyph = hb_map_get(newGlyphs, code.glyph);
        map[2 * cid] = static_cast<char>(glyph >> 8);
        map[2 * cid + 1] = static_cast<char>(glyph & 0xFF);
    }
    file.stream(glyphMap, "", map);
}

// Six letters that say which glyphs there are, then the font's own name.
std::string PdfFont::subsetName() const {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const auto& [cid, code] : codes_) hash = (hash ^ code.glyph) * 0x100000001B3;
    std::string name;
    for (int i = 0; i < 6; ++i, hash /= 26) name += static_cast<char>('A' + hash % 26);
    name += '+';
    for (const char c : face_.name()) {
        if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-') name += c;
    }
    return name;
}

}  // namespace quillo
