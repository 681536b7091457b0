#include "apps/quillo/console.h"

#include <array>
#include <csignal>
#include <ctime>
#include <ostream>

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
