#include "output/pdf/pdf_file.h"

#include <algorithm>
#include <new>

namespace quillo {
namespace {

constexpr int compressionLevel = 1;  // pages are repetitive: higher levels take longer and save little
constexpr std::size_t packSize = 32 * 1024;
constexpr std::size_t flushSize = 256 * 1024;
constexpr std::size_t extentsAtOnce = 4096;  // in one part of the cross-reference

void appendBigEndian(Bytes& bytes, std::uint64_t number, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes << static_cast<char>(number >> shift & 0xFF);
}

}  // namespace

PdfFile::PdfFile(std::unique_ptr<Output> output)
    : output_(std::move(output)), compressor_(libdeflate_alloc_compressor(compressionLevel)), catalog_(reserve(2)) {
    if (!compressor_) throw std::bad_alloc();
    pending_ << "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n";  // the second line tells transfer programs that this is no text
}

std::uint32_t PdfFile::reserve(std::uint32_t count) {
    next_ += count;
    return next_ - count;
}

Bytes& PdfFile::object(std::uint32_t number) {
    if (packBody_.size() > packSize) writePack();
    if (packCount_ == 0) packNumber_ = reserve();
    Extent* last = extents_.empty() ? nullptr : &extents_.back();
    if (last && last->packed && last->place == packNumber_ && last->number + last->count == number &&
        last->index + last->count == packCount_) {
        ++last->count;
    } else {
        extents_.push_back({number, 1, packNumber_, packCount_, true});
    }
    ++packCount_;
    if (!packBody_.empty()) packBody_ << '\n';
    packHead_ << number << ' ' << packBody_.size() << ' ';
    return packBody_;
}

void PdfFile::writePack() {
    if (packCount_ == 0) return;
    Bytes entries;
    entries << "/Type/ObjStm/N " << packCount_ << "/First " << packHead_.size();
    packContent_.clear();
    packContent_ << packHead_.view() << packBody_.view();
    packCount_ = 0;
    packHead_.clear();
    packBody_.clear();
    stream(packNumber_, entries.view(), packContent_.view());
}

void PdfFile::stream(std::uint32_t number, std::string_view entries, std::string_view content) {
    Bytes all;
    all << entries << "/Filter/FlateDecode";
    storedStream(number, all.view(), deflate(content));
}

void PdfFile::storedStream(std::uint32_t number, std::string_view entries, std::string_view content) {
    extents_.push_back({number, 1, offset(), 0, false});
    writeStream(number, entries, content);
    if (extents_.size() > extentsAtOnce) writeCrossReference(false);
}

void PdfFile::writeStream(std::uint32_t number, std::string_view entries, std::string_view content) {
    pending_ << number << " 0 obj\n<<" << entries << "/Length " << content.size() << ">>\nstream\n";
    pending_ << content << "\nendstream\nendobj\n";
    if (pending_.size() > flushSize) flush();
}

std::string_view PdfFile::deflate(std::string_view content) {
    const std::size_t bound = libdeflate_zlib_compress_bound(compressor_.get(), content.size());
    deflated_.clear();
    char* at = deflated_.room(bound);
    deflated_.taken(at + libdeflate_zlib_compress(compressor_.get(), content.data(), content.size(), at, bound));
    return deflated_.view();
}

void PdfFile::flush() {
    const std::string_view bytes = pending_.view();
    crc_ = libdeflate_crc32(crc_, bytes.data(), bytes.size());
    adler_ = libdeflate_adler32(adler_, bytes.data(), bytes.size());
    output_->write(bytes);
    flushed_ += bytes.size();
    pending_.clear();
}

void PdfFile::finish() {
    writePack();
    flush();
    writeCrossReference(true);
    pending_ << "startxref\n" << crossReferenceStart_ << "\n%%EOF\n";
    flush();
    output_->finish();
}

// Where the objects went since the last part; kinds of rows: 1 at an offset, 2 in a pack.
void PdfFile::writeCrossReference(bool last) {
    const std::uint64_t start = offset();
    const std::uint32_t number = reserve();
    extents_.push_back({number, 1, start, 0, false});
    std::sort(extents_.begin(), extents_.end(), [](const Extent& a, const Extent& b) { return a.number < b.number; });
    Bytes entries, rows;
    entries << "/Type/XRef/W[1 5 2]/Index[";
    if (crossReferenceStart_ == 0) {  // number 0 is never used, but has its row
        entries << "0 1 ";
        rows << std::string_view("\0\0\0\0\0\0\xFF\xFF", 8);
    }
    for (const Extent& extent : extents_) {
        entries << extent.number << ' ' << extent.count << ' ';
        for (std::uint32_t i = 0; i < extent.count; ++i) {
            rows << (extent.packed ? '\2' : '\1');
            appendBigEndian(rows, extent.place, 5);
            appendBigEndian(rows, extent.packed ? extent.index + i : 0, 2);
        }
    }
    extents_.clear();
    entries << "]/Size " << next_ << "/Root " << catalog() << " 0 R/Info " << information() << " 0 R";
    if (crossReferenceStart_ != 0) entries << "/Prev " << crossReferenceStart_;
    if (last) appendIdentity(entries);
    entries << "/Filter/FlateDecode";
    writeStream(number, entries.view(), deflate(rows.view()));
    crossReferenceStart_ = start;
}

// From what was written, so that the same pages have the same identity.
void PdfFile::appendIdentity(Bytes& out) const {
    out << "/ID[";
    for (int i = 0; i < 2; ++i)
        (out << '<').hex(crc_, 8).hex(adler_, 8).hex(static_cast<std::uint32_t>(flushed_), 8) << '>';
    out << ']';
}

}  // namespace quillo
