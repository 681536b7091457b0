#include "apps/quillo/session_arguments.h"

#include "framework/values/errors.h"
#include "host/locale/icu_locale.h"

namespace quillo::app {
namespace {

CompanyError named(const std::string& path, const std::string& text) {
    return CompanyError(text.find(path) == text.npos ? "The company file " + path + ": " + text : text);
}

// The folder of a company. One that cannot be opened is not the fault of the other arguments.
std::string companyFolder(const SessionOptions& options) {
    try {
        return CompanyFile(options.company, options.stop).folder();
    } catch (const RunStopped&) {
        throw;
    } catch (const std::exception& failure) {
        throw named(options.company, failure.what());
    }
}

// The language and the locale that the user names; those of the company are its own affair.
void requireFormats(const SessionOptions& options, const std::string& folder) {
    try {
        if (!options.language.empty()) Language::load(options.language, {folder});
        if (!options.locale.empty()) makeLocaleFormat(options.locale, "CAD");
    } catch (const InputError& failure) {
        throw UsageError(failure.what());
    }
}

}  // namespace

void blameCompany(const std::string& path) {
    try {
        throw;
    } catch (const sqlite::Error& failure) {
        throw named(path, sqlite::inWords(failure, path));
    } catch (const DatabaseError& failure) {
        throw named(path, failure.what());
    }
}

Date readDate(const std::string& option, const std::string& text) {
    const auto date = Date::parseIsoDay(text);
    if (!date) throw UsageError(option + " is a date such as 2024-12-31, not \"" + text + "\"");
    return *date;
}

std::unique_ptr<HostSession> openSession(const SessionOptions& options, Messages& messages) {
    requireFormats(options, companyFolder(options));
    try {
        return std::make_unique<HostSession>(options, messages);
    } catch (const InputError& failure) {
        throw named(options.company, failure.what());
    }
}

}  // namespace quillo::app
