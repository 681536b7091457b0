#include "bench/measure.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace quillo::bench {
namespace {

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

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

long peakMemory(const std::vector<std::string>& arguments) {
    std::vector<std::string> all = {"/proc/self/exe"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& text : all) argv.push_back(text.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("the run for its memory failed");
    return usage.ru_maxrss;
}

}  // namespace quillo::bench
