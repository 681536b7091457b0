#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "framework/services/services.h"
#include "host/company/company_file.h"
#include "host/language/language.h"
#include "host/services/filter_info_filler.h"
#include "host/services/localizer.h"
#include "host/services/report_utils.h"
#include "host/session/failure_log.h"
#include "host/session/session_company.h"

namespace quillo {

// What a session is opened with. What is left empty comes from the company.
struct SessionOptions {
    std::string company;                            // path of the file
    std::string language;                           // a code, a file of texts, or "ids"
    std::string locale;                             // "fr_CA"
    std::optional<int> dialect;                     // the database kind that the company reports: 0 SQL Server, 1 Jet
    std::optional<Date> sessionDate;                // empty: today
    std::map<int, std::string> settings;            // numbered settings for this run alone
    std::map<std::string, std::string> parameters;  // named parameters for this run alone
    const std::atomic<bool>* stop = nullptr;        // while it is true, whatever asks the company ends with RunStopped
};

// Everything that reports ask of their host, for one company and one run. It must outlive the reports
// made with it. One thread.
class HostSession final : public HostContext, public Application {
public:
    // Throws InputError that says what cannot be opened and why. messages must outlive the session.
    HostSession(const SessionOptions& options, Messages& messages);
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    // HostContext
    Company& company() override { return company_; }
    std::string GetText(int id) const override { return language_.text(id); }
    std::string GetMessage(int number, std::string_view source,
                           const std::vector<std::string>& arguments) const override;
    const LocaleFormat& locale() const override { return locale_; }
    const ReportUtils& utils() const override { return utils_; }
    ReportLocalizer& localizer() override { return localizer_; }
    FilterInfoFiller& filterInfoFiller() override { return filterInfoFiller_; }
    Messages& messages() override { return failures_; }

    // Application
    CurrencyInfo& currencyInfo() override { return company_.currencies(); }
    std::string CieCountry() const override { return file_.fact("Country", ""); }
    Date SessionDate() const override { return moment_.day; }
    int DefaultWarehouseID() const override { return file_.integerFact("DefaultWarehouseId", 0); }
    GeneralLedgerQueries& generalLedger() override { return company_.generalLedger(); }

    CompanyFile& file() { return file_; }
    // The boxes that were shown through this session.
    FailureLog& failures() { return failures_; }
    const FilterTextFiller& filterTexts() const { return filterInfoFiller_; }
    const Language& language() const { return language_; }
    // The time of day, "14:05", where the clock gives the session's date; empty where the caller fixed it, so that the
    // same run gives the same pages.
    const std::string& clockTime() const { return moment_.clock; }
    // The name of the locale in which it formats: "fr_CA".
    const std::string& localeName() const { return localeName_; }
    std::string companyName() const { return file_.fact("Name", ""); }

private:
    struct Moment {
        Date day;
        std::string clock;
    };
    static Moment momentOf(const SessionOptions& options);

    CompanyFile file_;
    Language language_;
    std::string localeName_;
    LocaleFormat locale_;
    Moment moment_;
    SessionCompany company_;
    HostReportUtils utils_;
    TagLocalizer localizer_;
    FilterTextFiller filterInfoFiller_;
    FailureLog failures_;
};

}  // namespace quillo
