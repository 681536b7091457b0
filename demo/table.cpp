#include "demo/table.h"

#include <stdexcept>

namespace quillo::demo {
namespace {

std::size_t columnCount(const sqlite::Database& database, const std::string& name) {
    const sqlite::Statement all(database, "SELECT * FROM " + name);
    return static_cast<std::size_t>(sqlite3_column_count(all.get()));
}

std::string insertText(const std::string& name, std::size_t columns) {
    std::string text = "INSERT INTO " + name + " VALUES (?";
    for (std::size_t i = 1; i < columns; ++i) text += ",?";
    return text + ")";
}

}  // namespace

Table::Table(const sqlite::Database& database, const std::string& name)
    : Table(database, name, columnCount(database, name)) {}

Table::Table(const sqlite::Database& database, std::string name, std::size_t columns)
    : name_(std::move(name)), columns_(columns), insert_(database, insertText(name_, columns)) {}

void Table::wrongLength(std::size_t count) const {
    throw std::logic_error("a row of " + std::to_string(count) + " values for the " + std::to_string(columns_) +
                           " columns of " + name_);
}

}  // namespace quillo::demo
