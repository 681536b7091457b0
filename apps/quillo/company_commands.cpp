#include "apps/quillo/company_commands.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <sstream>

#include "apps/quillo/output_guard.h"
#include "apps/quillo/session_arguments.h"
#include "demo/demo_company.h"
#include "host/check/books_check.h"
#include "host/check/company_check.h"
#include "host/company/company_file.h"
#include "host/company/new_company_file.h"
#include "host/database/company_schema.h"
#include "host/database/sqlite_handle.h"
#include "output/output_file.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

// Of a file that cannot be made.
std::string reasonOf(const std::exception& failure) {
    if (const auto* files = dynamic_cast<const fs::filesystem_error*>(&failure)) return files->code().message();
    const auto* database = dynamic_cast<const sqlite::Error*>(&failure);
    switch (database == nullptr ? SQLITE_OK : database->code & 0xFF) {
        case SQLITE_CANTOPEN:
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return "there is no such folder, or nothing may be written there";
        case SQLITE_FULL:
        case SQLITE_IOERR:
            return "the disk is full or failed";
        default:
            return failure.what();
    }
}

sqlite::Database openToCheck(const std::string& path) {
    std::error_code ignored;
    if (!fs::exists(path, ignored)) throw CompanyError(path + ": there is no such file");
    if (!fs::is_regular_file(path, ignored)) throw CompanyError(path + " is not a file");
    return {path, sqlite::Open::readOnly, &interruptFlag()};
}

std::string booksText(const BooksLine& line, std::size_t width) {
    std::ostringstream text;
    text << std::left << std::setw(static_cast<int>(width)) << line.name << std::right;
    if (!line.failure.empty()) {
        text << "  " << line.failure;
    } else {
        text << std::setw(20) << line.left.toText() << std::setw(20) << line.right.toText()
             << (line.ok() ? "  ok" : "  DIFFERS");
    }
    return text.str();
}

int printBooks(const sqlite::Database& company, const Console& console) {
    const auto lines = checkBooks(company);
    std::size_t width = 0;
    for (const BooksLine& line : lines) width = std::max(width, line.name.size());
    for (const BooksLine& line : lines) console.print(booksText(line, width + 2));
    const bool allEqual = std::all_of(lines.begin(), lines.end(), [](const BooksLine& line) { return line.ok(); });
    if (!allEqual) console.complain("the books do not agree");
    return allEqual ? ExitStatus::done : ExitStatus::failures;
}

int check(const std::string& path, bool books, const Console& console) {
    const sqlite::Database company = openToCheck(path);
    const auto lacks = checkCompany(company);
    for (const std::string& line : lacks) console.print(line);
    if (!lacks.empty()) {
        console.complain(path + " is no complete company");
        return ExitStatus::noCompany;
    }
    if (books) return printBooks(company, console);
    console.print(path + " is a company of version " + std::to_string(companyVersion));
    return ExitStatus::done;
}

}  // namespace

void newCompany(const std::string& path, const Console& console) {
    guardNewCompany(path);
    try {
        NewCompanyFile file(writtenPath(path));
        {
            sqlite::Database company(file.name(), sqlite::Open::readWrite, &interruptFlag());
            company.execute("PRAGMA journal_mode = MEMORY; BEGIN");
            company.execute(std::string(companySchema()));
            company.execute("COMMIT");
        }
        file.publish();
    } catch (const std::exception& failure) {
        throw UsageError(path + " cannot be written: " + reasonOf(failure));
    }
    console.print(path);
}

void demoCompany(const std::string& path, int scale, std::uint64_t seed, const std::string& language,
                 const Console& console) {
    guardNewCompany(path);
    if (scale < 1) throw UsageError("--scale is 1 or more");
    if (language != "en" && language != "fr") throw UsageError("--language of the demo company is en or fr");
    try {
        writeDemoCompany(writtenPath(path), {scale, seed, language == "fr", &interruptFlag()});
    } catch (const std::exception& failure) {
        throw UsageError(path + " cannot be written: " + reasonOf(failure));
    }
    console.print(path);
}

int checkCompanyFile(const std::string& path, bool books, const Console& console) {
    endAtInterrupts();
    return onCompany(path, [&] { return check(path, books, console); });
}

ScratchCompany::ScratchCompany() {
    std::string pattern = (fs::temp_directory_path() / "quillo-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw UsageError("no temporary folder can be made");
    folder_ = pattern;
    path_ = folder_ + "/scratch.db";
    sqlite::Database company(path_, sqlite::Open::create);
    company.execute(std::string(companySchema()));
}

ScratchCompany::~ScratchCompany() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

}  // namespace quillo::app
