#include "host/session/host_session.h"

#include <algorithm>
#include <ctime>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"
#include "host/locale/icu_locale.h"

namespace quillo {
namespace {

// Only a user may name a path: what a company names might never end.
std::string ownLanguage(const CompanyFile& file) {
    const std::string code = file.fact("Language", "en");
    const bool isCode = std::all_of(code.begin(), code.end(),
                                    [](char letter) { return isLetter(letter) || isDigit(letter) || letter == '-'; });
    if (code.empty() || !isCode)
        throw InputError("The company file " + file.path() + " names the language \"" + code +
                         "\"; a language is named by its letters, as en");
    return code;
}

Language companyLanguage(const CompanyFile& file, const std::string& asked) {
    Language language = Language::load(asked.empty() ? ownLanguage(file) : asked, {file.folder()});
    for (auto& [id, text] : file.textOverrides(language.code())) language.replace(id, std::move(text));
    return language;
}

// Amounts carry the sign of the home currency.
LocaleFormat companyLocale(const CompanyFile& file, const std::string& locale) {
    const int home = file.integerFact("HomeCurrencyId", 1);
    sqlite::Statement row(file.handle(), "SELECT CurrencyCode FROM WorldCurrency WHERE InCurrencyId = ?");
    if (!row.bind(1, home).step())
        throw InputError("The company file " + file.path() + " has no home currency: WorldCurrency lacks the key " +
                         std::to_string(home));
    return makeLocaleFormat(locale, row.text(0));
}

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::string timeOfDay(const std::tm& local) {
    char text[6] = {};
    std::strftime(text, sizeof text, "%H:%M", &local);
    return text;
}

Date dayOf(const std::tm& local) {
    return Date::fromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

}  // namespace

HostSession::HostSession(const SessionOptions& options, Messages& messages)
    : file_(options.company, options.stop),
      language_(companyLanguage(file_, options.language)),
      localeName_(options.locale.empty() ? file_.fact("Locale", "en_CA") : options.locale),
      locale_(companyLocale(file_, localeName_)),
      moment_(momentOf(options)),
      company_(file_, language_.code(), locale_, moment_.day, options.dialect, options.settings, options.parameters),
      utils_(company_.DatabaseKind(), locale_, language_),
      localizer_(language_),
      filterInfoFiller_(*this),
      failures_(messages) {}

HostSession::Moment HostSession::momentOf(const SessionOptions& options) {
    if (options.sessionDate) return {*options.sessionDate, ""};
    const std::tm now = localTime();
    return {dayOf(now), timeOfDay(now)};
}

std::string HostSession::GetMessage(int number, std::string_view source,
                                    const std::vector<std::string>& arguments) const {
    if (!equalNames(source, "Korva")) throw NameError("There are no messages of the source " + std::string(source));
    return language_.message(number, arguments);
}

}  // namespace quillo
