#include "apps/quillo/output_guard.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "apps/quillo/console.h"
#include "framework/values/names.h"
#include "output/output_file.h"
#include "output/png/png_sink.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view sideEndings[] = {"-wal", "-shm", "-journal"};

bool areOne(const std::string& one, const std::string& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored) || writtenPath(one) == writtenPath(other);
}

// A file that is read and those that a database keeps beside it, where a link leads to it too.
std::vector<std::string> namesOf(const std::string& input) {
    std::vector<std::string> names{input};
    for (const std::string_view ending : sideEndings) {
        names.push_back(input + std::string(ending));
        names.push_back(writtenPath(input) + std::string(ending));
    }
    return names;
}

// The file that a database would keep under this name beside itself; empty for any other.
std::string databaseOf(const std::string& path) {
    const std::string written = writtenPath(path);
    for (const std::string_view ending : sideEndings) {
        if (!written.ends_with(ending)) continue;
        std::string database = written.substr(0, written.size() - ending.size());
        std::error_code ignored;
        if (fs::is_regular_file(database, ignored)) return database;
    }
    return "";
}

// Never asked of a file that this program has open as a database: reading it would end the locks.
bool isDatabase(const std::string& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) return false;
    std::string start(15, '\0');
    std::ifstream(path, std::ios::binary).read(start.data(), static_cast<std::streamsize>(start.size()));
    return start == "SQLite format 3";
}

bool takesMany(const std::string& path) {
    std::error_code ignored;
    return fs::exists(path, ignored) && !fs::is_regular_file(path, ignored);
}

void refuseOver(const std::string& output, const std::string& what) {
    throw UsageError(output + " would be written over " + what + "; nothing was done");
}

void guardOutput(const std::string& output, const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs) {
        if (input.empty()) continue;
        for (const std::string& name : namesOf(input))
            if (areOne(output, name)) refuseOver(output, name);
    }
    if (!databaseOf(output).empty()) refuseOver(output, "what the database " + databaseOf(output) + " keeps there");
    if (isDatabase(output)) refuseOver(output, "a database");
}

}  // namespace

std::vector<std::string> inputsOf(const std::string& company, const std::string& language) {
    const bool isFile = language.find('/') != std::string::npos || language.ends_with(".txt");
    return isFile ? std::vector{company, language} : std::vector{company};
}

void guardOutputs(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        if (outputs[i].empty()) continue;
        guardOutput(outputs[i], inputs);
        for (std::size_t k = 0; k < i; ++k)
            if (!outputs[k].empty() && areOne(outputs[i], outputs[k]) && !takesMany(outputs[i]))
                throw UsageError(outputs[i] + " is asked for as two outputs; nothing was done");
    }
}

void guardPages(const std::string& format, const std::string& path, const std::vector<std::string>& others) {
    const std::string ending = fs::path(path).extension().string();
    if (!equalNames(format.empty() ? ending : "." + format, ".png")) return;
    for (const std::string& other : others) {
        if (other.empty() || path.empty()) continue;
        for (const std::string& name : {other, writtenPath(other)})
            if (PngSink::pageNumber(writtenPath(path), name) > 0 || PngSink::pageNumber(path, name) > 0)
                throw UsageError(other + " has the name of one of the pages of " + path + "; nothing was done");
    }
}

void guardNewCompany(const std::string& path) {
    std::error_code ignored;
    if (fs::exists(path, ignored)) throw UsageError(path + " is there already; nothing was changed");
    const std::string written = writtenPath(path);
    for (const std::string_view ending : sideEndings)
        if (fs::exists(written + std::string(ending), ignored))
            throw UsageError(written + std::string(ending) + " is there and would be taken for a part of it; nothing " +
                             "was changed");
    if (!databaseOf(path).empty())
        throw UsageError(path + " is a name that the database " + databaseOf(path) + " uses; nothing was changed");
}

}  // namespace quillo::app
