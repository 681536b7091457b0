#include "framework/values/locale_format.h"

#include <array>
#include <cmath>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

// Appends the digits of magnitude / 10000, rounded to the decimals asked for, grouped.
void appendMagnitude(std::string& out, Money magnitude, int decimals, bool grouped, const LocaleSymbols& symbols) {
    const int kept = decimals < 4 ? decimals : 4;
    const auto raw = static_cast<std::uint64_t>(roundAmount(magnitude, kept).raw());
    const std::uint64_t units = raw / static_cast<std::uint64_t>(Money::scale);
    std::array<char, 24> digits{};
    int count = 0;
    for (std::uint64_t rest = units; rest != 0 || count == 0; rest /= 10)
        digits[static_cast<std::size_t>(count++)] = static_cast<char>('0' + rest % 10);
    const int first = symbols.firstGroup;
    const int others = symbols.otherGroups > 0 ? symbols.otherGroups : first;
    for (int left = count; left > 0; --left) {
        out += digits[static_cast<std::size_t>(left - 1)];
        const int behind = left - 1;
        if (grouped && first > 0 && behind >= first && (behind - first) % others == 0) out += symbols.group;
    }
    if (decimals <= 0) return;
    out += symbols.decimal;
    std::uint64_t part = raw % static_cast<std::uint64_t>(Money::scale);
    std::uint64_t unit = static_cast<std::uint64_t>(Money::scale) / 10;
    for (int place = 0; place < decimals; ++place) {
        out += place < 4 ? static_cast<char>('0' + part / unit) : '0';
        if (place >= 3) continue;
        part %= unit;
        unit /= 10;
    }
}

Money magnitudeOf(Money value) {
    return value < Money() ? -value : value;
}

void appendSigned(std::string& out, Money value, int decimals, bool grouped, const LocaleSymbols& symbols,
                  const LocaleSymbols::Affixes& affixes) {
    // An amount that rounds to nothing has no sign.
    const bool negative = roundAmount(value, decimals < 4 ? decimals : 4) < Money();
    out += negative ? affixes.negativePrefix : affixes.positivePrefix;
    appendMagnitude(out, magnitudeOf(value), decimals, grouped, symbols);
    out += negative ? affixes.negativeSuffix : affixes.positiveSuffix;
}

// The blanks that locales put into amounts, as long as the first of them here; 0 for anything else.
std::size_t blankLength(std::string_view text) {
    const char first = text.front();
    if (first > ' ' && first < 0x7F) return 0;  // most of an amount
    for (const std::string_view blank : {" ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"})
        if (text.starts_with(blank)) return blank.size();
    return 0;
}

std::string withoutBlanks(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t blank = blankLength(text);
        if (blank == 0) result += text.front();
        text.remove_prefix(std::max<std::size_t>(blank, 1));
    }
    return result;
}

bool peel(std::string_view& text, const std::string& prefix, const std::string& suffix) {
    if (text.size() < prefix.size() + suffix.size() || !text.starts_with(prefix) || !text.ends_with(suffix))
        return false;
    text.remove_prefix(prefix.size());
    text.remove_suffix(suffix.size());
    return true;
}

}  // namespace

LocaleFormat::LocaleFormat(LocaleSymbols symbols)
    : symbols_(std::move(symbols)), shortDate_(compileDate(symbols_.shortDate)), group_(withoutBlanks(symbols_.group)) {
    addShapes(symbols_.currency);
    addShapes(symbols_.number);
}

void LocaleFormat::addShapes(const LocaleSymbols::Affixes& affixes) {
    shapes_.push_back({withoutBlanks(affixes.negativePrefix), withoutBlanks(affixes.negativeSuffix), true});
    shapes_.push_back({withoutBlanks(affixes.positivePrefix), withoutBlanks(affixes.positiveSuffix), false});
}

void LocaleFormat::appendCurrency(std::string& out, Money amount, int digits) const {
    appendSigned(out, amount, digits < 0 ? symbols_.currencyDigits : digits, true, symbols_, symbols_.currency);
}

void LocaleFormat::appendNumber(std::string& out, Money value, int digits) const {
    appendSigned(out, value, digits < 0 ? symbols_.numberDigits : digits, true, symbols_, symbols_.number);
}

std::string LocaleFormat::currency(Money amount, int digits) const {
    std::string text;
    appendCurrency(text, amount, digits);
    return text;
}

std::string LocaleFormat::number(Money value, int digits) const {
    std::string text;
    appendNumber(text, value, digits);
    return text;
}

std::string LocaleFormat::number(double value, int digits) const {
    return number(roundAmount(value, std::min(digits < 0 ? symbols_.numberDigits : digits, 4)), digits);
}

std::string LocaleFormat::percent(double share, int digits) const {
    std::string text;
    appendSigned(text, roundAmount(share * 100, digits), digits, true, symbols_, symbols_.percent);
    return text;
}

std::vector<LocaleFormat::DatePart> LocaleFormat::compileDate(std::string_view pattern) {
    using Kind = DatePart::Kind;
    std::vector<DatePart> parts;
    while (!pattern.empty()) {
        const char token = pattern.front();
        const std::size_t run = std::min(pattern.find_first_not_of(token), pattern.size());
        const Kind kind = token == 'y'   ? (run == 2 ? Kind::yearOfCentury : Kind::year)
                          : token == 'M' ? Kind::month
                          : token == 'd' ? Kind::day
                                         : Kind::text;
        parts.push_back({kind, run, kind == Kind::text ? std::string(run, token) : std::string()});
        pattern.remove_prefix(run);
    }
    return parts;
}

