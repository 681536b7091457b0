#include "host/database/collation.h"

#include <unicode/ucol.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "host/database/sqlite_handle.h"

namespace quillo {
namespace {

constexpr int asciiCount = 128;

// ICU's collator, and its order of the ASCII characters as numbers, so that plain text needs no ICU.
class TextOrder {
public:
    TextOrder() {
        UErrorCode status = U_ZERO_ERROR;
        collator_.reset(ucol_open("", &status));
        if (U_FAILURE(status)) throw std::runtime_error("The text order of ICU cannot be loaded");
        ucol_setStrength(collator_.get(), UCOL_SECONDARY);
        rankAscii();
    }

    int full(std::string_view a, std::string_view b) const {
        if (a == b) return 0;  // rows that repeat one long name
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(collator_.get(), a.data(), static_cast<int32_t>(a.size()), b.data(),
                                static_cast<int32_t>(b.size()), &status);
    }

    // 0 for a character that the order ignores; equal for the cases of one letter.
    unsigned rank(char character) const { return ranks_[static_cast<unsigned char>(character)]; }

private:
    struct Close {
        void operator()(UCollator* collator) const { ucol_close(collator); }
    };

    void rankAscii() {
        std::array<char, asciiCount> characters{};
        for (int i = 0; i < asciiCount; ++i) characters[static_cast<std::size_t>(i)] = static_cast<char>(i);
        const auto compare = [&](char a, char b) { return full({&a, 1}, {&b, 1}); };
        std::sort(characters.begin(), characters.end(), [&](char a, char b) { return compare(a, b) < 0; });
        unsigned rank = 0;
        char before = '\0';
        for (const char character : characters) {
            if (compare(before, character) != 0) ++rank;
            ranks_[static_cast<unsigned char>(character)] = static_cast<unsigned char>(rank);
            before = character;
        }
    }

    std::unique_ptr<UCollator, Close> collator_;
    std::array<unsigned char, asciiCount> ranks_{};
};

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool isAscii(char character) {
    return static_cast<unsigned char>(character) < asciiCount;
}

// Immutable once made, and so safe to share.
const TextOrder& textOrder() {
    static const TextOrder order;
    return order;
}

// Words beside each other in a sort begin alike; eight letters are passed over at once.
std::size_t equalAsciiStart(std::string_view a, std::string_view b) {
    constexpr std::uint64_t highBits = 0x8080808080808080ULL;
    const std::size_t size = std::min(a.size(), b.size());
    std::size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        std::uint64_t left = 0;
        std::uint64_t right = 0;
        std::memcpy(&left, a.data() + at, 8);
        std::memcpy(&right, b.data() + at, 8);
        if (left != right || (left & highBits) != 0) break;
    }
    while (at < size && a[at] == b[at] && isAscii(a[at])) ++at;
    return at;
}

int compare(const TextOrder& order, std::string_view a, std::string_view b) {
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    std::size_t i = equalAsciiStart(a, b);
    std::size_t j = i;
    while (true) {
        // Next character that counts, on either side; 0 at the end.
        unsigned left = 0;
        while (i < a.size() && left == 0) {
            if (!isAscii(a[i])) return order.full(a, b);
            left = order.rank(a[i++]);
        }
        unsigned right = 0;
        while (j < b.size() && right == 0) {
            if (!isAscii(b[j])) return order.full(a, b);
            right = order.rank(b[j++]);
        }
        if (left != right) return left < right ? -1 : 1;
        if (left == 0) return 0;
    }
}

int collate(void* order, int aSize, const void* a, int bSize, const void* b) {
    return compare(*static_cast<const TextOrder*>(order),
                   {static_cast<const char*>(a), static_cast<std::size_t>(aSize)},
                   {static_cast<const char*>(b), static_cast<std::size_t>(bSize)});
}

}  // namespace

int compareText(std::string_view a, std::string_view b) {
    return compare(textOrder(), a, b);
}

namespace sqlite {

void registerCollation(sqlite3* handle) {
    void* order = const_cast<TextOrder*>(&textOrder());
    const int code = sqlite3_create_collation_v2(handle, "QUILLO", SQLITE_UTF8, order, collate, nullptr);
    if (code != SQLITE_OK) throw Error(code, sqlite3_errmsg(handle));
}

}  // namespace sqlite
}  // namespace quillo
