#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "framework/values/date.h"
#include "framework/values/money.h"

namespace quillo {

enum class ValueKind : std::uint8_t { null, boolean, int32, int64, real, money, date, text };

// A value of the database, seen without owning it: text points into the row and lives until its
// recordset moves. The conversions are the library's one table: they throw ConversionError when
// they cannot be made, and on Null ("Invalid use of Null").
//
//   to        from boolean  integer     double          money           date        text
//   bool      itself        <> 0        <> 0            <> 0            <> 0        "True"/"False", number
//   int32/64  0 or -1       checked     half to even    half to even    half even   number
//   double    0 or -1       exact       itself          exact           days        number
//   Money     0 or -1       checked     half to even    itself          days        number
//   Date      -             days        days            days            itself      ISO form, number
//   text      True/False    decimal     shortest form   decimal         ISO form    itself
class ValueView {
public:
    ValueView() = default;
    static ValueView ofBool(bool value);
    static ValueView ofInt32(std::int32_t value);
    static ValueView ofInt64(std::int64_t value);
    static ValueView ofDouble(double value);
    static ValueView ofMoney(Money value);
    static ValueView ofDate(Date value);
    static ValueView ofText(std::string_view value);

    ValueKind kind() const { return kind_; }
    bool isNull() const { return kind_ == ValueKind::null; }
    bool isNumber() const;

    bool toBool() const;
    std::int32_t toInt32() const;
    std::int64_t toInt64() const;
    double toDouble() const;
    Money toMoney() const;
    Date toDate() const;
    std::string toText() const;
    // Only of a value of kind text: the text itself.
    std::string_view textView() const { return text_; }

    // What is read where Null stands for nothing: 0, empty text.
    Money moneyOrZero() const { return isNull() ? Money() : toMoney(); }
    std::int32_t int32OrZero() const { return isNull() ? 0 : toInt32(); }
    double doubleOrZero() const { return isNull() ? 0.0 : toDouble(); }
    std::string textOrEmpty() const { return isNull() ? std::string() : toText(); }
    bool boolOrFalse() const { return !isNull() && toBool(); }

private:
    friend class Variant;
    ValueKind kind_ = ValueKind::null;
    union {
        std::int64_t integer_;
        double real_ = 0;
    };
    std::string_view text_;
};

// The same, owning its text.
class Variant {
public:
    Variant() = default;
    Variant(bool value) : view_(ValueView::ofBool(value)) {}
    Variant(std::int32_t value) : view_(ValueView::ofInt32(value)) {}
    Variant(std::int64_t value) : view_(ValueView::ofInt64(value)) {}
    Variant(double value) : view_(ValueView::ofDouble(value)) {}
    Variant(Money value) : view_(ValueView::ofMoney(value)) {}
    Variant(Date value) : view_(ValueView::ofDate(value)) {}
    Variant(std::string value) : text_(std::move(value)) { view_.kind_ = ValueKind::text; }
    Variant(std::string_view value) : Variant(std::string(value)) {}
    Variant(const char* value) : Variant(std::string(value)) {}
    explicit Variant(const ValueView& view) { *this = view; }
    // Keeps the room of a text that it held before.
    Variant& operator=(const ValueView& view);

    ValueView view() const;
    operator ValueView() const { return view(); }
    ValueKind kind() const { return view_.kind_; }
    bool isNull() const { return view_.isNull(); }
    bool toBool() const { return view().toBool(); }
    std::int32_t toInt32() const { return view().toInt32(); }
    std::int64_t toInt64() const { return view().toInt64(); }
    double toDouble() const { return view().toDouble(); }
    Money toMoney() const { return view().toMoney(); }
    Date toDate() const { return view().toDate(); }
    std::string toText() const { return view().toText(); }
    Money moneyOrZero() const { return view().moneyOrZero(); }
    std::int32_t int32OrZero() const { return view().int32OrZero(); }
    double doubleOrZero() const { return view().doubleOrZero(); }
    std::string textOrEmpty() const { return view().textOrEmpty(); }
    bool boolOrFalse() const { return view().boolOrFalse(); }

private:
    ValueView view_;
    std::string text_;
};

// True when both are Null, or are equal as text, or as numbers or dates. Text compares letter by letter.
bool sameValue(const ValueView& a, const ValueView& b);

}  // namespace quillo
