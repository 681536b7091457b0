#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace quillo {

struct DemoOptions {
    int scale = 1;           // multiplies the documents, and the customers in a small measure
    std::uint64_t seed = 1;  // the same seed, scale and language give the same bytes
    bool french = false;     // the company's own words: accounts, methods, currencies, categories and the like
    const std::atomic<bool>* stop = nullptr;  // while it is true, the writing ends with RunStopped
};

// Writes the company file of a made-up trade from April 2022 to the end of 2025, whose books balance to the
// cent. The file appears whole or not at all. Throws std::invalid_argument for a scale below 1,
// std::runtime_error when the file is there already, std::system_error and sqlite::Error when it cannot be written.
void writeDemoCompany(const std::string& path, const DemoOptions& options);

}  // namespace quillo
