#include "output/pdf/bytes.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr std::size_t longestNumber = 24;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

}  // namespace

void Bytes::grow(std::size_t count) {
    capacity_ = std::max(size_ + count, capacity_ * 2);
    std::unique_ptr<char[]> larger(new char[capacity_]);
    if (size_ > 0) std::memcpy(larger.get(), data_.get(), size_);
    data_ = std::move(larger);
}

Bytes& Bytes::operator<<(std::string_view text) {
    if (text.empty()) return *this;
    std::memcpy(room(text.size()), text.data(), text.size());
    size_ += text.size();
    return *this;
}

Bytes& Bytes::operator<<(char character) {
    *room(1) = character;
    ++size_;
    return *this;
}

Bytes& Bytes::operator<<(std::uint64_t number) {
    char* at = room(longestNumber);
    taken(std::to_chars(at, at + longestNumber, number).ptr);
    return *this;
}

Bytes& Bytes::operator<<(std::int64_t number) {
    char* at = room(longestNumber);
    taken(std::to_chars(at, at + longestNumber, number).ptr);
    return *this;
}

Bytes& Bytes::hundredths(std::int64_t number) {
    char* at = room(longestNumber + 3);
    if (number < 0) *at++ = '-';
    const auto size = static_cast<std::uint64_t>(number < 0 ? -number : number);
    at = std::to_chars(at, at + longestNumber, size / 100).ptr;
    if (const auto rest = static_cast<unsigned>(size % 100); rest != 0) {
        *at++ = '.';
        *at++ = static_cast<char>('0' + rest / 10);
        if (rest % 10 != 0) *at++ = static_cast<char>('0' + rest % 10);
    }
    taken(at);
    return *this;
}

Bytes& Bytes::literal(std::string_view bytes) {
    char* at = room(bytes.size() * 2 + 2);
    *at++ = '(';
    for (const char byte : bytes) {
        if (byte == '(' || byte == ')' || byte == '\\' || byte == '\r') *at++ = '\\';
        *at++ = byte == '\r' ? 'r' : byte;  // a bare carriage return would be read as a line feed
    }
    *at++ = ')';
    taken(at);
    return *this;
}

Bytes& Bytes::shown(std::string_view utf8) {
    if (isAscii(utf8)) return literal(utf8);
    *this << "<FEFF";
    for (std::size_t pos = 0; pos < utf8.size();) utf16Hex(nextCharacter(utf8, pos));
    return *this << '>';
}

Bytes& Bytes::hex(std::uint32_t number, int digits) {
    char* at = room(8);
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) *at++ = "0123456789ABCDEF"[number >> shift & 0xF];
    taken(at);
    return *this;
}

Bytes& Bytes::utf16Hex(char32_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    if (code < 0x10000) return hex(code, 4);
    return hex(0xD800 + ((code - 0x10000) >> 10), 4).hex(0xDC00 + ((code - 0x10000) & 0x3FF), 4);
}

}  // namespace quillo
