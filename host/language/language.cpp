#include "host/language/language.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/language/placeholders.h"

namespace quillo {
namespace {

namespace fs = std::filesystem;

std::string_view unquoted(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

std::vector<int> keysOf(const std::unordered_map<int, std::string>& table) {
    std::vector<int> keys;
    for (const auto& entry : table) keys.push_back(entry.first);
    std::sort(keys.begin(), keys.end());
    return keys;
}

std::string contents(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) throw InputError("The language file " + path.string() + " is not a file");
    std::ifstream file(path, std::ios::binary);
    if (!file) throw InputError("The language file " + path.string() + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

Language Language::parse(std::string_view text, std::string_view name) {
    Language language;
    language.code_ = fs::path(name).stem().string();
    Table* table = &language.texts_;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    for (int number = 1; !text.empty(); ++number) {
        const auto fail = [&](const std::string& what) {
            throw InputError(std::string(name) + ", line " + std::to_string(number) + ": " + what);
        };
        const std::string_view line = trimmed(text.substr(0, text.find('\n')));
        text.remove_prefix(
            std::min(text.size(), text.find('\n') == std::string_view::npos ? text.size() : text.find('\n') + 1));
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            if (line != "[texts]" && line != "[messages]") fail("there is no heading " + std::string(line));
            table = line == "[texts]" ? &language.texts_ : &language.messages_;
            continue;
        }
        const auto equal = line.find('=');
        const std::string_view key = trimmed(line.substr(0, equal));
        int id = 0;
        const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), id);
        if (equal == std::string_view::npos || error != std::errc{} || end != key.data() + key.size() || id <= 0)
            fail("a line is a number, \"=\" and a text");
        if (!table->emplace(id, unquoted(trimmed(line.substr(equal + 1)))).second)
            fail("the number " + std::to_string(id) + " stands twice");
    }
    return language;
}

Language Language::ids() {
    Language language;
    language.code_ = "ids";
    language.showsIds_ = true;
    return language;
}

Language Language::load(std::string_view codeOrPath, const std::vector<std::string>& folders) {
    const std::string wanted(codeOrPath);
    if (wanted == "ids") return ids();
    if (wanted.find('/') != std::string::npos || wanted.ends_with(".txt")) return parse(contents(wanted), wanted);
    for (const std::string& folder : folders) {
        const fs::path path = fs::path(folder) / (wanted + ".txt");
        std::error_code ignored;
        if (!wanted.empty() && fs::is_regular_file(path, ignored)) return parse(contents(path), path.string());
    }
    const std::string_view embedded = embeddedLanguage(wanted);
    if (embedded.empty())
        throw InputError("There is no language \"" + wanted + "\": no file " + wanted + ".txt beside the company");
    return parse(embedded, wanted + ".txt");
}

std::string Language::find(const Table& table, int id, std::string_view what) const {
    if (const auto found = table.find(id); found != table.end()) return found->second;
    if (showsIds_) return "#" + std::to_string(id);
    throw NameError("The language \"" + code_ + "\" has no " + std::string(what) + " " + std::to_string(id));
}

std::string Language::text(int id) const {
    return find(texts_, id, "text");
}

std::string Language::message(int number, const std::vector<std::string>& arguments) const {
    return withArguments(find(messages_, number, "message"), arguments);
}

std::vector<int> Language::textIds() const {
    return keysOf(texts_);
}

std::vector<int> Language::messageIds() const {
    return keysOf(messages_);
}

}  // namespace quillo
