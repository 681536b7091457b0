#include "host/database/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <random>
#include <string>
#include <vector>

#include "host/database/sqlite_handle.h"

namespace quillo {
namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(Collation, ReadsWordsAsADictionaryDoes) {
    struct Case {
        const char* a;
        const char* b;
        int order;
    };
    const Case cases[] = {
        {"abc", "ABC", 0},   {"abc  ", "abc", 0},  {"", "   ", 0},      {"a", "B", -1},
        {"Zoe", "amy", 1},   {"cote", "coté", -1}, {"coté", "COTÉ", 0}, {"coté", "cotf", -1},
        {"Ａｂ", "ab", 0},   {"10", "9", -1},      {"_a", "a", -1},     {"a b", "ab", -1},
        {"abc", "abcd", -1}, {"é ", "é", 0},       {"ab\x01", "ab", 0}, {"œuvre", "oeuvre", 1},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(sign(compareText(one.a, one.b)), one.order) << one.a << " | " << one.b;
        EXPECT_EQ(sign(compareText(one.b, one.a)), -one.order) << one.b << " | " << one.a;
    }
}

// The road for plain text must give the order of the full collator, also where accents are mixed in.
TEST(Collation, ShortRoadAgreesWithTheFullCollator) {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* full = ucol_open("", &status);
    ASSERT_TRUE(U_SUCCESS(status));
    ucol_setStrength(full, UCOL_SECONDARY);
    const std::vector<std::string> pieces = {"a", "A", "b", "l",        "o", "e", "z",  "0",  "9",    "-",
                                             "'", ".", "_", "^",        "`", "~", " ",  "\t", "\x01", "\x7F",
                                             "é", "É", "·", "\xCC\x81", "œ", "ß", "Ａ", "ñ",  "&"};
    std::mt19937 random(7);
    const auto word = [&] {
        std::string text = random() % 2 == 0 ? "" : "a long start ";
        for (auto left = random() % 6; left > 0; --left) text += pieces[random() % pieces.size()];
        return text + "x";  // no trailing blanks, which the full collator counts
    };
    for (int i = 0; i < 50000; ++i) {
        const std::string a = word();
        const std::string b = word();
        const int expected =
            ucol_strcollUTF8(full, a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), &status);
        ASSERT_EQ(sign(compareText(a, b)), expected) << a << " | " << b;
    }
    ucol_close(full);
}

TEST(Collation, SortsAndFindsInTheDatabase) {
    sqlite::Database database(":memory:", sqlite::Open::create);
    database.execute(
        "CREATE TABLE T (Name TEXT COLLATE QUILLO PRIMARY KEY);"
        "INSERT INTO T VALUES ('beta'), ('Élan'), ('Alpha'), ('elan'), ('Zulu')");
    sqlite::Statement sorted(database, "SELECT Name FROM T ORDER BY Name");
    std::vector<std::string> names;
    while (sorted.step()) names.emplace_back(sorted.text(0));
    EXPECT_EQ(names, (std::vector<std::string>{"Alpha", "beta", "elan", "Élan", "Zulu"}));
    EXPECT_EQ(database.integer("SELECT COUNT(*) FROM T WHERE Name = 'ZULU '"), 1);
    EXPECT_THROW(database.execute("INSERT INTO T VALUES ('BETA')"), sqlite::Error);
}

}  // namespace
}  // namespace quillo
