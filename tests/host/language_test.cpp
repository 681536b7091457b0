#include "host/language/language.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "framework/values/errors.h"
#include "tests/host/temporary_file.h"

namespace quillo {
namespace {

TEST(Language, ReadsTextsAndMessages) {
    const Language language = Language::parse(
        "\xEF\xBB\xBF# a comment\r\n\r\n1 = One = 1\r\n2=\" two \"\n[messages]\n7 = From %2 to %1, 100 %, "
        "%3\n[texts]\n 3 =\n",
        "xx.txt");
    EXPECT_EQ(language.code(), "xx");
    EXPECT_EQ(language.text(1), "One = 1");
    EXPECT_EQ(language.text(2), " two ");
    EXPECT_EQ(language.text(3), "");
    EXPECT_EQ(language.message(7, {"B", "A"}), "From A to B, 100 %, %3");
    EXPECT_EQ(language.textIds(), (std::vector<int>{1, 2, 3}));
}

TEST(Language, DamagedFilesNameTheirLine) {
    struct Case {
        const char* text;
        const char* failure;
    };
    const Case cases[] = {
        {"1 = a\n\n1 = b\n", "fr.txt, line 3: the number 1 stands twice"},
        {"# x\nhello\n", "fr.txt, line 2: a line is a number, \"=\" and a text"},
        {"1x = a", "fr.txt, line 1: a line is a number, \"=\" and a text"},
        {"= a", "fr.txt, line 1: a line is a number, \"=\" and a text"},
        {"-4 = a", "fr.txt, line 1: a line is a number, \"=\" and a text"},
        {"99999999999 = a", "fr.txt, line 1: a line is a number, \"=\" and a text"},
        {"[other]\n", "fr.txt, line 1: there is no heading [other]"},
    };
    for (const Case& one : cases) {
        try {
            Language::parse(one.text, "fr.txt");
            ADD_FAILURE() << one.text;
        } catch (const InputError& failure) {
            EXPECT_STREQ(failure.what(), one.failure);
        }
    }
}

TEST(Language, UnknownNumbersNameTheLanguage) {
    try {
        (void)Language::parse("1 = a", "fr.txt").text(2);
        ADD_FAILURE();
    } catch (const NameError& failure) {
        EXPECT_STREQ(failure.what(), "The language \"fr\" has no text 2");
    }
    EXPECT_EQ(Language::ids().text(1911), "#1911");
    EXPECT_EQ(Language::ids().message(12802, {"x"}), "#12802");
}

TEST(Language, AFileBesideTheCompanyAddsALanguage) {
    const test::TemporaryFile file(".txt");
    file.write("1911 = Omschrijving\n");
    const std::filesystem::path path(file.path());
    EXPECT_EQ(Language::load(file.path(), {}).text(1911), "Omschrijving");
    EXPECT_EQ(Language::load(path.stem().string(), {path.parent_path().string()}).text(1911), "Omschrijving");
    EXPECT_THROW(Language::load(path.stem().string(), {}), InputError);
    EXPECT_THROW(Language::load("", {path.parent_path().string()}), InputError);
    EXPECT_THROW(Language::load("/no/such.txt", {}), InputError);
}

TEST(Language, BothLanguagesHoldTheSameNumbers) {
    const Language english = Language::load("en", {});
    const Language french = Language::load("fr", {});
    EXPECT_EQ(english.textIds(), french.textIds());
    EXPECT_EQ(english.messageIds(), french.messageIds());
    EXPECT_NE(english.text(1911), french.text(7629));
}

}  // namespace
}  // namespace quillo
