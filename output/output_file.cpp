#include "output/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "output/output_error.h"

namespace quillo {
namespace {

constexpr mode_t newFileMode = 0666;  // less the process's mask

// A file of a name that nobody has, beside the target so that it can take its place.
int createBeside(const std::string& target, std::string& name) {
    const std::filesystem::path path(target);
    for (int attempt = 0;; ++attempt) {
        const std::string own =
            "." + path.filename().string() + "." + std::to_string(getpid()) + "-" + std::to_string(attempt);
        name = (path.parent_path() / own).string();
        const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode);
        if (file >= 0 || errno != EEXIST) return file;
    }
}

}  // namespace

OutputFile::OutputFile(std::string path) : path_(std::move(path)), target_(path_) {
    std::error_code none;
    const auto kind = std::filesystem::status(path_, none).type();
    if (kind == std::filesystem::file_type::directory) fail(EISDIR);
    const bool exists = std::filesystem::exists(path_, none);
    if (exists) target_ = std::filesystem::canonical(path_, none).string();
    if (exists && ::access(target_.c_str(), W_OK) != 0) fail(errno);
    if (exists && kind != std::filesystem::file_type::regular) {
        file_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
        if (file_ < 0) fail(errno);
        return;
    }
    file_ = createBeside(target_, temporary_);
    if (file_ < 0) {
        const int reason = errno;
        temporary_.clear();
        fail(reason);
    }
}

OutputFile::~OutputFile() {
    if (file_ >= 0) ::close(file_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void OutputFile::close() {
    if (file_ < 0) return;
    const int result = ::close(file_);
    file_ = -1;
    if (result != 0) fail(errno);
}

void OutputFile::finish() {
    close();
    if (temporary_.empty()) return;
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) fail(errno);
    temporary_.clear();
}

void OutputFile::fail(int reason) const {
    throw OutputError("Cannot write " + path_ + ": " + std::generic_category().message(reason));
}

void OutputStream::write(std::string_view bytes) {
    if (!stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw OutputError("Cannot write the output stream");
}

void OutputStream::finish() {
    if (!stream_.flush()) throw OutputError("Cannot write the output stream");
}

}  // namespace quillo