void LocaleFormat::appendShortDate(std::string& out, Date date) const {
    using Kind = DatePart::Kind;
    const Date::Civil civil = date.civil();
    for (const DatePart& part : shortDate_) {
        const int number = part.kind == Kind::year            ? civil.year
                           : part.kind == Kind::yearOfCentury ? civil.year % 100
                           : part.kind == Kind::month         ? civil.month
                                                              : civil.day;
        if (part.kind == Kind::text) {
            out += part.text;
        } else {
            appendDigits(out, static_cast<unsigned>(number), part.digits);
        }
    }
}

std::string LocaleFormat::shortDate(Date date) const {
    std::string text;
    appendShortDate(text, date);
    return text;
}

std::string LocaleFormat::plainNumber(const ValueView& value) const {
    std::string text = value.kind() == ValueKind::boolean ? std::to_string(value.toInt64())
                       : value.kind() == ValueKind::text  ? Variant(value.toDouble()).toText()
                                                          : value.toText();
    if (const auto point = text.find('.'); point != std::string::npos) text.replace(point, 1, symbols_.decimal);
    return text;
}

void LocaleFormat::appendGeneral(std::string& out, const ValueView& value) const {
    switch (value.kind()) {
        case ValueKind::null:
            return;
        case ValueKind::text:
            out += value.textView();
            return;
        case ValueKind::date:
            appendShortDate(out, value.toDate());
            return;
        case ValueKind::boolean:
            out += value.toText();
            return;
        default:
            out += plainNumber(value);
            return;
    }
}

std::optional<Money> LocaleFormat::readDigits(std::string_view digits) const {
    std::string plain;
    bool point = false;
    while (!digits.empty()) {
        std::size_t length = 1;
        if (isDigit(digits.front())) {
            plain += digits.front();
        } else if (!point && digits.starts_with(symbols_.decimal)) {
            plain += '.';
            point = true;
            length = symbols_.decimal.size();
        } else if (!point && !group_.empty() && digits.starts_with(group_)) {
            length = group_.size();
        } else {
            return std::nullopt;
        }
        digits.remove_prefix(length);
    }
    return Money::parse(plain);
}

Money LocaleFormat::readMoney(std::string_view text) const {
    const std::string compact = withoutBlanks(text);
    for (const AmountShape& shape : shapes_) {
        std::string_view digits = compact;
        if (!peel(digits, shape.prefix, shape.suffix) || digits.empty() || !isDigit(digits.front())) continue;
        const auto amount = readDigits(digits);
        if (!amount) break;
        return shape.negative ? -*amount : *amount;
    }
    if (compact.size() > 2 && compact.front() == '(' && compact.back() == ')')
        return -readMoney(std::string_view(compact).substr(1, compact.size() - 2));
    throw ConversionError("Type mismatch: \"" + std::string(text) + "\" is not an amount");
}

NumberFormat::Picture NumberFormat::compilePicture(std::string_view part, std::string_view whole) {
    const auto first = part.find_first_of("#0");
    const auto last = part.find_last_of("#0");
    const auto refuse = [&] { throw InputError("The format \"" + std::string(whole) + "\" cannot be read"); };
    if (first == std::string_view::npos) refuse();
    Picture picture;
    picture.prefix = part.substr(0, first);
    picture.suffix = part.substr(last + 1);
    const std::string_view body = part.substr(first, last + 1 - first);
    const auto point = body.find('.');
    if (body.find_first_not_of("#0,.") != std::string_view::npos ||
        body.find('.', point == std::string_view::npos ? 0 : point + 1) != std::string_view::npos)
        refuse();
    picture.grouped = body.find(',') != std::string_view::npos;
    picture.decimals = point == std::string_view::npos ? 0 : static_cast<int>(body.size() - point - 1);
    if (picture.decimals > 4) refuse();
    return picture;
}

NumberFormat NumberFormat::compile(std::string_view picture) {
    NumberFormat format;
    if (picture.empty()) return format;
    if (equalNames(picture, "Currency")) {
        format.kind_ = Kind::currency;
    } else if (equalNames(picture, "Percent")) {
        format.kind_ = Kind::percent;
    } else if (equalNames(picture, "Short Date")) {
        format.kind_ = Kind::date;
    } else {
        format.kind_ = Kind::picture;
        const auto split = picture.find(';');
        format.positive_ = compilePicture(picture.substr(0, split), picture);
        if (split != std::string_view::npos) {
            format.ownNegative_ = true;
            format.negative_ = compilePicture(picture.substr(split + 1), picture);
        }
    }
    return format;
}

void NumberFormat::append(std::string& out, const ValueView& value, const LocaleFormat& locale) const {
    if (value.isNull()) return;
    const bool wantsNumber = kind_ != Kind::general && kind_ != Kind::date;
    if (kind_ == Kind::general || (wantsNumber && !value.isNumber()) ||
        (kind_ == Kind::date && value.kind() != ValueKind::date)) {
        locale.appendGeneral(out, value);
        return;
    }
    if (kind_ == Kind::date) {
        locale.appendShortDate(out, value.toDate());
        return;
    }
    if (kind_ == Kind::percent) {
        out += locale.percent(value.toDouble());
        return;
    }
    const Money amount = value.toMoney();
    if (kind_ == Kind::currency) {
        locale.appendCurrency(out, amount);
        return;
    }
    const bool negative = roundAmount(amount, positive_.decimals) < Money();
    const Picture& picture = negative && ownNegative_ ? negative_ : positive_;
    if (negative && !ownNegative_) out += locale.symbols().number.negativePrefix;
    out += picture.prefix;
    appendMagnitude(out, magnitudeOf(amount), picture.decimals, picture.grouped, locale.symbols());
    out += picture.suffix;
}

}  // namespace quillo
