#include "host/drill/record_card.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/language/host_texts.h"

namespace quillo {
namespace {

// Queries name each column by the text that is its caption, and by how its values print: "1912 date".
struct LinesOf {
    int title;
    const char* sql;
};
struct CardKind {
    std::string_view kind;
    int title;        // what the record is; 0: the query tells it in its first column
    const char* sql;  // its facts; the parameter is its key
    std::vector<LinesOf> tables{};
};

#define DOCUMENT_COLUMNS                                                                                          \
    "InvoiHdr.InvoiId AS \"2781\", InvoiType.Description AS \"1372 word\", InvoiHdr.InvoiDate AS \"1912 date\", " \
    "InvoiHdr.TotAmnt AS \"2767 money\""

// A purchase on account, or an expense.
constexpr const char* purchase =
    "SELECT PurcHdr.PurcId AS \"2781\", PurcHdr.PurcDate AS \"1912 date\", Supp.SuppId AS \"1741\", Supp.Name AS "
    "\"3017\", PurcHdr.TotAmnt AS \"2767 money\" FROM PurcHdr LEFT JOIN Supp ON Supp.InSuppId = PurcHdr.ExSuppId "
    "WHERE PurcHdr.InPurcId = ?";

const std::vector<CardKind>& cardKinds() {
    static const std::vector<CardKind> kinds = {
        {"INV",
         0,
         "SELECT InvoiType.Description AS \"1372 word\", InvoiHdr.InvoiId AS \"2781\", InvoiHdr.InvoiDate AS \"1912 "
         "date\", InvoiHdr.InvoiTime AS \"20235\", InvoiHdr.DueDate AS \"20237 date\", Cust.CustId AS \"1741\", "
         "Cust.Name AS \"3017\", Term.Descr AS \"1911\", InvoiHdr.SalesPerson AS \"1895\", WorldCurrency.CurrencyCode "
         "AS \"2843\", InvoiHdr.ExchangeRate AS \"20238 number\", InvoiHdr.DetAmnt AS \"1722 money\", "
         "InvoiHdr.DiscTotAmnt AS "
         "\"2853 money\", InvoiHdr.ShipAmnt AS \"2759 money\", InvoiHdr.TaxAmnt AS \"1896 money\", InvoiHdr.TotAmnt AS "
         "\"2767 money\", InvoiHdr.RecAmnt AS \"20239 money\", PmtMeth.PmtMeth AS \"2796\", InvoiHdr.RecCheqNo AS "
         "\"20240\", InvoiHdr.ExUsrKey AS \"20244\", InvoiHdr.TrxSerNo AS \"20245\" FROM InvoiHdr LEFT JOIN InvoiType "
         "ON InvoiType.ID = InvoiHdr.InvoiType LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId LEFT JOIN Term ON "
         "Term.InTermId = InvoiHdr.ExTermId LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = "
         "InvoiHdr.ExCurrencyId LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiHdr.ExPmtMethId WHERE "
         "InvoiHdr.InInvoiId = ?",
         {{20281,
           "SELECT Item.ItemId AS \"1780\", InvoiDet.Descr AS \"1599\", InvoiDet.Qty AS \"4022 number\", "
           "InvoiDet.UnitPrice AS \"2809 money\", InvoiDet.DiscPercent AS \"2853 number\", InvoiDet.BaseRowTotal AS "
           "\"2710 money\" FROM InvoiDet LEFT JOIN Item ON Item.InItemId = InvoiDet.ExItemId WHERE InvoiDet.ExInvoiId "
           "= ? ORDER BY InvoiDet.InInvoiDetId"},
          {20282,
           "SELECT PmtHdr.PmtDate AS \"1912 date\", PmtHdr.ChqNo AS \"20240\", PmtMeth.PmtMeth AS \"2796\", "
           "PmtDet.PmtDisc AS \"2853 money\", PmtDet.PmtAmnt AS \"1914 money\" FROM PmtDet INNER JOIN PmtHdr ON "
           "PmtHdr.InPmtId = PmtDet.ExPmtId LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId WHERE "
           "PmtDet.ExInvoiId = ?1 UNION ALL SELECT InvoiHdr.InvoiDate, InvoiRecDet.RecCheqNo, PmtMeth.PmtMeth, NULL, "
           "InvoiRecDet.RecAmnt FROM InvoiRecDet INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId "
           "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId WHERE InvoiRecDet.ExInvoiId = ?1 ORDER "
           "BY 1"}}},
        {"PMT",
         2788,
         "SELECT PmtHdr.PmtDate AS \"1912 date\", PmtHdr.ChqNo AS \"20240\", Cust.CustId AS \"1741\", Cust.Name AS "
         "\"3017\", PmtMeth.PmtMeth AS \"2796\", WorldCurrency.CurrencyCode AS \"2843\", PmtHdr.ExchangeRate AS "
         "\"20238 number\", PmtHdr.PmtTotAmnt AS \"1914 money\", PmtHdr.DiscTotAmnt AS \"2853 money\" FROM PmtHdr LEFT "
         "JOIN "
         "Cust ON Cust.InCustId = PmtHdr.ExCustId LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId LEFT "
         "JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId WHERE PmtHdr.InPmtId = ?",
         {{20283,
           "SELECT " DOCUMENT_COLUMNS
           ", PmtDet.PmtDisc AS \"2853 money\", PmtDet.PmtAmnt AS \"1914 money\" FROM PmtDet INNER JOIN InvoiHdr ON "
           "InvoiHdr.InInvoiId = PmtDet.ExInvoiId LEFT JOIN InvoiType ON InvoiType.ID = InvoiHdr.InvoiType WHERE "
           "PmtDet.ExPmtId = ? ORDER BY InvoiHdr.InvoiDate"}}},
        {"CUS",
         1573,
         "SELECT Cust.CustId AS \"1741\", Cust.Name AS \"3017\", Cust.Contact AS \"1575\", Cust.Tel1 AS \"1898\", "
         "Cust.Email AS \"1900\", Cust.Web AS \"1901\", Cust.SalesPerson AS \"1895\", Term.Descr AS \"1911\", "
         "WorldCurrency.CurrencyCode AS \"2843\", Cust.CreditLim AS \"1742 money\", Cust.CustInactive AS \"20233 "
         "bool\" FROM Cust LEFT JOIN Term ON Term.InTermId = Cust.ExTermId LEFT JOIN WorldCurrency ON "
         "WorldCurrency.InCurrencyId = Cust.ExCurrencyId WHERE Cust.InCustId = ?",
         {{20284,
           "SELECT " DOCUMENT_COLUMNS
           " FROM InvoiHdr LEFT JOIN InvoiType ON InvoiType.ID = InvoiHdr.InvoiType WHERE InvoiHdr.ExCustId = ? ORDER "
           "BY InvoiHdr.InvoiDate DESC, InvoiHdr.InInvoiId DESC LIMIT 20"}}},
        {"SUP",
         20285,
         "SELECT SuppId AS \"1741\", Name AS \"3017\", Contact AS \"1575\", Tel1 AS \"1898\", SuppInactive AS \"20233 "
         "bool\" FROM Supp WHERE InSuppId = ?",
         {{20284,
           "SELECT PurcId AS \"2781\", PurcDate AS \"1912 date\", TotAmnt AS \"2767 money\" FROM PurcHdr WHERE "
           "ExSuppId = ? ORDER BY PurcDate DESC, InPurcId DESC LIMIT 20"}}},
        {"EMP", 20286,
         "SELECT EmplId AS \"1741\", FirstName AS \"20287\", LastName AS \"20288\", EmplInactive AS \"20233 bool\" "
         "FROM "
         "Empl WHERE InEmplId = ?"},
        {"PRJ", 2098,
         "SELECT ProjId AS \"1741\", Descr AS \"1789\", BegDate AS \"2633 date\", EndDate AS \"2635 date\", EstSales "
         "AS "
         "\"5438 money\", EstPurch AS \"5439 money\", EstHours AS \"5440 number\", Inactive AS \"20233 bool\" FROM "
         "ProjInfo WHERE InProjId = ?"},
        {"ITM",
         1780,
         "SELECT Item.ItemId AS \"1741\", Item.Descr1 AS \"1789\", Category.Descr AS \"20289\", Item.SalePrice AS "
         "\"2809 money\", Item.ItemInactive AS \"20233 bool\" FROM Item LEFT JOIN Category ON Category.InCategoryId = "
         "Item.ExCategoryId WHERE Item.InItemId = ?",
         {{20290,
           "SELECT Warehouse.WarehouseId AS \"1741\", Warehouse.Name AS \"3017\", SUM(InvenDet.Qty) AS \"4022 number\" "
           "FROM InvenDet LEFT JOIN Warehouse ON Warehouse.InWarehouseId = InvenDet.ExWarehouseId WHERE "
           "InvenDet.ExItemId = ? GROUP BY InvenDet.ExWarehouseId ORDER BY 1"}}},
        {"WI",
         4606,
         "SELECT WarehouseId AS \"1741\", Name AS \"3017\", WarehouseInactive AS \"20233 bool\" FROM Warehouse WHERE "
         "InWarehouseId = ?",
         {{20290,
           "SELECT Item.ItemId AS \"1780\", Item.Descr1 AS \"1789\", SUM(InvenDet.Qty) AS \"4022 number\" FROM "
           "InvenDet "
           "INNER JOIN Item ON Item.InItemId = InvenDet.ExItemId WHERE InvenDet.ExWarehouseId = ? GROUP BY "
           "InvenDet.ExItemId HAVING SUM(InvenDet.Qty) <> 0 ORDER BY 1"}}},
        {"ASB",
         4416,
         "SELECT AssemblyHdr.AssemblyNo AS \"2781\", AssemblyHdr.AssemblyDate AS \"1912 date\", Item.ItemId AS "
         "\"1780\", Item.Descr1 AS \"1789\", AssemblyHdr.Qty AS \"4022 number\" FROM AssemblyHdr LEFT JOIN Item ON "
         "Item.InItemId = AssemblyHdr.ExItemId WHERE AssemblyHdr.Id = ?",
         {{20281,
           "SELECT Item.ItemId AS \"1780\", Item.Descr1 AS \"1789\", AssemblyDet.Qty AS \"4022 number\", "
           "AssemblyDet.UnitCost AS \"2809 money\" FROM AssemblyDet LEFT JOIN Item ON Item.InItemId = "
           "AssemblyDet.ExItemId WHERE AssemblyDet.ExId = ? ORDER BY AssemblyDet.InAssemblyDetId"}}},
        {"DEP",
         3298,
         "SELECT DepNo AS \"2781\", DepDate AS \"1912 date\", WorldCurrency.CurrencyCode AS \"2843\" FROM DepHdr LEFT "
         "JOIN WorldCurrency ON WorldCurrency.InCurrencyId = DepHdr.ExCurrencyId WHERE InDepID = ?",
         {{20281,
           "SELECT PmtMeth.PmtMeth AS \"2796\", DepDet.RecAmnt AS \"1914 money\" FROM DepDet LEFT JOIN PmtMeth ON "
           "PmtMeth.InPmtMethId = DepDet.ExPmtMethId WHERE DepDet.ExDepID = ? ORDER BY DepDet.InDepDetId"}}},
        {"PUR", 20006, purchase},
        {"EXP", 20007, purchase},
        {"PAY", 20008,
         "SELECT TrxPay.TrxPayNo AS \"2781\", TrxPay.PayDate AS \"1912 date\", Empl.EmplId AS \"1741\", Empl.FirstName "
         "AS \"20287\", Empl.LastName AS \"20288\", TrxPay.Hours AS \"20363 number\", TrxPay.GrossAmnt AS \"20364 "
         "money\", TrxPay.NetAmnt AS \"20365 money\", TrxPay.Canceled AS \"20366 bool\" FROM TrxPay LEFT JOIN Empl ON "
         "Empl.InEmplId = TrxPay.ExEmplId WHERE TrxPay.InTrxPayId = ?"},
        {"TAX",
         1896,
         "SELECT TaxTrxNo AS \"2781\", TaxTrxDate AS \"1912 date\", PmtMeth.PmtMeth AS \"2796\" FROM TaxTrxHdr LEFT "
         "JOIN PmtMeth ON PmtMeth.InPmtMethId = TaxTrxHdr.ExPmtMethId WHERE InTaxTrxID = ?",
         {{20281,
           "SELECT GLAcct.GLAcctId AS \"2052\", GLAcct.Descr AS \"1789\", TaxTrxDet.Amnt AS \"1914 money\" FROM "
           "TaxTrxDet LEFT JOIN GLAcct ON GLAcct.InGLAcctId = TaxTrxDet.ExAcctId WHERE TaxTrxDet.ExTaxTrxID = ? ORDER "
           "BY TaxTrxDet.InTaxTrxDetID"}}},
    };
    return kinds;
}

#undef DOCUMENT_COLUMNS

// The entries of the receivables accounts that belong to no customer: one card, without a key.
constexpr const char* adjustments =
    "SELECT GLDet.DetDate AS \"1912 date\", GLDet.DetRef AS \"1353\", GLDet.DetDesc AS \"1789\", GLAcct.GLAcctId AS "
    "\"2052\", GLDet.DetAmnt AS \"1914 money\" FROM GLDet LEFT JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId WHERE "
    "GLDet.ARAPAdjustmentEntry <> 0 ORDER BY GLDet.DetDate, GLDet.InGLDetId";

// Reads one query's rows as texts.
class CardQuery {
public:
    CardQuery(const sqlite::Database& database, const char* sql, HostContext const& context)
        : rows_(database, sql), context_(context) {
        for (int i = 0; i < sqlite3_column_count(rows_.get()); ++i) columns_.push_back(columnOf(i));
    }

