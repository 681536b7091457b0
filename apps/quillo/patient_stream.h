#pragma once

#include <atomic>
#include <streambuf>
#include <string>
#include <string_view>

namespace quillo::app {

// Whom a stop keeps from waiting: what a reader does not take at once is lost then.
struct WaitRule {
    const std::atomic<bool>& stop;
    bool lastWords;  // after a stop, what the reader takes at once still goes out
};

// Writes all of it to a handle whose reader may be slow or gone. Gives 0, or the number of the error; EINTR for a stop.
int writePatiently(int file, std::string_view bytes, WaitRule rule);

// A stream's end over such a handle.
class PatientBuffer final : public std::streambuf {
public:
    PatientBuffer(int file, WaitRule rule) : file_(file), rule_(rule) {}
    // Why the stream is broken; 0: it is not.
    int failure() const { return failure_; }

protected:
    int_type overflow(int_type letter) override;
    std::streamsize xsputn(const char* letters, std::streamsize count) override;
    int sync() override;

private:
    int file_;
    WaitRule rule_;
    std::string waiting_;
    int failure_ = 0;
};

}  // namespace quillo::app
