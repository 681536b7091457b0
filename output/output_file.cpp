#include "output/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "output/output_error.h"
#include "output/unlinked_file.h"

namespace quillo {

std::string writtenPath(const std::string& path) {
    constexpr int mostLinks = 40;
    std::filesystem::path at(path);
    std::error_code failure;
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(at, failure); ++i) {
        const auto next = std::filesystem::read_symlink(at, failure);
        if (failure) break;
        at = at.parent_path() / next;
    }
    const auto folder = std::filesystem::weakly_canonical(at.has_parent_path() ? at.parent_path() : ".", failure);
    return failure || !at.has_filename() ? at.string() : (folder / at.filename()).string();
}

OutputFile::OutputFile(std::string path) : path_(std::move(path)), target_(writtenPath(path_)) {
    std::error_code none;
    const auto kind = std::filesystem::status(target_, none).type();
    if (kind == std::filesystem::file_type::directory || !std::filesystem::path(target_).has_filename()) fail(EISDIR);
    const bool exists = kind != std::filesystem::file_type::not_found && kind != std::filesystem::file_type::none;
    if (exists && ::access(target_.c_str(), W_OK) != 0) fail(errno);
    if (!exists || kind == std::filesystem::file_type::regular) {
        openHidden(exists);
        return;
    }
    device_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    if (device_ < 0) fail(errno);
}

// A file in a folder that takes no others can still be written over.
void OutputFile::openHidden(bool exists) {
    try {
        hidden_ = std::make_unique<UnlinkedFile>(std::filesystem::path(target_).parent_path().string());
    } catch (const std::system_error& failure) {
        if (!exists) fail(failure.code().value());
        beside_ = false;
        guarded([&] { hidden_ = std::make_unique<UnlinkedFile>(temporaryFolder()); });
    }
}

OutputFile::~OutputFile() {
    if (device_ >= 0) ::close(device_);
}

template <class Step>
void OutputFile::guarded(Step step) const {
    try {
        step();
    } catch (const std::system_error& failure) {
        fail(failure.code().value());
    }
}

void OutputFile::write(std::string_view bytes) {
    if (hidden_) return guarded([&] { hidden_->write(bytes); });
    while (!bytes.empty()) {
        const ssize_t written = ::write(device_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) fail(errno);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void OutputFile::close() {
    if (hidden_ && beside_) guarded([this] { hidden_->park(); });
}

void OutputFile::finish() {
    if (device_ >= 0 && ::close(std::exchange(device_, -1)) != 0) fail(errno);
    if (!hidden_) return;
    guarded([this] {
        if (!beside_ || !hidden_->takePlaceOf(target_)) hidden_->copyOver(target_);
    });
    hidden_.reset();
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
