#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quillo::test {

// A path for one test that nothing else uses; what is there goes with it.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& ending = ".db") {
        static int count = 0;
        path_ = (std::filesystem::temp_directory_path() /
                 ("quillo-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ending))
                    .string();
        std::filesystem::remove(path_);
    }
    ~TemporaryFile() {
        for (const char* tail : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path_ + tail);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }
    void write(std::string_view text) const { std::ofstream(path_, std::ios::binary) << text; }

private:
    std::string path_;
};

}  // namespace quillo::test
