#include "apps/quillo/patient_stream.h"

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace quillo::app {
namespace {

constexpr int napMilliseconds = 100;

// Whether the next bytes of a pipe or terminal find room; looks again for a stop in between.
bool waitForRoom(int file, WaitRule rule) {
    while (true) {
        pollfd handle{file, POLLOUT, 0};
        if (rule.stop && !rule.lastWords) return false;
        if (::poll(&handle, 1, rule.stop ? 0 : napMilliseconds) > 0) return true;
        if (rule.stop) return false;
    }
}

}  // namespace

// As much at a time as a pipe takes without waiting once it tells that it has room.
int writePatiently(int file, std::string_view bytes, WaitRule rule) {
    struct stat kind {};
    const bool plain = ::fstat(file, &kind) == 0 && S_ISREG(kind.st_mode);
    while (!bytes.empty()) {
        if (!plain && !waitForRoom(file, rule)) return EINTR;
        const ssize_t written =
            ::write(file, bytes.data(), plain ? bytes.size() : std::min<std::size_t>(bytes.size(), PIPE_BUF));
        if (written < 0 && errno != EINTR && errno != EAGAIN) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

PatientBuffer::int_type PatientBuffer::overflow(int_type letter) {
    if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
    const char one = traits_type::to_char_type(letter);
    return xsputn(&one, 1) == 1 ? letter : traits_type::eof();
}

std::streamsize PatientBuffer::xsputn(const char* letters, std::streamsize count) {
    constexpr std::size_t most = 1 << 15;
    waiting_.append(letters, static_cast<std::size_t>(count));
    return waiting_.size() < most || sync() == 0 ? count : 0;
}

int PatientBuffer::sync() {
    if (failure_ == 0) failure_ = writePatiently(file_, waiting_, rule_);
    waiting_.clear();
    return failure_ == 0 ? 0 : -1;
}

}  // namespace quillo::app
