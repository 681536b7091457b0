#include "apps/quillo/outlet.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "apps/quillo/patient_stream.h"
#include "framework/values/errors.h"
#include "output/output_error.h"
#include "output/unlinked_file.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

bool isPlain(const std::string& path) {
    const auto type = fs::status(path).type();
    return type == fs::file_type::regular || type == fs::file_type::not_found || type == fs::file_type::directory;
}

[[noreturn]] void fail(const std::string& path, int reason) {
    if (reason == EINTR && interruptFlag()) throw RunStopped();
    throw OutputError("Cannot write " + path + ": " + std::generic_category().message(reason));
}

// A handle for writing; a pipe is waited for until somebody reads it.
class Device {
public:
    explicit Device(const std::string& path) {
        using namespace std::chrono_literals;
        const bool pipe = fs::is_fifo(path);
        while ((file_ = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) < 0) {
            if (interruptFlag()) throw RunStopped();
            if (!(pipe && errno == ENXIO) && errno != EINTR) fail(path, errno);
            std::this_thread::sleep_for(50ms);
        }
    }
    ~Device() { ::close(file_); }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    int file() const { return file_; }

private:
    int file_ = -1;
};

}  // namespace

struct Outlet::Held {
    std::string path;
    UnlinkedFile bytes{temporaryFolder()};
    bool finished = false;
};

class Outlet::HeldOutput final : public Output {
public:
    explicit HeldOutput(std::shared_ptr<Held> held) : held_(std::move(held)) {}
    void write(std::string_view bytes) override try {
        held_->bytes.write(bytes);
    } catch (const std::system_error& failure) {
        throw OutputError(std::string("Cannot keep the output for a while: ") + failure.code().message());
    }
    void finish() override { held_->finished = true; }

private:
    std::shared_ptr<Held> held_;
};

std::unique_ptr<Output> Outlet::open(const std::string& path) {
    if (!path.empty() && isPlain(path)) return std::make_unique<OutputFile>(path);
    if (!path.empty() && ::access(path.c_str(), W_OK) != 0) fail(path, errno);
    held_.push_back(std::make_shared<Held>());
    held_.back()->path = path;
    return std::make_unique<HeldOutput>(held_.back());
}

void Outlet::deliver() {
    for (const auto& held : held_)
        if (held->finished) deliver(*held);
    held_.clear();
}

void Outlet::deliver(Held& held) const {
    if (held.path.empty()) {
        held.bytes.read([this](std::string_view piece) {
            console_.out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
        });
        console_.out.flush();  // whoever owns the stream tells why it broke
        return;
    }
    const Device device(held.path);
    held.bytes.read([&](std::string_view piece) {
        if (const int failure = writePatiently(device.file(), piece, {interruptFlag(), false}); failure != 0)
            fail(held.path, failure);
    });
}

void OutletStream::finish() {
    if (failure_) std::rethrow_exception(failure_);
    output_->finish();
}

OutletStream::int_type OutletStream::overflow(int_type letter) {
    if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
    const char one = traits_type::to_char_type(letter);
    return xsputn(&one, 1) == 1 ? letter : traits_type::eof();
}

std::streamsize OutletStream::xsputn(const char* letters, std::streamsize count) {
    if (failure_) return 0;
    try {
        output_->write({letters, static_cast<std::size_t>(count)});
        return count;
    } catch (...) {
        failure_ = std::current_exception();
        return 0;
    }
}

}  // namespace quillo::app
