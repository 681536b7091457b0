#include "demo/trade.h"

#include <algorithm>

namespace quillo::demo {

Trade::Trade(const sqlite::Database& db, std::uint64_t seed, int scaleFactor, bool french)
    : database(db), random(seed), scale(scaleFactor), words(db, french), ledger(db), stock(db, demo::items().size()) {}

const Term& Trade::season(int year) const {
    return terms[static_cast<std::size_t>(5 + std::max(year, 2023) - 2023)];
}

std::int64_t Trade::count(Day day, std::int64_t hundredths) {
    // Building slows down in winter and peaks from May to September; the trade grows 8 % a year behind a small
    // beginning.
    constexpr int season[] = {70, 72, 85, 100, 118, 125, 122, 118, 112, 104, 90, 84};
    const std::int64_t growth = day.year() < 2023 ? 45 : 100 + 8 * (day.year() - 2023);
    return random.about(hundredths * scale * season[day.month() - 1] * growth / 10000);
}

const PersonData* salespersonOf(const Customer& customer, Day day) {
    const PersonData* const person = customer.salesperson;
    return person == nullptr || day > person->left ? nullptr : person;
}

Percent commissionOf(const Customer& customer, Day day) {
    const PersonData* const person = salespersonOf(customer, day);
    if (person == nullptr) return {};
    const int percent = day < person->changed ? person->formerCommission : person->commission;
    return percent < 0 ? Percent{2000} : Percent{percent * 1000};
}

Account receivableAccount(Currency currency) {
    return currency == cad ? receivableCad : currency == usd ? receivableUsd : receivableEur;
}

Account bankAccount(Currency currency) {
    return currency == cad ? bankCad : currency == usd ? bankUsd : bankEur;
}

Account cashAccount(Method method) {
    return method == cash || method == cheque ? undeposited : bankCad;
}

}  // namespace quillo::demo
