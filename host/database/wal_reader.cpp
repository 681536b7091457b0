#include "host/database/wal_reader.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <new>
#include <utility>
#include <vector>

#include "framework/values/errors.h"
#include "host/database/sqlite_handle.h"

namespace quillo::sqlite {
namespace {

namespace fs = std::filesystem;

// Of a database's first page: whether reading and writing go through a log.
constexpr std::size_t versionsAt = 18, headerSize = 100;
constexpr unsigned char throughLog = 2, throughJournal = 1;

void require(int code) {
    if (code != SQLITE_OK) throw Error(code, sqlite3_errstr(code));
}

std::string logOf(const std::string& path) {
    std::ifstream file(path + "-wal", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t word(std::string_view bytes, std::size_t at, bool bigEndian = true) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + (bigEndian ? i : 3 - i)]);
    return number;
}

// The pages that a log holds up to its last whole transaction. A log that was not written to its end just ends earlier.
class Log {
public:
    explicit Log(std::string bytes) : bytes_(std::move(bytes)) {
        constexpr std::uint32_t littleEndian = 0x377f0682;
        if (bytes_.size() < headSize || (word(bytes_, 0) & ~1U) != littleEndian) return;
        bigEndian_ = (word(bytes_, 0) & 1) != 0;
        pageSize_ = word(bytes_, 8);
        sum(0, 24);
        if (word(bytes_, 24) == first_ && word(bytes_, 28) == second_) readFrames();
    }

    std::size_t pageSize() const { return pageSize_; }
    std::size_t pageCount() const { return pageCount_; }  // of the database; 0: no transaction is whole
    const std::map<std::uint32_t, std::string_view>& pages() const { return pages_; }

private:
    static constexpr std::size_t headSize = 32, frameHead = 24;

    void readFrames() {
        std::map<std::uint32_t, std::string_view> waiting;  // for the end of their transaction
        for (std::size_t at = headSize; at + frameHead + pageSize_ <= bytes_.size(); at += frameHead + pageSize_) {
            if (bytes_.compare(at + 8, 8, bytes_, 16, 8) != 0) return;  // of an earlier round
            sum(at, 8);
            sum(at + frameHead, pageSize_);
            if (word(bytes_, at + 16) != first_ || word(bytes_, at + 20) != second_) return;
            waiting[word(bytes_, at)] = std::string_view(bytes_).substr(at + frameHead, pageSize_);
            if (word(bytes_, at + 4) == 0) continue;
            pageCount_ = word(bytes_, at + 4);
            for (const auto& [page, bytes] : std::exchange(waiting, {})) pages_[page] = bytes;
        }
    }

    void sum(std::size_t at, std::size_t size) {
        for (const std::size_t end = at + size; at < end; at += 8) {
            first_ += word(bytes_, at, bigEndian_) + second_;
            second_ += word(bytes_, at + 4, bigEndian_) + first_;
        }
    }

    const std::string bytes_;
    bool bigEndian_ = false;
    std::uint32_t first_ = 0, second_ = 0;
    std::size_t pageSize_ = 0, pageCount_ = 0;
    std::map<std::uint32_t, std::string_view> pages_;
};

}  // namespace

WalReader::WalReader(const std::string& path, const Watch& watch) : path_(fs::weakly_canonical(path).string()) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(handle);
    require(code);
    require(sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file_));
    const auto since = Watch::Clock::now();
    int locked = SQLITE_BUSY;
    while ((locked = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED)) == SQLITE_BUSY)
        if (!watch.wait(since)) break;
    if (locked == SQLITE_BUSY && watch.stopped()) throw RunStopped();
    if (locked == SQLITE_BUSY) throw Error(locked, "another program writes to the file and kept it locked");
    require(locked);
}

WalReader::~WalReader() {
    file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
}

void WalReader::read(unsigned char* to, std::size_t size, std::size_t from) const {
    require(file_->pMethods->xRead(file_, to, static_cast<int>(size), static_cast<sqlite3_int64>(from)));
}

std::size_t WalReader::size() const {
    sqlite3_int64 size = 0;
    require(file_->pMethods->xFileSize(file_, &size));
    return static_cast<std::size_t>(size);
}

bool WalReader::isWal() const {
    if (size() < headerSize) return false;
    unsigned char header[headerSize];
    read(header, headerSize, 0);
    return std::memcmp(header, "SQLite format 3", 16) == 0 && header[versionsAt] == throughLog &&
           header[versionsAt + 1] == throughLog;
}

bool WalReader::isOpenElsewhere() const {
    std::error_code none;
    return fs::exists(path_ + "-wal", none) && fs::exists(path_ + "-shm", none);
}

std::optional<WalReader::Copy> WalReader::copy() const {
    constexpr std::size_t most = 1 << 24;
    const Log log(logOf(path_));
    const std::size_t stored = size(), size = log.pageCount() > 0 ? log.pageCount() * log.pageSize() : stored;
    Copy copy{decltype(Copy::bytes)(static_cast<unsigned char*>(sqlite3_malloc64(size))), size};
    if (!copy.bytes) throw std::bad_alloc();
    std::memset(copy.bytes.get(), 0, size);
    for (std::size_t at = 0; at < std::min(size, stored); at += most)
        read(copy.bytes.get() + at, std::min(most, std::min(size, stored) - at), at);
    for (const auto& [page, bytes] : log.pages())
        if (page >= 1 && page <= log.pageCount())
            std::memcpy(copy.bytes.get() + (page - 1) * log.pageSize(), bytes.data(), bytes.size());
    copy.bytes.get()[versionsAt] = copy.bytes.get()[versionsAt + 1] = throughJournal;
    if (isOpenElsewhere()) return std::nullopt;
    return copy;
}

}  // namespace quillo::sqlite
