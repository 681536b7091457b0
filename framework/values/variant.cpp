#include "framework/values/variant.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

[[noreturn]] void cannot(const ValueView& value, const char* kind) {
    if (value.isNull()) throw ConversionError("Invalid use of Null");
    throw ConversionError("Type mismatch: \"" + value.toText() + "\" is not " + kind);
}

std::string shortest(double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, result.ptr};
}

bool parseNumber(std::string_view text, double& value) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return !text.empty() && error == std::errc{} && end == text.data() + text.size() && std::isfinite(value);
}

std::int64_t wholeOf(double value, const ValueView& origin) {
    const double whole = std::nearbyint(value);
    if (!(std::fabs(whole) < 9.2e18)) cannot(origin, "a whole number in range");
    return static_cast<std::int64_t>(whole);
}

}  // namespace

ValueView ValueView::ofBool(bool value) {
    ValueView view;
    view.kind_ = ValueKind::boolean;
    view.integer_ = value ? 1 : 0;
    return view;
}

ValueView ValueView::ofInt32(std::int32_t value) {
    ValueView view;
    view.kind_ = ValueKind::int32;
    view.integer_ = value;
    return view;
}

ValueView ValueView::ofInt64(std::int64_t value) {
    ValueView view;
    view.kind_ = ValueKind::int64;
    view.integer_ = value;
    return view;
}

ValueView ValueView::ofDouble(double value) {
    ValueView view;
    view.kind_ = ValueKind::real;
    view.real_ = value;
    return view;
}

ValueView ValueView::ofMoney(Money value) {
    ValueView view;
    view.kind_ = ValueKind::money;
    view.integer_ = value.raw();
    return view;
}

ValueView ValueView::ofDate(Date value) {
    ValueView view;
    view.kind_ = ValueKind::date;
    view.real_ = value.days;
    return view;
}

ValueView ValueView::ofText(std::string_view value) {
    ValueView view;
    view.kind_ = ValueKind::text;
    view.text_ = value;
    return view;
}

bool ValueView::isNumber() const {
    return kind_ == ValueKind::int32 || kind_ == ValueKind::int64 || kind_ == ValueKind::real ||
           kind_ == ValueKind::money;
}

double ValueView::toDouble() const {
    switch (kind_) {
        case ValueKind::boolean:
            return integer_ != 0 ? -1.0 : 0.0;
        case ValueKind::int32:
        case ValueKind::int64:
            return static_cast<double>(integer_);
        case ValueKind::money:
            return Money::fromRaw(integer_).toDouble();
        case ValueKind::real:
        case ValueKind::date:
            return real_;
        case ValueKind::text: {
            double value = 0;
            if (parseNumber(text_, value)) return value;
            break;
        }
        case ValueKind::null:
            break;
    }
    cannot(*this, "a number");
}

bool ValueView::toBool() const {
    if (kind_ == ValueKind::boolean || kind_ == ValueKind::int32 || kind_ == ValueKind::int64 ||
        kind_ == ValueKind::money)
        return integer_ != 0;
    if (kind_ == ValueKind::text) {
        if (equalNames(text_, "True")) return true;
        if (equalNames(text_, "False")) return false;
    }
    return toDouble() != 0;
}

std::int64_t ValueView::toInt64() const {
    if (kind_ == ValueKind::int32 || kind_ == ValueKind::int64) return integer_;
    return wholeOf(toDouble(), *this);
}

std::int32_t ValueView::toInt32() const {
    const std::int64_t value = toInt64();
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        throw OverflowError("Overflow: " + std::to_string(value) + " is beyond 32 bits");
    return static_cast<std::int32_t>(value);
}

Money ValueView::toMoney() const {
    switch (kind_) {
        case ValueKind::money:
            return Money::fromRaw(integer_);
        case ValueKind::int32:
        case ValueKind::int64:
            return Money::fromInteger(integer_);
        case ValueKind::text:
            // A detour over a double would cost a big amount its cents.
            if (const auto exact = Money::parse(text_)) return *exact;
            [[fallthrough]];
        default:
            return Money::fromDouble(toDouble());
    }
}

Date ValueView::toDate() const {
    if (kind_ == ValueKind::date) return {real_};
    if (kind_ == ValueKind::text) {
        if (const auto date = Date::parseIso(text_)) return *date;
    }
    double days = 0;
    if (isNumber()) return {toDouble()};
    if (kind_ == ValueKind::text && parseNumber(text_, days)) return {days};
    cannot(*this, "a date");
}

std::string ValueView::toText() const {
    switch (kind_) {
        case ValueKind::null:
            throw ConversionError("Invalid use of Null");
        case ValueKind::boolean:
            return integer_ != 0 ? "True" : "False";
        case ValueKind::int32:
        case ValueKind::int64:
            return std::to_string(integer_);
        case ValueKind::real:
            return shortest(real_);
        case ValueKind::money:
            return Money::fromRaw(integer_).toText();
        case ValueKind::date:
            return Date{real_}.isoText();
        case ValueKind::text:
            return std::string(text_);
    }
    return {};
}

Variant& Variant::operator=(const ValueView& view) {
    if (view.kind_ == ValueKind::text) text_.assign(view.text_);
    view_ = view;
    view_.text_ = {};
    return *this;
}

ValueView Variant::view() const {
    ValueView view = view_;
    if (view.kind_ == ValueKind::text) view.text_ = text_;
    return view;
}

bool sameValue(const ValueView& a, const ValueView& b) {
    if (a.isNull() || b.isNull()) return a.isNull() && b.isNull();
    if (a.kind() == ValueKind::text || b.kind() == ValueKind::text) {
        if (a.kind() == b.kind()) return a.textView() == b.textView();
        return a.toText() == b.toText();
    }
    if (a.kind() == b.kind() && a.kind() != ValueKind::real && a.kind() != ValueKind::date &&
        a.kind() != ValueKind::boolean)
        return a.kind() == ValueKind::money ? a.toMoney() == b.toMoney() : a.toInt64() == b.toInt64();
    return a.toDouble() == b.toDouble();
}

}  // namespace quillo
