#include "host/company/new_company_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

namespace quillo {
namespace {

[[noreturn]] void fail() {
    throw std::system_error(errno, std::generic_category());
}

}  // namespace

NewCompanyFile::NewCompanyFile(std::string path) : path_(std::move(path)) {
    constexpr mode_t mode = 0666;  // less the process's mask
    std::random_device random;
    const auto folder = std::filesystem::path(path_).parent_path();
    int file = -1;
    do {
        name_ = (folder / (".quillo-" + std::to_string(random()) + std::to_string(random()))).string();
        file = ::open(name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (file < 0 && errno == EEXIST);
    if (file < 0) fail();
    ::close(file);
}

NewCompanyFile::~NewCompanyFile() {
    if (!name_.empty()) ::unlink(name_.c_str());
}

void NewCompanyFile::publish() {
    const bool moved = ::renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, path_.c_str(), RENAME_NOREPLACE) == 0;
    if (!moved && errno != EINVAL && errno != ENOSYS) fail();
    // A file system that cannot do that in one step.
    if (!moved && (::link(name_.c_str(), path_.c_str()) != 0 || ::unlink(name_.c_str()) != 0)) fail();
    name_.clear();
}

}  // namespace quillo
