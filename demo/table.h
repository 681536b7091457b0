#pragma once

#include "demo/amounts.h"
#include "demo/days.h"
#include "host/database/sqlite_handle.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillo::demo {

// A table that takes rows, by one statement compiled once. A row gives a value for each column, in
// the schema's order; a row of another length fails when it is added.
class Table {
public:
    Table(const sqlite::Database& database, const std::string& name);

    template <class... Values>
    void add(const Values&... values) {
        if (sizeof...(values) != columns_) wrongLength(sizeof...(values));
        int index = 0;
        (bind(++index, values), ...);
        insert_.run();
    }

private:
    Table(const sqlite::Database& database, std::string name, std::size_t columns);
    [[noreturn]] void wrongLength(std::size_t count) const;

    void bind(int index, std::nullptr_t) { insert_.bind(index, nullptr); }
    void bind(int index, std::int64_t value) { insert_.bind(index, value); }
    void bind(int index, int value) { insert_.bind(index, value); }
    void bind(int index, bool value) { insert_.bind(index, value ? 1 : 0); }
    void bind(int index, std::string_view value) { insert_.bind(index, value); }
    void bind(int index, const char* value) { insert_.bind(index, std::string_view(value)); }
    void bind(int index, const std::string& value) { insert_.bind(index, std::string_view(value)); }
    void bind(int index, Day value) { insert_.bind(index, std::string_view(value.iso())); }
    void bind(int index, Cents value) { insert_.bind(index, static_cast<double>(value.n) / 100); }
    void bind(int index, Qty value) { insert_.bind(index, static_cast<double>(value.n) / 100); }
    void bind(int index, Rate value) { insert_.bind(index, static_cast<double>(value.n) / 10000); }
    void bind(int index, Cost value) { insert_.bind(index, static_cast<double>(value.n) / 10000); }
    void bind(int index, Percent value) { insert_.bind(index, static_cast<double>(value.n) / 1000); }
    // Out of line, since GCC 12 otherwise takes an empty value for an uninitialized one.
    template <class T>
    [[gnu::noinline]] void bind(int index, const std::optional<T>& value) {
        if (value)
            bind(index, *value);
        else
            bind(index, nullptr);
    }

    std::string name_;
    std::size_t columns_;
    sqlite::Statement insert_;
};

// A key as a column value: 0 is NULL.
inline std::optional<Id> orNull(Id key) {
    return key == 0 ? std::nullopt : std::optional(key);
}
// A text as a column value: the empty text is NULL.
inline std::optional<std::string_view> orNull(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace quillo::demo
