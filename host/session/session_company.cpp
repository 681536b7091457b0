#include "host/session/session_company.h"

#include "framework/values/names.h"

namespace quillo {

SessionCompany::SessionCompany(CompanyFile& file, std::string_view language, const LocaleFormat& locale,
                               Date sessionDate, std::optional<int> dialect, std::map<int, std::string> settings,
                               std::map<std::string, std::string> parameters)
    : file_(file),
      databaseKind_(dialect ? *dialect : file.integerFact("DatabaseKind", 0)),
      settings_(file, std::move(settings)),
      parameters_(std::move(parameters)),
      dictionary_(file.handle(), language),
      currencies_(file, dictionary_, locale, sessionDate),
      customerStatistics_(file.handle()),
      customers_(file, currencies_, language),
      invoices_(file.database()),
      addressBook_(file.handle()),
      projects_(file.handle()),
      accountGroups_(file.handle()),
      customFields_(file.handle()),
      generalLedger_(file.handle()),
      dailyRates_(file.handle(), currencies_),
      fiscalCalendar_(file.handle()),
      itemCosts_(file.handle(), *this),
      paymentSchedule_(file.handle()) {}

std::string SessionCompany::GetParameter(std::string_view name, std::string_view defaultValue,
                                         std::string_view section) const {
    for (const auto& [asked, value] : parameters_)
        if (equalNames(asked, name)) return value;
    return file_.parameter(section, name).value_or(std::string(defaultValue));
}

}  // namespace quillo
