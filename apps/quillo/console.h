#pragma once

#include <atomic>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/services/services.h"

namespace quillo::app {

namespace ExitStatus {
inline constexpr int done = 0, failures = 1, wrongArguments = 2, noCompany = 3;
}

// The user asked for something that cannot be: exit status 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The company cannot be opened: exit status 3.
struct CompanyError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Where the program speaks to: results to out, everything else to err.
struct Console {
    std::ostream& out;
    std::ostream& err;
    bool terminal = false;  // err is read by a person: a progress line is welcome
    // One line on err, "quillo: " in front; a box of several lines as one.
    void complain(std::string_view text) const;
    // One line on out. Like complain it lets no control character through: a terminal would obey it.
    void print(std::string_view line) const;
};

// Message boxes as lines on standard error; kept for the exit status and the JSON pages. They are told by tell() or at
// the end, since whoever reads standard error may take his time while the run holds the company.
class ConsoleMessages final : public Messages {
public:
    explicit ConsoleMessages(const Console& console) : console_(console) {}
    ~ConsoleMessages() { tell(); }
    ConsoleMessages(const ConsoleMessages&) = delete;
    ConsoleMessages& operator=(const ConsoleMessages&) = delete;
    void Show(std::string_view text) override { shown_.emplace_back(text); }
    void tell();
    const std::vector<std::string>& shown() const { return shown_; }

private:
    const Console& console_;
    std::vector<std::string> shown_;
    std::size_t told_ = 0;
};

// The one flag that a Ctrl-C, a hangup or a plain kill sets; another one, a second later, ends the program at once. A
// signal that was ignored when the program began stays so. A reader that is gone and a file that may not grow are
// failures of writing, no signals.
const std::atomic<bool>& interruptFlag();
void catchInterrupts();
// For a command that has nothing to tidy up: from now on a signal ends it at once.
void endAtInterrupts();

}  // namespace quillo::app
