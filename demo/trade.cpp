#include "demo/trade.h"

namespace quillo::demo {

Trade::Trade(const sqlite::Database& db, std::uint64_t seed, int scaleFactor)
    : database(db), random(seed), scale(scaleFactor), ledger(db), stock(db, demo::items().size()) {}

std::int64_t Trade::count(Day day, std::int64_t hundredths) {
    // Building slows down in winter and peaks from May to September; the trade grows 8 % a year.
    constexpr int season[] = {70, 72, 85, 100, 118, 125, 122, 118, 112, 104, 90, 84};
    const std::int64_t growth = 100 + 8 * (day.year() - 2023);
    return random.about(hundredths * scale * season[day.month() - 1] * growth / 10000);
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
