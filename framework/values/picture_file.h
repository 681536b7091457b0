#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillo {

// What the header of a picture's file says.
struct PictureHeader {
    std::uint32_t width = 0, height = 0;  // pixels
    int components = 0;                   // of a JPEG: 1 gray, 3 colour, 4 the four printing inks
};

bool isJpeg(std::span<const std::byte> file);
// Throws InputError when the header is damaged.
PictureHeader readJpegHeader(std::span<const std::byte> file);
// Of a whole PNG or JPEG file. Throws InputError when it is neither, is damaged, or is too large for any output.
PictureHeader readPictureHeader(std::span<const std::byte> file);

// A PNG or JPEG file, whole. Throws InputError, naming the file, when it cannot be read or readPictureHeader refuses
// it.
std::vector<std::byte> loadPicture(const std::string& path);

}  // namespace quillo
