#include "framework/engine/expression.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

class Reader {
public:
    explicit Reader(std::string_view source) : source_(source), rest_(source.substr(1)) {}

    std::vector<Expression::Part> read() {
        std::vector<Expression::Part> parts;
        for (;;) {
            skipBlanks();
            parts.push_back(operand());
            skipBlanks();
            if (rest_.empty()) return parts;
            if (rest_.front() != '&') fail();
            rest_.remove_prefix(1);
        }
    }

private:
    Expression::Part operand() {
        if (rest_.empty()) fail();
        if (rest_.front() == '[') return {true, until(']')};
        if (rest_.front() == '"') return {false, until('"')};
        return {true, name()};
    }

    std::string name() {
        const auto stands = [](char c) { return isDigit(c) || isLetter(c) || c == '_' || c == '.'; };
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), stands);
        std::string name(rest_.begin(), end);
        if (name.empty() || isDigit(name.front())) fail();
        rest_.remove_prefix(name.size());
        return name;
    }

    std::string until(char closing) {
        const auto end = rest_.find(closing, 1);
        if (end == std::string_view::npos) fail();
        std::string text(rest_.substr(1, end - 1));
        if (closing == ']' && (text.empty() || text.find('[') != std::string::npos)) fail();
        rest_.remove_prefix(end + 1);
        return text;
    }

    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
    }

    [[noreturn]] void fail() const {
        throw InputError("The expression \"" + std::string(source_) + "\" cannot be read at \"" + std::string(rest_) +
                         "\"");
    }

    std::string_view source_, rest_;
};

}  // namespace

Expression Expression::compile(std::string_view source) {
    Expression expression;
    if (source.empty()) return expression;
    if (source.front() == '=') {
        expression.parts_ = Reader(source).read();
    } else {
        expression.parts_.push_back({true, std::string(source)});
    }
    return expression;
}

}  // namespace quillo
