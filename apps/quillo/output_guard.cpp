#include "apps/quillo/output_guard.h"

#include <filesystem>

#include "apps/quillo/console.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

bool areOne(const std::string& one, const std::string& other) {
    std::error_code ignored;
    if (fs::equivalent(one, other, ignored)) return true;
    const fs::path first = fs::weakly_canonical(one, ignored), second = fs::weakly_canonical(other, ignored);
    return !first.empty() && first == second;
}

}  // namespace

void guardOutputs(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        if (outputs[i].empty()) continue;
        for (const std::string& input : inputs) {
            if (input.empty()) continue;
            for (const char* ending : {"", "-wal", "-shm", "-journal"})
                if (areOne(outputs[i], input + ending))
                    throw UsageError(outputs[i] + " would be written over " + input + ending + "; nothing was done");
        }
        for (std::size_t k = 0; k < i; ++k)
            if (!outputs[k].empty() && areOne(outputs[i], outputs[k]))
                throw UsageError(outputs[i] + " is asked for as two outputs; nothing was done");
    }
}

}  // namespace quillo::app
