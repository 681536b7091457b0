#include "host/services/dictionary.h"

namespace quillo {

CompanyDictionary::CompanyDictionary(const sqlite::Database& database, std::string_view language) {
    sqlite::Statement rows(database,
                           "SELECT Word, Translation FROM Dictionary WHERE Language = ? AND Translation IS NOT NULL");
    rows.bind(1, language);
    while (rows.step()) words_.emplace(rows.text(0), rows.text(1));
}

std::string CompanyDictionary::Translate(std::string_view word) {
    const auto found = words_.find(word);
    return found == words_.end() ? std::string(word) : found->second;
}

}  // namespace quillo
