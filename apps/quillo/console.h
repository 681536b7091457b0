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

// Message boxes as lines on standard error; kept for the exit status and the JSON pages.
class ConsoleMessages final : public Messages {
public:
    explicit ConsoleMessages(const Console& console) : console_(console) {}
    void Show(std::string_view text) override;
    const std::vector<std::string>& shown() const { return shown_; }

private:
    const Console& console_;
    std::vector<std::string> shown_;
};

// The one flag that a Ctrl-C sets. The second Ctrl-C ends the program at once.
const std::atomic<bool>& interruptFlag();
void catchInterrupts();

}  // namespace quillo::app
