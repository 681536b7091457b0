#pragma once

#include <cstdint>
#include <string>

#include "apps/quillo/console.h"

namespace quillo::app {

// An empty company: schema, views and settings. Throws UsageError when the file is there or cannot be written.
void newCompany(const std::string& path, const Console& console);

// The demo company; its own words are in English or, with "fr", in French. Throws UsageError for another language.
void demoCompany(const std::string& path, int scale, std::uint64_t seed, const std::string& language,
                 const Console& console);

// Tells what a company lacks; with books, proves its equalities instead. Gives the exit status.
int checkCompanyFile(const std::string& path, bool books, const Console& console);

// A company of its own that is gone with the object: what the catalogue's reports are described with.
class ScratchCompany {
public:
    ScratchCompany();
    ~ScratchCompany();
    ScratchCompany(const ScratchCompany&) = delete;
    ScratchCompany& operator=(const ScratchCompany&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string folder_;
    std::string path_;
};

}  // namespace quillo::app
