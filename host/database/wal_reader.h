#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "host/database/watch.h"

namespace quillo::sqlite {

// A database file as it lies, below what SQLite makes of it. It holds a shared lock while it lives, so that nobody
// takes away the files that a database in WAL mode keeps beside itself. Failures are sqlite::Error.
class WalReader {
public:
    WalReader(const std::string& path, const Watch& watch);
    ~WalReader();
    WalReader(const WalReader&) = delete;
    WalReader& operator=(const WalReader&) = delete;

    bool isWal() const;
    // Whether both files are beside it: a program has it open, or broke off.
    bool isOpenElsewhere() const;

    struct Copy {
        struct Free {
            void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
        };
        std::unique_ptr<unsigned char, Free> bytes;
        std::size_t size = 0;
    };
    // The database with what its log has on top, as one that needs no log. None when another program came meanwhile.
    std::optional<Copy> copy() const;

private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    void read(unsigned char* to, std::size_t size, std::size_t from) const;
    std::size_t size() const;

    std::unique_ptr<sqlite3, Close> handle_;
    sqlite3_file* file_ = nullptr;  // SQLite's own, since another handle of this process would end its locks
    std::string path_;
};

}  // namespace quillo::sqlite
