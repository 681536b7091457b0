#include "framework/values/picture_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "framework/values/errors.h"

namespace quillo {
namespace {

using Bytes = std::span<const std::byte>;

constexpr std::uint32_t mostPixels = 16'384;  // in one direction

[[noreturn]] void refuse(const std::string& what) {
    throw InputError(what);
}

std::uint32_t numberAt(Bytes file, std::size_t pos, std::size_t size, std::string_view kind) {
    if (pos > file.size() || file.size() - pos < size)
        refuse("A " + std::string(kind) + " picture is damaged: it ends too early");
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) number = number << 8 | std::to_integer<std::uint32_t>(file[pos + i]);
    return number;
}

std::uint32_t byteAt(Bytes file, std::size_t pos) {
    return numberAt(file, pos, 1, "JPEG");
}

std::uint32_t wordAt(Bytes file, std::size_t pos) {
    return numberAt(file, pos, 2, "JPEG");
}

// Of the frame markers, those that are none: tables, extensions and arithmetic conditioning.
bool startsFrame(std::uint32_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

constexpr std::array<std::uint32_t, 256> checkTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit) table[i] = (table[i] & 1) != 0 ? 0xEDB88320 ^ table[i] >> 1 : table[i] >> 1;
    }
    return table;
}();

std::uint32_t checkSum(Bytes bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::byte byte : bytes) sum = checkTable[(sum ^ std::to_integer<std::uint32_t>(byte)) & 0xFF] ^ sum >> 8;
    return ~sum;
}

constexpr std::array<std::uint8_t, 8> pngSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

bool isPng(Bytes file) {
    return file.size() >= pngSignature.size() &&
           std::equal(pngSignature.begin(), pngSignature.end(), file.begin(),
                      [](std::uint8_t a, std::byte b) { return a == std::to_integer<std::uint8_t>(b); });
}

// Each of its chunks is whole, from the header to the end.
PictureHeader readPng(Bytes file) {
    constexpr std::uint32_t header = 0x49484452, end = 0x49454E44;  // IHDR, IEND
    const auto wordOf = [&](std::size_t pos) { return numberAt(file, pos, 4, "PNG"); };
    const PictureHeader read{wordOf(16), wordOf(20)};
    if (wordOf(12) != header) refuse("A PNG picture is damaged: it has no header");
    for (std::size_t pos = pngSignature.size();;) {
        const std::size_t length = wordOf(pos);
        if (file.size() - pos < 12 || file.size() - pos - 12 < length)
            refuse("A PNG picture is damaged: it ends too early");
        if (wordOf(pos + 8 + length) != checkSum(file.subspan(pos + 4, length + 4)))
            refuse("A PNG picture is damaged at byte " + std::to_string(pos));
        if (wordOf(pos + 4) == end) return read;
        pos += 12 + length;
    }
}

}  // namespace

bool isJpeg(Bytes file) {
    return file.size() > 3 && wordAt(file, 0) == 0xFFD8;
}

PictureHeader readJpegHeader(Bytes file) {
    for (std::size_t pos = 2;; pos += 2 + wordAt(file, pos + 2)) {
        if (byteAt(file, pos) != 0xFF) refuse("A JPEG picture is damaged at byte " + std::to_string(pos));
        while (byteAt(file, pos + 1) == 0xFF) ++pos;
        if (!startsFrame(byteAt(file, pos + 1))) continue;
        const PictureHeader header{wordAt(file, pos + 7), wordAt(file, pos + 5),
                                   static_cast<int>(byteAt(file, pos + 9))};
        const bool known = header.components == 1 || header.components == 3 || header.components == 4;
        if (header.width == 0 || header.height == 0 || !known) refuse("A JPEG picture has no size");
        return header;
    }
}

PictureHeader readPictureHeader(Bytes file) {
    if (!isJpeg(file) && !isPng(file)) refuse("A picture is neither PNG nor JPEG");
    const PictureHeader header = isJpeg(file) ? readJpegHeader(file) : readPng(file);
    if (header.width == 0 || header.height == 0 || header.width > mostPixels || header.height > mostPixels)
        refuse("A picture of " + std::to_string(header.width) + " by " + std::to_string(header.height) +
               " pixels cannot be printed");
    return header;
}

std::vector<std::byte> loadPicture(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) refuse(path + ": there is no such file");
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file) refuse(path + " cannot be read");
    const Bytes bytes = std::as_bytes(std::span(content));
    try {
        readPictureHeader(bytes);
    } catch (const InputError& failure) {
        refuse(path + ": " + failure.what());
    }
    return {bytes.begin(), bytes.end()};
}

}  // namespace quillo
