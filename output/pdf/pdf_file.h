#pragma once

#include <libdeflate.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "output/handle.h"
#include "output/output_file.h"
#include "output/pdf/bytes.h"

namespace quillo {

// The objects of a PDF 1.7 file, written as they come. Small objects are packed into compressed object
// streams. The cross-reference is written in parts too, each pointing back to the one before, so that
// what stays in memory is one pack and one part, whatever the number of objects.
class PdfFile {
public:
    explicit PdfFile(std::unique_ptr<Output> output);

    // Numbers for objects that will be written; the first of count in a row.
    std::uint32_t reserve(std::uint32_t count = 1);
    // Begins a small object, whose text the caller appends; it ends where the next one begins.
    Bytes& object(std::uint32_t number);
    // Writes a stream object, compressing its content. Entries are those of its dictionary, such as
    // "/Type/XObject", without Length and Filter.
    void stream(std::uint32_t number, std::string_view entries, std::string_view content);
    // The same for content that is compressed already; entries name the filter.
    void storedStream(std::uint32_t number, std::string_view entries, std::string_view content);
    // The numbers of the two objects from which all others are found; the caller writes them.
    std::uint32_t catalog() const { return catalog_; }
    std::uint32_t information() const { return catalog_ + 1; }
    void finish();

private:
    // Objects of following numbers that lie in one pack, or a single object of its own.
    struct Extent {
        std::uint32_t number, count;
        std::uint64_t place;  // byte offset in the file, or the pack's number
        std::uint32_t index;  // of the first in its pack
        bool packed;
    };
    std::uint64_t offset() const { return flushed_ + pending_.size(); }
    void writePack();
    void writeStream(std::uint32_t number, std::string_view entries, std::string_view content);
    void appendIdentity(Bytes& out) const;
    std::string_view deflate(std::string_view content);
    void flush();
    void writeCrossReference(bool last);

    std::unique_ptr<Output> output_;
    Handle<libdeflate_compressor, libdeflate_free_compressor> compressor_;
    Bytes pending_;  // not yet given to the output
    Bytes deflated_;
    Bytes packHead_, packBody_, packContent_;
    std::uint32_t packNumber_ = 0, packCount_ = 0;
    std::vector<Extent> extents_;            // not yet in a part of the cross-reference
    std::uint64_t crossReferenceStart_ = 0;  // of the last part; 0: none yet
    std::uint32_t next_ = 1;
    std::uint32_t catalog_;
    std::uint64_t flushed_ = 0;
    std::uint32_t crc_ = 0, adler_ = 1;  // of all bytes: the file's identity
};

}  // namespace quillo
