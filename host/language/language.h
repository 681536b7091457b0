#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillo {

// The file of a language that the library carries ("en", "fr"), by its code; empty when there is none.
std::string_view embeddedLanguage(std::string_view stem);

// The texts of one language by number. A file holds one text a line:
//   # a comment
//   [texts]                    may be left out at the start
//   1911 = Description         blanks around a text do not count; one in "double quotes" keeps its own
//   [messages]
//   12802 = Up to date as of %1.
class Language {
public:
    // name: of the file, for failures and as the language's code without its ending. Throws InputError
    // with file and line number for a line that cannot be read or a number that stands twice.
    static Language parse(std::string_view text, std::string_view name);
    // The language for testing: each text is "#" and its number.
    static Language ids();
    // The path of a file, the code of a language whose file is in one of the folders or carried by
    // the library, or "ids". Throws InputError.
    static Language load(std::string_view codeOrPath, const std::vector<std::string>& folders);

    const std::string& code() const { return code_; }
    // Throws NameError that names the number and the language.
    std::string text(int id) const;
    // The message with its arguments in the places of %1, %2, ... Throws as text().
    std::string message(int number, const std::vector<std::string>& arguments) const;
    // A text of the company's own.
    void replace(int id, std::string text) { texts_[id] = std::move(text); }
    // The numbers of all texts, or all messages, ascending.
    std::vector<int> textIds() const;
    std::vector<int> messageIds() const;

private:
    using Table = std::unordered_map<int, std::string>;
    std::string find(const Table& table, int id, std::string_view what) const;

    std::string code_;
    bool showsIds_ = false;
    Table texts_;
    Table messages_;
};

}  // namespace quillo
