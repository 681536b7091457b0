#pragma once

namespace quillo {

// The character of a byte in a code page: 850 and 437 are known beside 1252, which stands for every other.
char32_t characterOf(unsigned char byte, int codePage);

}  // namespace quillo
