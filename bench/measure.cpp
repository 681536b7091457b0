#include "bench/measure.h"

#include <sched.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace quillo::bench {
namespace {

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// While it lives, the program and the threads that it starts share one core.
class OneCore {
public:
    OneCore() {
        sched_getaffinity(0, sizeof before_, &before_);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(sched_getcpu(), &one);
        if (sched_setaffinity(0, sizeof one, &one) != 0) throw std::runtime_error("no core of its own");
    }
    ~OneCore() { sched_setaffinity(0, sizeof before_, &before_); }
    OneCore(const OneCore&) = delete;
    OneCore& operator=(const OneCore&) = delete;

private:
    cpu_set_t before_;
};

}  // namespace

double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Pair measure(int rounds, const std::function<void()>& work, const std::function<void()>& floor) {
    work();
    floor();
    std::vector<double> ratios;
    std::vector<Pair> pairs;
    for (int i = 0; i < rounds; ++i) pairs.push_back({seconds(work), seconds(floor)});
    std::vector<double> works, floors;
    for (const Pair& pair : pairs) works.push_back(pair.work), floors.push_back(pair.floor);
    return {median(works), median(floors)};
}

void printRow(const std::string& name, const Pair& pair, double aim) {
    std::printf("%-58s %8.3f s %8.3f s %7.2f  (aim %.1f) %s\n", name.c_str(), pair.work, pair.floor, pair.ratio(), aim,
                pair.ratio() <= aim ? "met" : "MISSED");
    std::fflush(stdout);
}

void printRows(const std::string& name, int rounds, const std::function<void()>& work,
               const std::function<void()>& floor, Aims aims) {
    printRow(name, measure(rounds, work, floor), aims.twoCores);
    const OneCore one;
    printRow("    the same on one core", measure(rounds, work, floor), aims.oneCore);
}

// The program tells its own peak: what the parent would read of a child holds the parent's memory at the fork.
long peakMemory(const std::vector<std::string>& arguments) {
    std::string command = "'" + std::filesystem::read_symlink("/proc/self/exe").string() + "'";
    for (const std::string& argument : arguments) command += " '" + argument + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> child(popen(command.c_str(), "r"), pclose);
    long kibibytes = 0;
    if (!child || std::fscanf(child.get(), "%ld", &kibibytes) != 1 || kibibytes <= 0)
        throw std::runtime_error("the run for its memory failed");
    return kibibytes;
}

void limitMemory(long mebibytes) {
    const auto bytes = static_cast<rlim_t>(mebibytes) * 1024 * 1024;
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_AS, &limit) != 0) throw std::runtime_error("no limit for the memory");
}

void printPeakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:")) std::printf("%ld\n", std::stol(line.substr(6)));
}

}  // namespace quillo::bench
