#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillo {

// Values of fields by name, without braces; UTF-8, where a line feed begins a new line.
using FieldValues = std::map<std::string, std::string, std::less<>>;

// What one letter says.
struct LetterFields {
    FieldValues values;
    std::vector<FieldValues> documents;  // those whose names begin with "Document."
};

// A letter as RTF with fields: {Name} as a reader sees it. The paragraph or the table's row that holds a field of a
// document stands once for each document.
class LetterTemplate {
public:
    // Throws InputError when the text is no RTF, has a field that is not known, or a part to repeat that begins in
    // one group and ends in another.
    explicit LetterTemplate(std::string_view rtf);

    // The finished RTF. A field without a value prints nothing.
    std::string compose(const LetterFields& fields) const;

    // The names of all fields.
    static const std::vector<std::string_view>& fields();

private:
    struct Part {
        std::string rtf;
        std::string field;  // in place of the text; empty: none
    };
    struct Block {
        std::vector<Part> parts;
        bool repeated = false;
    };
    class Compiler;

    std::vector<Block> blocks_;
};

// A text as RTF that means it, whatever stands around it.
std::string rtfOf(std::string_view text);

}  // namespace quillo
