#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "output/pdf/bytes.h"
#include "output/pdf/pdf_file.h"
#include "output/text_shaper.h"

namespace quillo {

// One face as the document uses it. A code stands for a glyph together with the text that it shows, so
// that copied text is right even where one glyph stands for several characters. The characters of ASCII stand
// for themselves in one byte, so that most content is short and quickly compressed; all others get codes of
// two bytes in the order of first use. The font file, cut down to what was used, is written at the end.
class PdfFont {
public:
    PdfFont(const Face& face, std::uint32_t number);

    const Face& face() const { return face_; }
    std::uint32_t number() const { return number_; }  // of the font object
    // The map from codes to CIDs, which all fonts of a document share.
    static void writeEncoding(PdfFile& file, std::uint32_t number);

    // The code of a glyph as bytes within a PDF string.
    struct Token {
        char bytes[4];
        std::uint8_t size = 0;  // 0: no code yet
    };
    const Token& token(const Glyph& glyph, std::string_view text) {
        if (glyph.slot == noSlot) return shapedToken(glyph, text);
        Token& known = simple_[glyph.slot];
        if (known.size == 0) known = simpleToken(glyph);
        return known;
    }

    void write(PdfFile& file, std::uint32_t encoding) const;

private:
    struct Code {
        std::uint32_t glyph;
        std::string text;
    };
    Token simpleToken(const Glyph& glyph);
    const Token& shapedToken(const Glyph& glyph, std::string_view text);
    Token newToken(std::uint32_t glyph, std::string text);
    void writeWidths(Bytes& out) const;
    void writeDescriptor(PdfFile& file, std::uint32_t number, std::string_view name, std::uint32_t fontFile) const;
    void writeToUnicode(PdfFile& file, std::uint32_t number) const;
    void writeFontFile(PdfFile& file, std::uint32_t fontFile, std::uint32_t glyphMap) const;
    std::string subsetName() const;

    const Face& face_;
    std::uint32_t number_;
    std::array<Token, slotCount> simple_{};
    std::map<std::pair<std::uint32_t, std::string>, Token, std::less<>> shaped_;
    std::map<std::uint32_t, Code> codes_;  // by CID
    std::uint32_t nextLongCid_;
};

}  // namespace quillo