    void bind(int key) { rows_.bind(1, key); }
    bool step() { return rows_.step(); }
    std::size_t size() const { return columns_.size(); }
    RecordCard::Column column(std::size_t i) const {
        const std::string& prints = columns_[i].prints;
        return {context_.GetText(columns_[i].text), prints == "money" || prints == "number"};
    }

    std::string text(std::size_t i) const {
        const auto at = static_cast<int>(i);
        if (rows_.isNull(at)) return {};
        const std::string& prints = columns_[i].prints;
        const LocaleFormat& locale = context_.locale();
        if (prints == "money") return locale.number(Money::fromDouble(rows_.real(at)), 2);
        if (prints == "number") return locale.plainNumber(Variant(rows_.real(at)));
        if (prints == "bool") return rows_.integer(at) != 0 ? context_.GetText(HostText::yes) : "";
        const std::string text(rows_.text(at));
        if (prints != "date") return text;
        const auto day = Date::parseIso(text);
        return day ? locale.shortDate(*day) : text;
    }

private:
    struct Column {
        int text;
        std::string prints;
    };
    Column columnOf(int i) const {
        const std::string name = sqlite3_column_name(rows_.get(), i);
        const auto blank = std::min(name.find(' '), name.size());
        return {std::stoi(name.substr(0, blank)), std::string(trimmed(std::string_view(name).substr(blank)))};
    }

