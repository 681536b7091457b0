#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "output/pdf/pdf_file.h"

namespace quillo {

// The pictures of a document, each written once however many pages show it.
class PdfPictures {
public:
    struct Entry {
        std::uint32_t number = 0;  // of the image object; also its name among the resources: "I" and the number
        float width = 0, height = 0;
    };
    // The picture of a PNG or JPEG file, written now when it is new. Throws OutputError when it is damaged.
    const Entry& find(std::span<const std::byte> picture, PdfFile& file);
    // Within a run a picture is known by its address; those of the run before may be other pictures' now.
    void beginRun() { seen_.clear(); }
    bool empty() const { return entries_.empty(); }
    // Their names and numbers, for the resources' dictionary.
    void appendNames(Bytes& out) const;

private:
    // Pictures are told apart by length and two checksums: their bytes are not kept.
    struct Key {
        std::size_t size;
        std::uint32_t crc, adler;
        auto operator<=>(const Key&) const = default;
    };
    std::map<Key, Entry> entries_;
    struct Seen {
        std::span<const std::byte> picture;
        const Entry* entry;
    };
    std::vector<Seen> seen_;
};

}  // namespace quillo
