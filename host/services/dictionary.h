#pragma once

#include <string>
#include <unordered_map>

#include "framework/services/services.h"
#include "framework/values/names.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// The words of a company in one language, read once.
class CompanyDictionary final : public DictionaryService {
public:
    CompanyDictionary(const sqlite::Database& database, std::string_view language);
    std::string Translate(std::string_view word) override;

private:
    std::unordered_map<std::string, std::string, NameHash, NameEqual> words_;
};

}  // namespace quillo
