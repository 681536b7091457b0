#pragma once

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "apps/quillo/console.h"
#include "output/output_file.h"

namespace quillo::app {

// Where a command's outputs go. A plain file appears when its output finishes. What goes to standard output, a pipe or
// a device waits for deliver(), when the run is known to be good and has let go of the company: a reader that takes its
// time keeps nobody from writing.
class Outlet {
public:
    explicit Outlet(const Console& console) : console_(console) {}
    Outlet(const Outlet&) = delete;
    Outlet& operator=(const Outlet&) = delete;

    // path empty: standard output. Throws OutputError when it cannot be written.
    std::unique_ptr<Output> open(const std::string& path);
    // What waits and is finished, in the order of its opening. Throws OutputError, and RunStopped.
    void deliver();

private:
    struct Held;
    class HeldOutput;
    void deliver(Held& held) const;

    const Console& console_;
    std::vector<std::shared_ptr<Held>> held_;
};

// A stream over an output, for what writes to streams.
class OutletStream final : private std::streambuf {
public:
    explicit OutletStream(std::unique_ptr<Output> output) : stream_(this), output_(std::move(output)) {}
    std::ostream& stream() { return stream_; }
    // Throws what an earlier write met.
    void finish();

private:
    int_type overflow(int_type letter) override;
    std::streamsize xsputn(const char* letters, std::streamsize count) override;

    std::ostream stream_;
    std::unique_ptr<Output> output_;
    std::exception_ptr failure_;
};

}  // namespace quillo::app
