#include "apps/quillo/console.h"

#include <csignal>
#include <ostream>

namespace quillo::app {
namespace {

std::atomic<bool> interrupted{false};

void interrupt(int signal) {
    interrupted = true;
    std::signal(signal, SIG_DFL);
}

// A box of several lines as one line.
std::string oneLine(std::string_view text) {
    std::string line;
    for (const char letter : text) {
        if (letter == '\r') continue;
        line += letter == '\n' ? ' ' : letter;
    }
    return line;
}

}  // namespace

void Console::complain(std::string_view text) const {
    err << (terminal ? "\r\033[K" : "") << "quillo: " << oneLine(text) << '\n';
}

void ConsoleMessages::Show(std::string_view text) {
    shown_.emplace_back(text);
    console_.complain(text);
}

const std::atomic<bool>& interruptFlag() {
    return interrupted;
}

void catchInterrupts() {
    interrupted = false;
    std::signal(SIGINT, interrupt);
}

}  // namespace quillo::app
