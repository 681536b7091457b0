#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace quillo {

// Bytes in the making, kept from page to page so that nothing is allocated twice. Not copied.
class Bytes {
public:
    std::string_view view() const { return {data_.get(), size_}; }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    void clear() { size_ = 0; }

    // Room for count more bytes; taken() says where what was written there ends.
    char* room(std::size_t count) {
        if (size_ + count > capacity_) grow(count);
        return data_.get() + size_;
    }
    void taken(const char* end) { size_ = static_cast<std::size_t>(end - data_.get()); }

    Bytes& operator<<(std::string_view text);
    Bytes& operator<<(char character);
    Bytes& operator<<(std::uint64_t number);
    Bytes& operator<<(std::uint32_t number) { return *this << std::uint64_t{number}; }
    Bytes& operator<<(std::int64_t number);
    // A number in hundredths, such as 1250 for "12.5".
    Bytes& hundredths(std::int64_t number);
    // A PDF string of exactly these bytes.
    Bytes& literal(std::string_view bytes);
    // A PDF string that viewers show: as it is when ASCII, else in UTF-16.
    Bytes& shown(std::string_view utf8);
    Bytes& hex(std::uint32_t number, int digits);
    // The character in UTF-16, as hexadecimal digits.
    Bytes& utf16Hex(char32_t character);

private:
    void grow(std::size_t count);

    std::unique_ptr<char[]> data_;
    std::size_t size_ = 0, capacity_ = 0;
};

}  // namespace quillo
