#include "apps/quillo/console.h"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <ostream>

#include "framework/values/printable.h"

namespace quillo::app {
namespace {

std::atomic<bool> interrupted{false};

void interrupt(int signal) {
    interrupted = true;
    std::signal(signal, SIG_DFL);
}

std::string withoutReturns(std::string_view text) {
    std::string result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](char letter) { return letter != '\r'; });
    return result;
}

}  // namespace

void Console::complain(std::string_view text) const {
    err << (terminal ? "\r\033[K" : "") << "quillo: " << printable(withoutReturns(text)) << '\n';
}

void Console::print(std::string_view line) const {
    out << printable(line) << '\n';
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
