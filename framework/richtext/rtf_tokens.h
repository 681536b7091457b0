#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillo {

// A piece of an RTF file.
struct RtfToken {
    enum class Kind : std::uint8_t {
        open,    // {
        close,   // }
        word,    // \b0: a control word with its number
        symbol,  // \~ and the like: a control symbol, in character
        hex,     // \'e9: a byte, in character
        text,    // bytes that stand for themselves, without line ends
        binary,  // what follows a \bin
        end
    };
    Kind kind = Kind::end;
    std::string_view name;   // of a word
    std::string_view bytes;  // of a text or binary piece
    int number = 0;          // of a word; what cannot be a number is cut to the nearest that can
    bool hasNumber = false;  // of a word
    unsigned char character = 0;
    std::size_t from = 0, to = 0;  // where it stands in the file

    bool is(Kind wanted) const { return kind == wanted; }
    bool isWord(std::string_view wanted) const { return kind == Kind::word && name == wanted; }
    bool isSymbol(char wanted) const { return kind == Kind::symbol && character == static_cast<unsigned char>(wanted); }
};

// Takes an RTF file apart, from its first byte to its last, whatever they are. The file must outlive the tokens.
class RtfTokens {
public:
    explicit RtfTokens(std::string_view file) : file_(file) {}
    // The next piece; from the end on always one of kind end.
    RtfToken next();

private:
    void readControl(RtfToken& token);
    void readWord(RtfToken& token);
    void readText(RtfToken& token);

    std::string_view file_;
    std::size_t pos_ = 0;
    std::size_t binary_ = 0;  // bytes that the last \bin announced
};

// Whether a text is RTF; other texts are taken as they are.
bool isRtf(std::string_view text);

}  // namespace quillo
