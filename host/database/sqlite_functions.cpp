#include "host/database/sqlite_functions.h"

#include <cmath>
#include <new>
#include <string>
#include <string_view>

#include "framework/values/errors.h"
#include "framework/values/money.h"
#include "host/database/decimal_sum.h"
#include "host/database/like.h"
#include "host/database/sqlite_handle.h"

namespace quillo::sqlite {
namespace {

using Context = sqlite3_context;
using Value = sqlite3_value;
__extension__ using Wide = __int128;

bool isNull(Value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

std::string_view textOf(Value* value) {
    const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (data == nullptr) return {};
    return {data, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void resultText(Context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// Fails for what SQLite by itself would count as 0.
int numberType(Value* value) {
    const int type = sqlite3_value_numeric_type(value);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return type;
    if (type == SQLITE_BLOB) throw ConversionError("Type mismatch: bytes are not a number");
    throw ConversionError("Type mismatch: \"" + std::string(textOf(value)) + "\" is not a number");
}

double numberOf(Value* value) {
    numberType(value);
    return sqlite3_value_double(value);
}

// No failure may leave a function that SQLite calls.
template <class Body>
void guarded(Context* context, Body body) {
    try {
        body();
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const RunStopped&) {
        sqlite3_result_error_code(context, SQLITE_INTERRUPT);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

void toMoney(Context* context, int, Value** values) {
    if (isNull(values[0])) return;
    guarded(context, [&] { sqlite3_result_double(context, Money::fromDouble(numberOf(values[0])).toDouble()); });
}

void toNumber(Context* context, int, Value** values) {
    const int type = sqlite3_value_type(values[0]);
    if (type != SQLITE_TEXT && type != SQLITE_BLOB) return sqlite3_result_value(context, values[0]);
    guarded(context, [&] {
        numberType(values[0]);
        sqlite3_result_value(context, values[0]);
    });
}

// Whole hundredths, of an amount or of a quantity.
std::int64_t centsOf(double value) {
    return roundAmount(value, 2).raw() / (Money::scale / 100);
}

void cents(Context* context, int, Value** values) {
    guarded(context, [&] { sqlite3_result_int64(context, isNull(values[0]) ? 0 : centsOf(numberOf(values[0]))); });
}

// Whole cents in home currency: an amount in cents and its rate, to the sixth decimal; half a cent goes away from zero.
// A missing rate is 1.
void homeCents(Context* context, int, Value** values) {
    guarded(context, [&] {
        constexpr std::int64_t parts = 1'000'000;
        constexpr double mostRate = 1e12;
        if (sqlite3_value_type(values[0]) != SQLITE_INTEGER) throw OverflowError("Overflow: the amount is too large");
        const double rate = isNull(values[1]) ? 1 : numberOf(values[1]);
        if (!(std::fabs(rate) < mostRate)) throw OverflowError("Overflow: the exchange rate is too large");
        const Wide product = static_cast<Wide>(sqlite3_value_int64(values[0])) * std::llround(rate * parts);
        const Wide whole = (product + (product < 0 ? -parts : parts) / 2) / parts;
        const auto result = static_cast<std::int64_t>(whole);
        if (result != whole) throw OverflowError("Overflow: the amount is too large");
        sqlite3_result_int64(context, result);
    });
}

void toText(Context* context, int, Value** values) {
    if (!isNull(values[0])) resultText(context, textOf(values[0]));
}

// One argument: whether it is NULL. Two: the second in the place of a NULL.
void isNullOrElse(Context* context, int count, Value** values) {
    if (count == 1) {
        sqlite3_result_int(context, isNull(values[0]) ? 1 : 0);
    } else {
        sqlite3_result_value(context, values[isNull(values[0]) ? 1 : 0]);
    }
}

void left(Context* context, int, Value** values) {
    if (isNull(values[0]) || isNull(values[1])) return;
    const std::string_view text = textOf(values[0]);
    sqlite3_int64 wanted = sqlite3_value_int64(values[1]);
    if (wanted < 0) {
        sqlite3_result_error(context, "Invalid length parameter passed to the LEFT function.", -1);
        return;
    }
    std::size_t end = 0;
    while (end < text.size() && wanted-- > 0) {
        ++end;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
    }
    resultText(context, text.substr(0, end));
}

void join(Context* context, int count, Value** values) {
    guarded(context, [&] {
        std::string text;
        for (int i = 0; i < count; ++i) text += textOf(values[i]);
        resultText(context, text);
    });
}

double rounded(double value, sqlite3_int64 digits) {
    if (digits >= 0 && digits <= 4 && std::fabs(value) < 1e14)
        return roundAmount(value, static_cast<int>(digits)).toDouble();
    if (digits > 15 || digits < -15 || !std::isfinite(value)) return value;
    const long double power = std::pow(10.0L, static_cast<long double>(digits));
    const long double scaled = std::fabs(static_cast<long double>(value)) * power * (1 + 4.5e-16L);
    return static_cast<double>(std::copysign(std::floor(scaled + 0.5L) / power, static_cast<long double>(value)));
}

void round(Context* context, int count, Value** values) {
    if (isNull(values[0]) || (count == 2 && isNull(values[1]))) return;
    const sqlite3_int64 digits = count == 2 ? sqlite3_value_int64(values[1]) : 0;
    guarded(context, [&] { sqlite3_result_double(context, rounded(numberOf(values[0]), digits)); });
}

// LIKE(pattern, text) is how SQLite calls text LIKE pattern; a third argument is the ESCAPE.
void like(Context* context, int count, Value** values) {
    for (int i = 0; i < count; ++i)
        if (isNull(values[i])) return;
    guarded(context, [&] {
        const auto* watch = static_cast<const Watch*>(sqlite3_user_data(context));
        const bool match =
            matchesLike(textOf(values[1]), textOf(values[0]), count == 3 ? textOf(values[2]) : "", watch);
        sqlite3_result_int(context, match ? 1 : 0);
    });
}

// What one group of rows has added up so far; SQLite gives it zeroed memory.
struct SumState {
    DecimalSum sum;
    bool any;
};

void sumStep(Context* context, int, Value** values) {
    if (isNull(values[0])) return;
    auto* state = static_cast<SumState*>(sqlite3_aggregate_context(context, sizeof(SumState)));
    if (state == nullptr) {
        sqlite3_result_error_nomem(context);
        return;
    }
    if (!state->any) new (state) SumState{{}, true};
    guarded(context, [&] {
        if (numberType(values[0]) == SQLITE_INTEGER) {
            state->sum.add(static_cast<std::int64_t>(sqlite3_value_int64(values[0])));
        } else {
            state->sum.add(sqlite3_value_double(values[0]));
        }
    });
}

void sumFinal(Context* context) {
    const auto* state = static_cast<const SumState*>(sqlite3_aggregate_context(context, 0));
    if (state == nullptr) return;
    if (!state->sum.onlyIntegers()) {
        sqlite3_result_double(context, state->sum.real());
    } else {
        sqlite3_result_int64(context, state->sum.integer());
    }
}

using Scalar = void (*)(Context*, int, Value**);

struct Function {
    const char* name;
    int arguments;
    Scalar run;
};

constexpr Function functions[] = {
    {"CCur", 1, toMoney},
    {"CStr", 1, toText},
    {"quillo_number", 1, toNumber},
    {"quillo_cents", 1, cents},
    {"quillo_home_cents", 2, homeCents},
    {"quillo_isnull", 1, isNullOrElse},
    {"quillo_isnull", 2, isNullOrElse},
    {"quillo_left", 2, left},
    {"quillo_join", -1, join},
    {"round", 1, round},
    {"round", 2, round},
    {"like", 2, like},
    {"like", 3, like},
};

constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

}  // namespace

void registerFunctions(sqlite3* handle, const Watch& watch) {
    auto* const given = const_cast<Watch*>(&watch);  // SQLite hands it on as it got it
    const auto check = [handle](int code) {
        if (code != SQLITE_OK) throw Error(code, sqlite3_errmsg(handle));
    };
    for (const Function& one : functions)
        check(sqlite3_create_function_v2(handle, one.name, one.arguments, flags, given, one.run, nullptr, nullptr,
                                         nullptr));
    check(sqlite3_create_function_v2(handle, "sum", 1, flags, nullptr, nullptr, sumStep, sumFinal, nullptr));
}

}  // namespace quillo::sqlite
