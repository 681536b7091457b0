#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "host/language/language.h"

namespace quillo {
namespace {

namespace fs = std::filesystem;

// The numbers that a pattern finds in the files of a folder, with the file that names each first.
void collect(const char* folder, const std::set<std::string>& endings, const std::regex& pattern,
             std::map<int, std::string>& found) {
    const fs::path root = fs::path(QUILLO_SOURCE) / folder;
    if (!fs::exists(root)) return;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!endings.contains(entry.path().extension().string())) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
            found.emplace(std::stoi((*match)[1].str()), entry.path().filename().string());
    }
}

TEST(Texts, NoNumberThatIsUsedLacksAText) {
    std::map<int, std::string> used;
    collect("designs", {".json"}, std::regex("Lng=(\\d+);"), used);
    const std::set<std::string> sources{".cpp", ".h"};
    for (const char* folder : {"framework", "reports", "dialogs", "host", "apps"}) {
        collect(folder, sources, std::regex("GetText\\((\\d+)"), used);
        collect(folder, sources, std::regex("[tT]itle\\w*\\s*[({=]\\s*(\\d{4,5})\\b"), used);
    }
    ASSERT_GT(used.size(), 5u) << "the search finds nothing";
    for (const char* code : {"en", "fr"}) {
        const Language language = Language::load(code, {});
        const auto known = language.textIds();
        const std::set<int> texts(known.begin(), known.end());
        for (const auto& [id, file] : used)
            EXPECT_TRUE(texts.contains(id)) << code << " lacks " << id << ", used in " << file;
    }
}

TEST(Texts, NoneIsEmptyAndTitlesOfFoundationReportsCarryNoMark) {
    for (const char* code : {"en", "fr"}) {
        const Language language = Language::load(code, {});
        for (const int id : language.textIds()) EXPECT_FALSE(language.text(id).empty()) << code << " " << id;
        // These titles print as they stand.
        for (const int id : {7785, 7786, 9107, 9469, 9470})
            EXPECT_EQ(language.text(id).find('&'), std::string::npos) << code << " " << id;
        EXPECT_NE(language.text(5852).find("{0}"), std::string::npos) << code;
        EXPECT_NE(language.message(12802, {"2025-12-31"}).find("2025-12-31"), std::string::npos) << code;
        EXPECT_FALSE(language.message(12944, {}).empty()) << code;
    }
}

}  // namespace
}  // namespace quillo
