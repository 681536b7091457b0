#include "apps/quillo/console.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <ctime>
#include <iterator>
#include <ostream>

#include "framework/values/printable.h"

namespace quillo::app {
namespace {

std::atomic<bool> interrupted{false};

std::time_t firstAt = 0;
constexpr std::array endings{SIGINT, SIGTERM, SIGHUP};

// A closed terminal hangs up twice, the shell and the system each once: these are one.
void interrupt(int signal) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    if (!interrupted.exchange(true)) {
        firstAt = now.tv_sec;
    } else if (now.tv_sec > firstAt) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}

void handle(void (*handler)(int)) {
    for (const int signal : endings) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN) continue;
        action.sa_handler = handler;
        action.sa_flags = 0;  // what waits is to see the flag
        sigaction(signal, &action, nullptr);
    }
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

void ConsoleMessages::tell() {
    while (told_ < shown_.size()) console_.complain(shown_[told_++]);
}

const std::atomic<bool>& interruptFlag() {
    return interrupted;
}

void catchInterrupts() {
    interrupted = false;
    handle(interrupt);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void endAtInterrupts() {
    handle(SIG_DFL);
}

}  // namespace quillo::app