    sqlite::Statement rows_;
    const HostContext& context_;
    std::vector<Column> columns_;
};

RecordCard::Table tableOf(int title, CardQuery& query, const HostContext& context) {
    RecordCard::Table table{context.GetText(title)};
    for (std::size_t i = 0; i < query.size(); ++i) table.columns.push_back(query.column(i));
    while (query.step()) {
        auto& row = table.rows.emplace_back();
        for (std::size_t i = 0; i < query.size(); ++i) row.push_back(query.text(i));
    }
    return table;
}

RecordCard adjustmentCard(const CompanyFile& company, const HostContext& context) {
    constexpr int title = 20250;
    CardQuery query(company.handle(), adjustments, context);
    return {context.GetText(title), {}, {tableOf(title, query, context)}};
}

RecordCard cardOf(const CardKind& kind, int key, const CompanyFile& company, const HostContext& context) {
    CardQuery facts(company.handle(), kind.sql, context);
    facts.bind(key);
    if (!facts.step())
        throw InputError("The company has no record of the kind " + std::string(kind.kind) + " with the key " +
                         std::to_string(key));
    RecordCard card;
    card.title = kind.title == 0 ? facts.text(0) : context.GetText(kind.title);
    for (std::size_t i = kind.title == 0 ? 1 : 0; i < facts.size(); ++i)
        if (std::string value = facts.text(i); !value.empty())
            card.facts.push_back({facts.column(i).caption, std::move(value)});
    for (const LinesOf& lines : kind.tables) {
        CardQuery query(company.handle(), lines.sql, context);
        query.bind(key);
        if (auto table = tableOf(lines.title, query, context); !table.rows.empty())
            card.tables.push_back(std::move(table));
    }
    return card;
}

}  // namespace

std::vector<RecordCard> readRecordCards(const RecordTarget& target, const CompanyFile& company,
                                        const HostContext& context) {
    if (target.keys.empty()) return {adjustmentCard(company, context)};
    // Interest is charged by a document of its own.
    const std::string_view wanted = target.kind == "ADM" ? "INV" : std::string_view(target.kind);
    const auto& kinds = cardKinds();
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const CardKind& one) { return one.kind == wanted; });
    if (kind == kinds.end()) throw InputError("There are no record cards of the kind " + target.kind);
    std::vector<RecordCard> cards;
    for (const int key : target.keys) cards.push_back(cardOf(*kind, key, company, context));
    return cards;
}

}  // namespace quillo
