#include "output/unlinked_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

namespace quillo {
namespace {

constexpr mode_t newFileMode = 0666;  // less the process's mask
constexpr mode_t permissions = 07777;

[[noreturn]] void fail(int reason) {
    throw std::system_error(reason, std::generic_category());
}

void require(bool success) {
    if (!success) fail(errno);
}

// Short, so that a file whose own name is as long as can be has room for one beside it.
std::string hiddenName(const std::string& folder) {
    static constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    static thread_local std::mt19937_64 random{std::random_device{}()};
    std::string name = ".quillo-";
    for (int i = 0; i < 12; ++i) name += letters[random() % (sizeof letters - 1)];
    return (std::filesystem::path(folder) / name).string();
}

// Makes a file of a name that nobody has: make(name) is false when it cannot.
template <class Make>
std::string withNewName(const std::string& folder, Make make) {
    while (true) {
        std::string name = hiddenName(folder);
        if (make(name)) return name;
        if (errno != EEXIST) fail(errno);
    }
}

bool link(int file, const std::string& name) {
    const std::string own = "/proc/self/fd/" + std::to_string(file);
    return ::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

void writeAt(int file, std::string_view bytes, off_t at) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file, bytes.data(), bytes.size(), at);
        if (written < 0 && errno == EINTR) continue;
        require(written >= 0);
        bytes.remove_prefix(static_cast<std::size_t>(written));
        at += written;
    }
}

// A handle that is closed with its scope.
struct OpenFile {
    int file;
    ~OpenFile() { ::close(file); }
};

}  // namespace

std::string temporaryFolder() {
    std::error_code none;
    const auto folder = std::filesystem::temp_directory_path(none);
    return none ? "/tmp" : folder.string();
}

UnlinkedFile::UnlinkedFile(std::string folder) : folder_(folder.empty() ? "." : std::move(folder)) {
    open();
}

void UnlinkedFile::open() {
#ifdef O_TMPFILE
    file_ = ::open(folder_.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, newFileMode);
    if (file_ >= 0) return;
#endif
    name_ = withNewName(folder_, [this](const std::string& name) {
        file_ = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode);
        return file_ >= 0;
    });
}

UnlinkedFile::~UnlinkedFile() {
    if (file_ >= 0) ::close(file_);
    if (!name_.empty()) ::unlink(name_.c_str());
}

void UnlinkedFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        require(written >= 0);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void UnlinkedFile::nameIt() {
    if (name_.empty()) name_ = withNewName(folder_, [this](const std::string& name) { return link(file_, name); });
}

void UnlinkedFile::park() {
    nameIt();
    const int file = std::exchange(file_, -1);
    require(::close(file) == 0);
}

void UnlinkedFile::reopen() {
    if (file_ < 0) file_ = ::open(name_.c_str(), O_RDWR | O_CLOEXEC);
    require(file_ >= 0);
}

bool UnlinkedFile::takePlaceOf(const std::string& target) {
    reopen();
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        struct stat own {};
        require(::fstat(file_, &own) == 0);
        const bool owned = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
        if (old.st_nlink > 1 || (!owned && ::fchown(file_, old.st_uid, old.st_gid) != 0)) return false;
        require(::fchmod(file_, old.st_mode & permissions) == 0);
    } else if (name_.empty() && link(file_, target)) {
        return true;
    }
    nameIt();
    require(::rename(name_.c_str(), target.c_str()) == 0);
    name_.clear();
    return true;
}

bool UnlinkedFile::fill(std::string& piece, long long at) {
    constexpr std::size_t most = 1 << 16;
    piece.resize(most);
    ssize_t size = -1;
    do size = ::pread(file_, piece.data(), most, at);
    while (size < 0 && errno == EINTR);
    require(size >= 0);
    piece.resize(static_cast<std::size_t>(size));
    return size > 0;
}

void UnlinkedFile::copyOver(const std::string& target) {
    reopen();
    const OpenFile to{::open(target.c_str(), O_WRONLY | O_CLOEXEC)};
    require(to.file >= 0);
    struct stat old {
    }, own{};
    require(::fstat(to.file, &old) == 0 && ::fstat(file_, &own) == 0);
    // Room for all of it first: what is there is not touched for half of what is new.
    const int full = own.st_size > 0 ? ::posix_fallocate(to.file, 0, own.st_size) : 0;
    if (full != 0) {
        require(::ftruncate(to.file, old.st_size) == 0);
        fail(full);
    }
    off_t at = 0;
    read([&](std::string_view piece) {
        writeAt(to.file, piece, at);
        at += static_cast<off_t>(piece.size());
    });
    require(::ftruncate(to.file, own.st_size) == 0);
}

}  // namespace quillo
