#include "demo/vocabulary.h"

namespace quillo::demo {

// A word that two lists share keeps its first translation.
Vocabulary::Vocabulary(const sqlite::Database& database, bool french)
    : french_(french), learn_(database, "INSERT OR IGNORE INTO Dictionary VALUES (?1, ?2, ?3)") {}

const char* Vocabulary::name(const Words& words) {
    const char* const word = say(words);
    learn_.bind(1, word).bind(2, french_ ? "en" : "fr").bind(3, french_ ? words.english : words.french).run();
    return word;
}

}  // namespace quillo::demo
