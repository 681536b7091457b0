#pragma once

#include "demo/catalogue.h"
#include "host/database/sqlite_handle.h"

#include <string>

namespace quillo::demo {

// The company's own words, which have one language, that of the company; the dictionary knows them in the other one.
class Vocabulary {
public:
    Vocabulary(const sqlite::Database& database, bool french);

    bool french() const { return french_; }
    const char* say(const Words& words) const { return french_ ? words.french : words.english; }
    // The same for a word of a list, which the dictionary learns.
    const char* name(const Words& words);

private:
    bool french_;
    sqlite::Statement learn_;
};

}  // namespace quillo::demo
