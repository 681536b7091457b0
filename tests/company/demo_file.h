#pragma once

#include "demo/demo_company.h"
#include "tests/host/temporary_file.h"

namespace quillo::test {

// A demo company of its own for one test.
class DemoFile {
public:
    explicit DemoFile(int scale = 1, std::uint64_t seed = 1) { writeDemoCompany(file_.path(), {scale, seed}); }
    const std::string& path() const { return file_.path(); }

private:
    TemporaryFile file_;
};

}  // namespace quillo::test
