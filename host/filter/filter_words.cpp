#include "host/filter/filter_words.h"

#include <algorithm>
#include <iterator>

#include "framework/values/names.h"
#include "host/language/host_texts.h"
#include "host/language/placeholders.h"

namespace quillo {
namespace {

using Kind = FilterCondition::Kind;

struct ColumnCaption {
    std::string_view column;  // a column of that name in any table, unless the table is told
    int text;
    std::string_view table = "";
};

constexpr ColumnCaption captions[] = {
    {"CustId", 1741},   {"Name", 3017, "Cust"}, {"Contact", 1575},   {"Tel1", 1898},          {"Tel2", 1898},
    {"Fax", 1899},      {"Email", 1900},        {"Web", 1901},       {"SalesPerson", 1895},   {"CreditLim", 1742},
    {"NameLang", 1758}, {"CurrencyCode", 2843}, {"TermId", 1741},    {"Descr", 1789, "Term"}, {"TermMode", 2493},
    {"Due", 1619},      {"DiscPercent", 2862},  {"DiscDelay", 1617}, {"InvoiId", 2781},       {"InvoiDate", 1912},
    {"ShipDate", 1351}, {"InvoiType", 1372},    {"TotAmnt", 2767},   {"GLAcctId", 2052},      {"ProjId", 2098},
    {"DetDate", 1912},  {"DetRef", 1353},       {"Source", 2648},    {"PmtMeth", 2796},       {"TaxGroupId", 2117},
};

std::string captionOf(const FilterColumn& column, const HostContext& context) {
    const auto* found = std::find_if(std::begin(captions), std::end(captions), [&](const ColumnCaption& one) {
        return equalNames(one.column, column.column) && (one.table.empty() || equalNames(one.table, column.table));
    });
    return found == std::end(captions) ? column.column : context.GetText(found->text);
}

std::string valueInWords(const FilterOperand& operand, const HostContext& context) {
    if (const auto* column = std::get_if<FilterColumn>(&operand)) return captionOf(*column, context);
    const Variant& value = std::get<Variant>(operand);
    if (value.kind() != ValueKind::text) return context.locale().plainNumber(value);
    const std::string text = value.toText();
    const auto date = Date::parseIso(text);
    return date ? context.locale().shortDate(*date) : text;
}

std::string filled(int textId, const HostContext& context, const std::vector<std::string>& arguments) {
    return withArguments(context.GetText(textId), arguments);
}

int comparisonText(std::string_view sign) {
    if (sign == "=") return HostText::equals;
    if (sign == "<>") return HostText::differs;
    if (sign == "<") return HostText::below;
    if (sign == "<=") return HostText::atMost;
    return sign == ">" ? HostText::above : HostText::atLeast;
}

// A% reads "starts with", %A% "contains"; other patterns are shown as they are.
std::string likeInWords(const std::string& column, bool negated, std::string pattern, const HostContext& context) {
    if (negated) return filled(HostText::notLike, context, {column, pattern});
    const auto wildcards = std::count_if(pattern.begin(), pattern.end(), [](char c) { return c == '%' || c == '_'; });
    if (wildcards == 1 && pattern.size() > 1 && pattern.back() == '%')
        return filled(HostText::startsWith, context, {column, pattern.substr(0, pattern.size() - 1)});
    if (wildcards == 2 && pattern.size() > 2 && pattern.front() == '%' && pattern.back() == '%')
        return filled(HostText::contains, context, {column, pattern.substr(1, pattern.size() - 2)});
    return filled(HostText::like, context, {column, pattern});
}

std::string testInWords(const FilterCondition& test, const HostContext& context) {
    const std::string column = captionOf(test.column, context);
    std::vector<std::string> values;
    for (const FilterOperand& operand : test.operands) values.push_back(valueInWords(operand, context));
    switch (test.kind) {
        case Kind::isNull:
            return filled(test.negated ? HostText::isNotEmpty : HostText::isEmpty, context, {column});
        case Kind::between:
            return filled(test.negated ? HostText::notBetween : HostText::between, context,
                          {column, values.at(0), values.at(1)});
        case Kind::like:
            return likeInWords(column, test.negated, std::get<Variant>(test.operands.at(0)).toText(), context);
        case Kind::in: {
            std::string list;
            for (const std::string& value : values) list += (list.empty() ? "" : ", ") + value;
            return filled(test.negated ? HostText::isNotIn : HostText::isIn, context, {column, list});
        }
        default:
            return filled(comparisonText(test.sign), context, {column, values.at(0)});
    }
}

bool isList(const FilterCondition& condition) {
    return condition.kind == Kind::any || condition.kind == Kind::all;
}

}  // namespace

std::string conditionInWords(const FilterCondition& condition, const HostContext& context) {
    if (condition.kind == Kind::negation)
        return filled(HostText::negation, context, {conditionInWords(condition.conditions.at(0), context)});
    if (!isList(condition)) return testInWords(condition, context);
    const int link = condition.kind == Kind::any ? HostText::either : HostText::both;
    std::string text;
    for (const FilterCondition& part : condition.conditions) {
        std::string words = conditionInWords(part, context);
        if (isList(part)) words = "(" + words + ")";
        text = text.empty() ? words : filled(link, context, {text, words});
    }
    return text;
}

std::string orderInWords(const std::vector<FilterOrder>& order, const HostContext& context) {
    std::string text;
    for (const FilterOrder& one : order) {
        const std::string column = captionOf(one.column, context);
        text +=
            (text.empty() ? "" : ", ") + (one.descending ? filled(HostText::descending, context, {column}) : column);
    }
    return text;
}

}  // namespace quillo
