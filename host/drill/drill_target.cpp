#include "host/drill/drill_target.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "framework/drill_tags.h"
#include "framework/values/errors.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

using Parts = std::vector<std::string>;

// Kinds whose tags name a record, and the codes under which the ledger names the same.
constexpr std::string_view recordKinds[] = {Drill::invoice,  Drill::customer, Drill::supplier,
                                            Drill::employee, Drill::project,  Drill::item,
                                            Drill::payment,  Drill::assembly, Drill::warehouseItem,
                                            "DEP",           "TAX",           "ADM",
                                            "PUR",           "EXP",           "PAY"};

Parts split(std::string_view text, char by) {
    Parts parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t to = std::min(text.find(by, from), text.size());
        parts.emplace_back(trimmed(text.substr(from, to - from)));
        from = to + 1;
    }
    return parts;
}

[[noreturn]] void refuse(std::string_view tag, const std::string& why) {
    throw InputError("The tag \"" + std::string(tag) + "\" " + why);
}

int keyOf(std::string_view tag, const std::string& part) {
    int key = 0;
    const auto read = std::from_chars(part.data(), part.data() + part.size(), key);
    if (part.empty() || read.ec != std::errc() || read.ptr != part.data() + part.size())
        refuse(tag, part.empty() ? "has no key" : "has no number as its key");
    return key;
}

std::vector<int> keysOf(std::string_view tag, const std::string& list) {
    std::vector<int> keys;
    for (const std::string& part : split(list, ',')) keys.push_back(keyOf(tag, part));
    return keys;
}

const std::string& partOf(const Parts& parts, std::size_t at) {
    static const std::string none;
    return at < parts.size() ? parts[at] : none;
}

// The report of the day end that a tag asks for, and the property that takes the key of a user or a register.
ReportTarget tillReport(const std::string& what, const std::string& key, const TillKeyOf& till) {
    const bool user = till(key) == TillKey::user;
    return {std::string(user ? "DayEndBalanceByUsr" : "DayEndBalanceByCash") + what,
            {{user ? "UsrNo" : "TrxSerNo", key}}};
}

// A key that a row did not have is 0: it finds nothing.
std::string keyOrNone(const std::string& part) {
    return part.empty() ? "0" : part;
}

// "Invoice|account|key": the sales lines of an account.
ReportTarget salesLines(const Parts& parts, const TillKeyOf& till) {
    ReportTarget target = tillReport("InvDetail", partOf(parts, 2), till);
    target.properties.emplace_back("GLAcctId", keyOrNone(partOf(parts, 1)));
    return target;
}

// "Payment|method|key|currency| " behind a method, "Payment|method|key|currency|Pos|" behind a line of the drawer.
ReportTarget receipts(const Parts& parts, const TillKeyOf& till) {
    ReportTarget target = tillReport("PmtDetail", partOf(parts, 2), till);
    const std::string& sign = partOf(parts, 4);
    target.properties.emplace_back("PmtMeth", partOf(parts, 1));
    target.properties.emplace_back("CurrencyID", keyOrNone(partOf(parts, 3)));
    target.properties.emplace_back("AmountIs", sign);
    target.properties.emplace_back("CashPmt", sign.empty() ? "false" : "true");
    return target;
}

// "Deposit| |key|": what was taken out of the drawer.
ReportTarget deposits(const Parts& parts, const TillKeyOf& till) {
    return tillReport("DepDetail", partOf(parts, 2), till);
}

// The sales documents of a salesperson; a currency other than 0 narrows them to it, and prints them in it.
ReportTarget sales(std::string_view tag, std::string_view salesPerson, bool variances, const std::string& currency) {
    ReportTarget target{"SalesBySalesPersonDetail", {{"SalesPerson", std::string(salesPerson)}}};
    if (variances) target.properties.emplace_back("IsCommissionVariances", "true");
    target.foreign = keyOf(tag, currency) != 0;
    if (target.foreign) target.properties.emplace_back("ExCurrencyId", currency);
    return target;
}

// "name|0|currency", "name|-1|currency" behind variances, "BLANK SALESPERSON NAME|currency". The name itself may hold
// bars.
std::optional<ReportTarget> readSales(std::string_view tag) {
    const auto last = tag.rfind('|');
    const std::string currency(tag.substr(last + 1));
    const std::string_view before = tag.substr(0, last);
    if (before == Drill::blankSalesPerson) return sales(tag, before, false, currency);
    for (const auto& [mark, variances] : {std::pair{"|0", false}, {"|-1", true}})
        if (before.ends_with(mark))
            return sales(tag, before.substr(0, before.size() - std::string_view(mark).size()), variances, currency);
    return std::nullopt;
}

// A bare key is a customer's; a name leads to the profit of a salesperson.
DrillTarget readBare(std::string_view tag, const std::string& part) {
    if (part.find_first_not_of("-0123456789") == part.npos)
        return {{}, {std::string(Drill::customer), {keyOf(tag, part)}}};
    return {{"SalesBySalesPersProfDetail", {{"SalesPerson", part}}}, {}};
}

// "key|first day|last day": what an item's consumption in a period is made of.
bool isConsumption(const Parts& parts) {
    return parts.size() == 3 && Date::parseIso(parts[1]) && Date::parseIso(parts[2]);
}

struct ReportKind {
    std::string_view word;
    ReportTarget (*read)(const Parts& parts, const TillKeyOf& till);
};
constexpr ReportKind reportKinds[] = {{"Invoice", salesLines}, {"Payment", receipts}, {"Deposit", deposits}};

}  // namespace

DrillTarget readDrillTag(std::string_view tag, const TillKeyOf& till) {
    if (tag.starts_with("mailto:") || tag.find("://") != tag.npos) refuse(tag, "leads out of the company");
    const Parts parts = split(tag, '|');
    const std::string& word = parts.front();
    if (parts.size() == 1) return readBare(tag, word);
    if (isConsumption(parts) && std::ranges::all_of(word, [](char c) { return '0' <= c && c <= '9'; })) {
        const std::string item = std::to_string(keyOf(tag, word));
        return {{"ConsumedStatisticsByItem", {{"InItemId", item}}, false, parts[1], parts[2]}, {}};
    }
    for (const ReportKind& kind : reportKinds)
        if (word == kind.word) return {kind.read(parts, till), {}};
    if (word == "ReceiptPayment") return {{}, {std::string(Drill::payment), keysOf(tag, parts[1])}};
    if (word == Drill::receivablesAdjustment) return {{}, {word, {}}};
    if (std::find(std::begin(recordKinds), std::end(recordKinds), word) != std::end(recordKinds))
        return {{}, {word, {keyOf(tag, parts[1])}}};
    if (auto report = readSales(tag)) return {std::move(*report), {}};
    refuse(tag, "is of no kind that is known here");
}

}  // namespace quillo
