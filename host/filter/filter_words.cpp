#include "host/filter/filter_words.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "framework/values/names.h"
#include "host/language/host_texts.h"
#include "host/language/placeholders.h"

namespace quillo {
namespace {

using Kind = FilterCondition::Kind;

enum class Prints { asItIs, amount, yesOrNo };

struct ColumnCaption {
    std::string_view column;  // a column of that name in any table, unless the table is told
    int text;
    std::string_view table = "";
    Prints prints = Prints::asItIs;
};

constexpr ColumnCaption captions[] = {
    // customers
    {"InCustId", 20231},
    {"CustId", 1741},
    {"Name", 3017, "Cust"},
    {"Contact", 1575},
    {"Tel1", 1898},
    {"TelExt1", 1907},
    {"Tel2", 1898},
    {"TelExt2", 1907},
    {"Fax", 1899},
    {"Email", 1900},
    {"Web", 1901},
    {"NameLang", 1758},
    {"SalesPerson", 1895},
    {"CreditLim", 1742, "", Prints::amount},
    {"CustInactive", 20233, "", Prints::yesOrNo},
    {"ExTermId", 1911},
    {"ExTaxGroupId", 2117},
    {"TaxGroupId", 2117},
    {"ExPriceLevelId", 20232},
    // addresses
    {"InAddrId", 20252},
    {"AddrKind", 20253},
    {"AddrName", 20254},
    {"AddrLine1", 20255},
    {"AddrLine2", 20256},
    {"City", 20257},
    {"Province", 20258},
    {"PostalCode", 20259},
    {"ExCountryId", 20260},
    // terms
    {"InTermId", 1911},
    {"TermId", 1741},
    {"TermMode", 2493},
    {"Due", 1619},
    {"DiscPercent", 2862},
    {"DiscDelay", 1617},
    {"DueNxtMonth", 1618},
    // documents
    {"InInvoiId", 20234},
    {"InvoiId", 2781},
    {"InvoiType", 1372},
    {"ID", 1372, "InvoiType"},
    {"Description", 1789, "InvoiType"},
    {"InvoiDate", 1912},
    {"InvoiTime", 20235},
    {"ShipDate", 1351},
    {"RecDate", 20236},
    {"DueDate", 20237},
    {"ExCustId", 1573},
    {"ExchangeRate", 20238},
    {"DetAmnt", 1722, "InvoiHdr", Prints::amount},
    {"DiscTotAmnt", 2853, "", Prints::amount},
    {"ShipAmnt", 2759, "", Prints::amount},
    {"TaxAmnt", 1896, "", Prints::amount},
    {"TotAmnt", 2767, "", Prints::amount},
    {"RecAmnt", 20239, "", Prints::amount},
    {"RecCheqNo", 20240},
    {"ExPmtMethId", 2796},
    {"PmtMeth", 2796},
    {"CommissionPercent", 20241},
    {"CommissionAmount", 20242, "", Prints::amount},
    {"CashierSale", 20243, "", Prints::yesOrNo},
    {"ExUsrKey", 20244},
    {"TrxSerNo", 20245},
    {"ToApprove", 20246, "", Prints::yesOrNo},
    {"ExSegmentId", 20247},
    // the ledger
    {"InGLDetId", 20248},
    {"SeqNo", 20249},
    {"DetDate", 1912},
    {"Source", 2648},
    {"ExSrcKeyVal", 20234},
    {"DetRef", 1353},
    {"DetDesc", 1789},
    {"DetAmnt", 1914, "", Prints::amount},
    {"ForeignAmnt", 5846, "", Prints::amount},
    {"ARAPAdjustmentEntry", 20250, "", Prints::yesOrNo},
    {"InGLAcctId", 2052},
    {"GLAcctId", 2052},
    {"ExGLAcctId", 2052},
    {"ExAcctId", 2052},
    {"ChqAcct", 20251, "", Prints::yesOrNo},
    // suppliers, purchases, employees and pay slips
    {"InSuppId", 20361},
    {"SuppId", 20285},
    {"ExSuppId", 20285},
    {"Name", 3017, "Supp"},
    {"SuppInactive", 20233, "", Prints::yesOrNo},
    {"InPurcId", 20234},
    {"PurcId", 2781},
    {"PurcType", 1372},
    {"PurcDate", 1912},
    {"InEmplId", 20362},
    {"EmplId", 20286},
    {"ExEmplId", 20286},
    {"FirstName", 20287},
    {"LastName", 20288},
    {"SalesComm", 20241},
    {"EmplInactive", 20233, "", Prints::yesOrNo},
    {"InTrxPayId", 20234},
    {"TrxPayNo", 2781},
    {"PayDate", 1912},
    {"Hours", 20363},
    {"GrossAmnt", 20364, "", Prints::amount},
    {"NetAmnt", 20365, "", Prints::amount},
    {"Canceled", 20366, "", Prints::yesOrNo},
    // items and their warehouses
    {"InItemId", 20401},
    {"ItemId", 1596},
    {"Descr1", 1599},
    {"ExCategoryId", 20289},
    {"Descr", 20289, "Category"},
    {"ExSubCategoryId", 20402},
    {"Descr", 20402, "Category_Sub"},
    {"SalePrice", 2809, "", Prints::amount},
    {"UnitPrice", 1601, "", Prints::amount},
    {"Servc", 20403, "", Prints::yesOrNo},
    {"IsKit", 20404, "", Prints::yesOrNo},
    {"IsAssembly", 20405, "", Prints::yesOrNo},
    {"ComputeKitOption", 20406},
    {"AllowKitModification", 20407, "", Prints::yesOrNo},
    {"ItemInactive", 20233, "", Prints::yesOrNo},
    {"WarehouseId", 4606},
    {"Name", 20408, "Warehouse"},
    // projects and currencies
    {"InProjId", 2098},
    {"ExProjId", 2098},
    {"ProjId", 2098},
    {"BegDate", 2633},
    {"EndDate", 2635},
    {"EstSales", 5438, "", Prints::amount},
    {"EstPurch", 5439, "", Prints::amount},
    {"EstHours", 5440},
    {"Inactive", 20233, "", Prints::yesOrNo},
    {"InCurrencyId", 2843},
    {"ExCurrencyId", 2843},
    {"CurrencyCode", 2843},
    {"Descr", 2843, "WorldCurrency"},
    {"Descr", 1789},
};

const ColumnCaption* knownCaption(const FilterColumn& column) {
    const auto* found = std::find_if(std::begin(captions), std::end(captions), [&](const ColumnCaption& one) {
        return equalNames(one.column, column.column) && (one.table.empty() || equalNames(one.table, column.table));
    });
    return found == std::end(captions) ? nullptr : found;
}

std::string captionOf(const FilterColumn& column, const HostContext& context) {
    const ColumnCaption* known = knownCaption(column);
    return known == nullptr ? column.column : context.GetText(known->text);
}

std::string numberInWords(const Variant& value, const FilterColumn& column, const HostContext& context) {
    constexpr double largestAmount = 9e14;  // that money can hold
    const ColumnCaption* known = knownCaption(column);
    const Prints prints = known == nullptr ? Prints::asItIs : known->prints;
    if (prints == Prints::yesOrNo) return context.GetText(value.toDouble() != 0 ? HostText::yes : HostText::no);
    const bool amount = prints == Prints::amount && std::abs(value.toDouble()) < largestAmount;
    return amount ? context.locale().currency(value.toMoney()) : context.locale().plainNumber(value);
}

// As a reader of the report finds it in the column.
std::string valueInWords(const FilterOperand& operand, const FilterColumn& tested, const HostContext& context) {
    if (const auto* column = std::get_if<FilterColumn>(&operand)) return captionOf(*column, context);
    const Variant& value = std::get<Variant>(operand);
    if (value.kind() != ValueKind::text) return numberInWords(value, tested, context);
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
    for (const FilterOperand& operand : test.operands) values.push_back(valueInWords(operand, test.column, context));
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
