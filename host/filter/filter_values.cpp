#include "host/filter/filter_values.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

// Up to most digits, taken off the text; nothing when there are none.
std::optional<unsigned> takeNumber(std::string_view& text, std::size_t most) {
    std::size_t length = 0;
    unsigned number = 0;
    while (length < most && length < text.size() && isDigit(text[length]))
        number = number * 10 + static_cast<unsigned>(text[length++] - '0');
    text.remove_prefix(length);
    return length == 0 ? std::nullopt : std::optional(number);
}

// The pattern: y, M and d in runs, everything else stands for itself.
std::optional<Date> readBy(std::string_view pattern, std::string_view text) {
    unsigned year = 0, month = 0, day = 0;
    while (!pattern.empty()) {
        const char token = pattern.front();
        const bool part = token == 'y' || token == 'M' || token == 'd';
        if (part) {
            const std::size_t most = token == 'y' ? 4 : 2;
            const auto number = takeNumber(text, most);
            if (!number) return std::nullopt;
            (token == 'y' ? year : token == 'M' ? month : day) = *number;
            pattern.remove_prefix(std::min(pattern.find_first_not_of(token), pattern.size()));
        } else if (text.starts_with(token)) {
            text.remove_prefix(1);
            pattern.remove_prefix(1);
        } else {
            return std::nullopt;
        }
    }
    std::string iso;
    appendDigits(iso, year, 4);
    appendDigits(iso += '-', month, 2);
    appendDigits(iso += '-', day, 2);
    return text.empty() ? Date::parseIsoDay(iso) : std::nullopt;
}

std::optional<Variant> numberFor(const std::string& text, const LocaleFormat& locale, bool amount) {
    try {
        if (!amount) return Variant(Variant(text).toDouble());
        if (const auto plain = Money::parse(trimmed(text))) return Variant(*plain);
        return Variant(locale.readMoney(text));
    } catch (const std::exception&) {  // neither a number nor an amount, or beyond all amounts
        return std::nullopt;
    }
}

std::string withoutBlanks(std::string_view text) {
    std::string result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](char letter) { return !isBlank(letter); });
    return result;
}

bool isNumber(ColumnKind kind) {
    return kind == ColumnKind::number || kind == ColumnKind::amount || kind == ColumnKind::yesOrNo;
}

}  // namespace

std::optional<Date> readDay(std::string_view text, const LocaleFormat& locale) {
    const std::string_view day = trimmed(text);
    if (const auto date = readBy("yyyy-MM-dd", day)) return date;
    return readBy(locale.symbols().shortDate, day);
}

std::optional<Variant> valueFor(ColumnKind kind, const Variant& literal, std::string_view written,
                                const LocaleFormat& locale) {
    const bool isText = literal.kind() == ValueKind::text;
    switch (kind) {
        case ColumnKind::date: {
            const auto day = isText ? readDay(literal.view().textView(), locale) : std::nullopt;
            return day ? std::optional(Variant(day->isoText())) : std::nullopt;
        }
        case ColumnKind::number:
        case ColumnKind::amount:
        case ColumnKind::yesOrNo:
            if (!isText) return literal;
            return numberFor(literal.toText(), locale, kind == ColumnKind::amount);
        case ColumnKind::text:
            return isText ? literal : Variant(withoutBlanks(written));
        case ColumnKind::any:
            break;
    }
    return literal;
}

std::string sqlOf(const Variant& value) {
    if (value.kind() != ValueKind::text) return value.toText();
    std::string text = "'";
    for (const char letter : value.view().textView()) text += letter == '\'' ? "''" : std::string(1, letter);
    return text + "'";
}

std::string_view wantedFor(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::date:
            return "a date such as '2024-12-31'";
        case ColumnKind::amount:
            return "an amount such as 1000.50";
        case ColumnKind::yesOrNo:
            return "1 for yes or 0 for no";
        case ColumnKind::number:
            return "a number";
        default:
            return "a text in single quotes";
    }
}

bool areComparable(ColumnKind one, ColumnKind other) {
    return one == other || one == ColumnKind::any || other == ColumnKind::any || (isNumber(one) && isNumber(other));
}

}  // namespace quillo
