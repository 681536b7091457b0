#include "framework/richtext/rtf_tokens.h"

#include <algorithm>
#include <charconv>

#include "framework/values/text.h"

namespace quillo {
namespace {

constexpr int mostNumber = 1'000'000'000;

int hexDigit(char letter) {
    if (isDigit(letter)) return letter - '0';
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    return -1;
}

bool isLineEnd(char letter) {
    return letter == '\r' || letter == '\n';
}

}  // namespace

RtfToken RtfTokens::next() {
    RtfToken token;
    if (binary_ > 0) {
        token.kind = RtfToken::Kind::binary;
        token.bytes = file_.substr(pos_, binary_);
        token.from = pos_;
        token.to = pos_ += token.bytes.size();
        binary_ = 0;
        return token;
    }
    while (pos_ < file_.size() && isLineEnd(file_[pos_])) ++pos_;
    token.from = token.to = pos_;
    if (pos_ == file_.size()) return token;
    switch (file_[pos_]) {
        case '{':
            token.kind = RtfToken::Kind::open;
            ++pos_;
            break;
        case '}':
            token.kind = RtfToken::Kind::close;
            ++pos_;
            break;
        case '\\':
            readControl(token);
            break;
        default:
            readText(token);
    }
    token.to = pos_;
    return token;
}

void RtfTokens::readControl(RtfToken& token) {
    ++pos_;
    if (pos_ == file_.size()) return;  // a lone backslash at the end
    if (isLetter(file_[pos_])) return readWord(token);
    const char symbol = file_[pos_++];
    if (symbol == '\'' && pos_ + 1 < file_.size()) {
        const int high = hexDigit(file_[pos_]), low = hexDigit(file_[pos_ + 1]);
        if (high >= 0 && low >= 0) {
            token.kind = RtfToken::Kind::hex;
            token.character = static_cast<unsigned char>(high * 16 + low);
            pos_ += 2;
            return;
        }
    }
    token.kind = RtfToken::Kind::symbol;
    token.character = static_cast<unsigned char>(symbol);
}

void RtfTokens::readWord(RtfToken& token) {
    token.kind = RtfToken::Kind::word;
    const std::size_t start = pos_;
    while (pos_ < file_.size() && isLetter(file_[pos_])) ++pos_;
    token.name = file_.substr(start, pos_ - start);
    const bool negative = pos_ + 1 < file_.size() && file_[pos_] == '-' && isDigit(file_[pos_ + 1]);
    if (negative) ++pos_;
    const std::size_t digits = pos_;
    while (pos_ < file_.size() && isDigit(file_[pos_])) ++pos_;
    if (pos_ > digits) {
        token.hasNumber = true;
        const auto end = std::from_chars(file_.data() + digits, file_.data() + pos_, token.number);
        if (end.ec != std::errc() || token.number > mostNumber) token.number = mostNumber;
        if (negative) token.number = -token.number;
    }
    if (pos_ < file_.size() && file_[pos_] == ' ') ++pos_;
    if (token.name == "bin") binary_ = static_cast<std::size_t>(std::max(token.number, 0));
}

void RtfTokens::readText(RtfToken& token) {
    token.kind = RtfToken::Kind::text;
    const std::size_t end = std::min(file_.find_first_of("{}\\\r\n", pos_), file_.size());
    token.bytes = file_.substr(pos_, end - pos_);
    pos_ = end;
}

bool isRtf(std::string_view text) {
    return trimmed(text).starts_with("{\\rtf");
}

}  // namespace quillo
