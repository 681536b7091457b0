#include "host/letters/letter_template.h"

#include <algorithm>
#include <optional>

#include "framework/richtext/rtf_tokens.h"
#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "framework/values/utf8.h"

namespace quillo {
namespace {

using Kind = RtfToken::Kind;

constexpr std::string_view documentPrefix = "Document.";

bool isDocumentField(std::string_view name) {
    return name.starts_with(documentPrefix);
}

void requireKnown(std::string_view name) {
    const auto& known = LetterTemplate::fields();
    if (std::find(known.begin(), known.end(), name) != known.end()) return;
    std::string names;
    for (const std::string_view field : known) names.append(names.empty() ? "{" : ", {").append(field).append("}");
    throw InputError("there is no field {" + std::string(name) + "}; there are " + names);
}

std::vector<RtfToken> tokensOf(std::string_view rtf) {
    std::vector<RtfToken> tokens;
    RtfTokens reader(rtf);
    for (RtfToken token = reader.next(); !token.is(Kind::end); token = reader.next()) tokens.push_back(token);
    return tokens;
}

bool isNameLetter(char letter) {
    return isLetter(letter) || letter == '.';
}

}  // namespace

// Takes the template apart into blocks: paragraphs, rows, and what stands between.
class LetterTemplate::Compiler {
public:
    explicit Compiler(std::string_view rtf) : rtf_(rtf), tokens_(tokensOf(rtf)) {}

    std::vector<Block> run() {
        while (at_ < tokens_.size()) take();
        endBlock();
        return std::move(blocks_);
    }

private:
    void take() {
        const RtfToken& token = tokens_[at_];
        if (token.isSymbol('{') && takeField()) return;
        if (!inRow_ && !block_.repeated && (token.isWord("pard") || token.isWord("trowd"))) endBlock();
        inRow_ = inRow_ || token.isWord("trowd");
        takeAsItIs();
        const bool rowEnds = token.isWord("row");
        if (!rowEnds && (inRow_ || !token.isWord("par"))) return;
        inRow_ = false;
        while (depth_ > 0 && at_ < tokens_.size() && tokens_[at_].is(Kind::close)) takeAsItIs();
        endBlock();
    }

    void takeAsItIs() {
        const RtfToken& token = tokens_[at_];
        depth_ += token.is(Kind::open) ? 1 : token.is(Kind::close) ? -1 : 0;
        const std::size_t from = at_ == 0 ? 0 : tokens_[at_ - 1].to;
        keep(rtf_.substr(from, token.to - from));
        ++at_;
    }

    void keep(std::string_view rtf) {
        if (block_.parts.empty() || !block_.parts.back().field.empty()) block_.parts.emplace_back();
        block_.parts.back().rtf += rtf;
    }

    // From \{ to \}: an editor may have put control words and groups between the letters of the name, which stay.
    bool takeField() {
        std::string name, between;
        int depth = 0;
        for (std::size_t i = at_ + 1; i < tokens_.size(); ++i) {
            const RtfToken& token = tokens_[i];
            if (token.isSymbol('}')) {
                if (name.empty()) return false;
                addField(name);
                keep(between);
                depth_ += depth;
                at_ = i + 1;
                return true;
            }
            if (token.is(Kind::text)) {
                if (!std::all_of(token.bytes.begin(), token.bytes.end(), isNameLetter)) return false;
                name += token.bytes;
            } else if (token.is(Kind::open) || token.is(Kind::close) || token.is(Kind::word)) {
                if (token.isWord("par") || token.isWord("cell") || token.isWord("row")) return false;
                depth += token.is(Kind::open) ? 1 : token.is(Kind::close) ? -1 : 0;
                between += rtf_.substr(token.from, token.to - token.from);
                if (token.is(Kind::word) && between.back() != ' ') between += ' ';
            } else {
                return false;
            }
        }
        return false;
    }

    void addField(const std::string& name) {
        requireKnown(name);
        block_.parts.push_back({{}, name});
        if (!isDocumentField(name)) return;
        block_.repeated = true;
        repeatedField_ = name;
    }

    void endBlock() {
        if (block_.repeated && depth_ != 0)
            throw InputError("the paragraph with {" + repeatedField_ +
                             "} shares a look with what stands beside it; give it a look of its own");
        if (!block_.parts.empty()) blocks_.push_back(std::move(block_));
        block_ = {};
        depth_ = 0;
    }

    std::string_view rtf_;
    std::vector<RtfToken> tokens_;
    std::size_t at_ = 0;
    std::vector<Block> blocks_;
    Block block_;
    std::string repeatedField_;
    int depth_ = 0;  // of groups, since the block began
    bool inRow_ = false;
};

LetterTemplate::LetterTemplate(std::string_view rtf) {
    if (!isRtf(rtf)) throw InputError("it is no RTF");
    blocks_ = Compiler(rtf).run();
}

std::string LetterTemplate::compose(const LetterFields& fields) const {
    std::string letter;
    const auto write = [&](const Block& block, const FieldValues* document) {
        for (const Part& part : block.parts) {
            letter += part.rtf;
            if (part.field.empty()) continue;
            const FieldValues& values = document != nullptr && isDocumentField(part.field) ? *document : fields.values;
            if (const auto value = values.find(part.field); value != values.end()) letter += rtfOf(value->second);
        }
    };
    for (const Block& block : blocks_) {
        if (!block.repeated) write(block, nullptr);
        if (block.repeated)
            for (const FieldValues& document : fields.documents) write(block, &document);
    }
    return letter;
}

const std::vector<std::string_view>& LetterTemplate::fields() {
    static const std::vector<std::string_view> all = {"Name",
                                                      "Address",
                                                      "Balance",
                                                      "Overdue",
                                                      "OldestDays",
                                                      "Date",
                                                      "Company",
                                                      "Document.Number",
                                                      "Document.Kind",
                                                      "Document.Date",
                                                      "Document.DueDate",
                                                      "Document.Days",
                                                      "Document.Balance"};
    return all;
}

std::string rtfOf(std::string_view text) {
    std::string rtf = "{\\uc1 ";
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        const auto unit = [&rtf](char32_t value) {
            // As a number of 16 bits with a sign, which older readers need.
            const int number = static_cast<int>(value) - (value > 0x7FFF ? 0x10000 : 0);
            rtf.append("\\u").append(std::to_string(number)).append("?");
        };
        if (character == '\n') {
            rtf += "\\line ";
        } else if (character == '\t') {
            rtf += "\\tab ";
        } else if (character == '\\' || character == '{' || character == '}') {
            rtf.append(1, '\\').append(1, static_cast<char>(character));
        } else if (character >= 0x10000) {
            unit(0xD800 + ((character - 0x10000) >> 10));
            unit(0xDC00 + (character & 0x3FF));
        } else if (character >= 0x80) {
            unit(character);
        } else if (character >= 0x20) {
            rtf += static_cast<char>(character);
        }
    }
    return rtf + "}";
}

}  // namespace quillo
