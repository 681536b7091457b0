#pragma once

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillo::bench {

// Seconds of one call.
double seconds(const std::function<void()>& work);

// Two pieces of work in turn, so that a machine that slows down slows both; medians of the rounds.
struct Pair {
    double work = 0, floor = 0;
    double ratio() const { return work / floor; }
};
Pair measure(int rounds, const std::function<void()>& work, const std::function<void()>& floor);

void printRow(const std::string& name, const Pair& pair, double aim);

// Work that paints on a second thread: a row for two cores and one for a single core.
struct Aims {
    double twoCores, oneCore;
};
void printRows(const std::string& name, int rounds, const std::function<void()>& work,
               const std::function<void()>& floor, Aims aims);

// Peak memory in KiB of this program run again with the arguments.
long peakMemory(const std::vector<std::string>& arguments);
// What a program that is run so ends with.
void printPeakMemory();
// Ends a run that takes more, before it takes the machine's memory.
void limitMemory(long mebibytes);

// A folder for the bench's files, gone with the object.
struct Folder {
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "quillo-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path = pattern;
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string path;
    std::string file(const char* name) const { return path + "/" + name; }
};

}  // namespace quillo::bench
