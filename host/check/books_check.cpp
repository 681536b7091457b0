#include "host/check/books_check.h"

#include "host/database/sqlite_functions.h"

namespace quillo {
namespace {

using Text = std::string;

// SQL: an amount as whole cents.
Text cents(const Text& amount) {
    return "quillo_cents(" + amount + ")";
}

// SQL: an amount in home currency as whole cents, half a cent away from zero. A missing rate is 1.
Text homeOf(const Text& wholeCents, const Text& rate) {
    return "quillo_home_cents(" + wholeCents + ", " + rate + ")";
}
Text home(const Text& amount, const Text& rate) {
    return homeOf(cents(amount), rate);
}

// SQL: a quantity as whole hundredths, counted like cents.
Text hundredths(const Text& quantity) {
    return cents(quantity);
}

Text sum(const Text& expression, const Text& from) {
    return "SELECT SUM(" + expression + ") FROM " + from;
}

// What is open on each document of the receivables, in cents of its own currency, and the largest payment of money
// that it took without a discount.
const Text openDocuments =
    "(SELECT InvoiHdr.InInvoiId, InvoiHdr.ExCurrencyId, InvoiHdr.ExchangeRate, " + cents("InvoiHdr.TotAmnt") +
    " AS Total, " + cents("InvoiHdr.TotAmnt") + " - " + cents("InvoiHdr.RecAmnt") +
    " - COALESCE(Settled.Amount, 0) AS Open, COALESCE(Settled.Largest, 0) AS Largest"
    " FROM InvoiHdr LEFT JOIN (SELECT PmtDet.ExInvoiId, SUM(" +
    cents("PmtDet.PmtAmnt") + " + " + cents("PmtDet.PmtDisc") +
    ") AS Amount, MAX(CASE WHEN COALESCE(PmtHdr.PaymentCreditApplication, 0) = 0 AND COALESCE(PmtDet.PmtDisc, 0) = 0 "
    "THEN " +
    cents("PmtDet.PmtAmnt") +
    " END) AS Largest"
    " FROM PmtDet LEFT JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId GROUP BY PmtDet.ExInvoiId) AS Settled"
    " ON Settled.ExInvoiId = InvoiHdr.InInvoiId"
    " WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4))";

// What is left of each payment on account, negative, in cents of its currency. A later application of it names it.
const Text moneyOnAccount = "(SELECT Source.InPmtId, Source.ExCurrencyId, Source.ExchangeRate, -SUM(" +
                            cents("PmtDet.PmtAmnt") +
                            ") AS Open FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId"
                            " INNER JOIN PmtHdr AS Source"
                            " ON Source.InPmtId = COALESCE(NULLIF(PmtHdr.PaymentCreditApplication, 0), PmtHdr.InPmtId)"
                            " WHERE PmtDet.ExInvoiId IS NULL GROUP BY Source.InPmtId)";

const Text openBalances = "(SELECT ExCurrencyId, ExchangeRate, Open FROM " + openDocuments +
                          " UNION ALL SELECT ExCurrencyId, ExchangeRate, Open FROM " + moneyOnAccount + ")";

class Checker {
public:
    explicit Checker(const sqlite::Database& database) : database_(database) {
        sqlite::registerFunctions(database.get(), database.watch());
    }

    void equal(const Text& name, const Text& leftSql, const Text& rightSql) {
        add(name, [&](BooksLine& line) {
            line.left = amount(leftSql);
            line.right = amount(rightSql);
        });
    }
    // Both numbers by one pass: the statement gives two columns.
    void equalPair(const Text& name, const Text& sql) {
        add(name, [&](BooksLine& line) {
            sqlite::Statement statement(database_, sql);
            statement.step();
            line.left = money(statement.integer(0));
            line.right = money(statement.integer(1));
        });
    }
    const sqlite::Database& database() const { return database_; }
    std::vector<BooksLine> take() { return std::move(lines_); }

private:
    // A sum that cannot be made is told in its line, and the other sums are still proved.
    template <class Sums>
    void add(const Text& name, Sums sums) {
        BooksLine line{name, {}, {}, {}};
        try {
            sums(line);
        } catch (const std::exception& failure) {
            line.failure = failure.what();
        }
        lines_.push_back(std::move(line));
    }
    static Money money(std::int64_t wholeCents) { return Money::fromRaw(wholeCents) * Money::fromInteger(100); }
    Money amount(const Text& sql) {
        sqlite::Statement statement(database_, sql);
        return money(statement.step() ? statement.integer(0) : 0);
    }
    const sqlite::Database& database_;
    std::vector<BooksLine> lines_;
};

void checkLedger(Checker& checker) {
    checker.equalPair("Transactions; those in balance", "SELECT COUNT(*) * 100, SUM(Net = 0) * 100 FROM (SELECT SUM(" +
                                                            cents("DetAmnt") + ") AS Net FROM GLDet GROUP BY SeqNo)");
    checker.equalPair("Trial balance: debits; credits", "SELECT SUM(MAX(Net, 0)), SUM(MAX(-Net, 0)) FROM (SELECT SUM(" +
                                                            cents("DetAmnt") +
                                                            ") AS Net FROM GLDet GROUP BY ExAcctId)");
}

void checkReceivables(Checker& checker) {
    const Text homeCurrency = "(SELECT CAST(Value AS INTEGER) FROM CompanyFact WHERE Name = 'HomeCurrencyId')";
    sqlite::Statement currencies(
        checker.database(),
        "SELECT DISTINCT AccountGroup.ExCurrencyId, WorldCurrency.CurrencyCode, AccountGroup.ExCurrencyId = " +
            homeCurrency +
            " FROM AccountGroup LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = AccountGroup.ExCurrencyId"
            " WHERE AccountGroup.Code = 'CustGLAR' ORDER BY 1");
    while (currencies.step()) {
        const Text key = std::to_string(currencies.integer(0));
        const Text code(currencies.text(1));
        const Text lines =
            "GLDet WHERE ExAcctId IN (SELECT ExGLAcctId FROM AccountGroup WHERE Code = 'CustGLAR' AND ExCurrencyId = " +
            key + ")";
        const Text adjustments = lines + " AND ARAPAdjustmentEntry <> 0";
        const Text balances = openBalances + " WHERE COALESCE(ExCurrencyId, " + homeCurrency + ") = " + key;
        const Text corrections =
            "CustHomeAdjustment INNER JOIN Cust ON Cust.InCustId = CustHomeAdjustment.ExCustId WHERE "
            "COALESCE(Cust.ExCurrencyId, " +
            homeCurrency + ") = " + key;
        checker.equal("Receivables " + code + ": accounts; open documents and adjustments",
                      sum(cents("DetAmnt"), lines),
                      "SELECT COALESCE((" + sum(homeOf("Open", "ExchangeRate"), balances) + "), 0) + COALESCE((" +
                          sum(cents("DetAmnt"), adjustments) + "), 0) + COALESCE((" +
                          sum(cents("AdjustAmnt"), corrections) + "), 0)");
        if (currencies.integer(2) != 0) continue;
        checker.equal("Receivables " + code + " in that currency", sum(cents("ForeignAmnt"), lines),
                      "SELECT COALESCE((" + sum("Open", balances) + "), 0) + COALESCE((" +
                          sum(cents("ForeignAmnt"), adjustments) + "), 0)");
    }
    checker.equalPair("Documents; those settled within their total, or overpaid by one payment",
                      "SELECT COUNT(*) * 100, SUM(Open * Total >= 0 OR (Total > 0 AND -Open <= Largest)) * 100 FROM " +
                          openDocuments);
    checker.equalPair("Payments on account; those not used beyond their amount",
                      "SELECT COUNT(*) * 100, COALESCE(SUM(Open <= 0), 0) * 100 FROM " + moneyOnAccount);
}

void checkCash(Checker& checker) {
    const auto cashBy = [](const Text& source) {
        return sum(cents("GLDet.DetAmnt"),
                   "GLDet INNER JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId WHERE GLAcct.ChqAcct <> 0 AND "
                   "GLDet.Source = '" +
                       source + "'");
    };
    const Text counted = "(SELECT ExInvoiId, SUM(" + home("RecAmnt", "ExchangeRate") +
                         ") AS Amount FROM InvoiRecDet GROUP BY ExInvoiId)";
    checker.equal("Cash by documents: accounts; receipts", cashBy("INV"),
                  sum("COALESCE(Counted.Amount, " + home("InvoiHdr.RecAmnt", "InvoiHdr.ExchangeRate") + ")",
                      "InvoiHdr LEFT JOIN " + counted + " AS Counted ON Counted.ExInvoiId = InvoiHdr.InInvoiId"));
    checker.equal("Cash by payments: accounts; payments", cashBy("PMT"),
                  sum(home("PmtTotAmnt", "ExchangeRate"), "PmtHdr"));
    checker.equal(
        "Cash by deposits: accounts; receipts without document", cashBy("DEP"),
        sum(home("DepDet.RecAmnt", "DepHdr.ExchangeRate"),
            "DepDet INNER JOIN DepHdr ON DepHdr.InDepID = DepDet.ExDepID WHERE DepDet.RecExSrcKeyVal IS NULL"));
    checker.equal("Cash by sales taxes: accounts; returns", cashBy("TAX"), sum(cents("Amnt"), "TaxTrxDet"));
    checker.equal("Registers: received by header; by method",
                  sum(home("InvoiHdr.RecAmnt", "InvoiHdr.ExchangeRate"),
                      "InvoiHdr WHERE InInvoiId IN (SELECT ExInvoiId FROM InvoiRecDet)"),
                  sum(home("RecAmnt", "ExchangeRate"), "InvoiRecDet"));
}

void checkHeaders(Checker& checker) {
    checker.equalPair("Documents: totals; net, freight and taxes",
                      "SELECT SUM(" + cents("TotAmnt") + "), SUM(" + cents("DetAmnt") + " + " + cents("ShipAmnt") +
                          " + " + cents("TaxAmnt") + ") FROM InvoiHdr WHERE TotAmnt IS NOT NULL");
    checker.equal("Documents: net amounts; lines", sum(cents("DetAmnt"), "InvoiHdr"),
                  sum("CASE WHEN InvoiHdr.InvoiType = 3 THEN -1 ELSE 1 END * " + cents("InvoiDet.BaseRowTotal"),
                      "InvoiDet INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = InvoiDet.ExInvoiId"));
    checker.equal("Payments: amounts; lines", sum(cents("PmtTotAmnt"), "PmtHdr"), sum(cents("PmtAmnt"), "PmtDet"));
    checker.equal("Payments: discounts; lines", sum(cents("DiscTotAmnt"), "PmtHdr"), sum(cents("PmtDisc"), "PmtDet"));
}

void checkStock(Checker& checker) {
    checker.equal("Stock: counts after the last movement; movements",
                  sum(hundredths("RunningQty"),
                      "InvenDet WHERE InTrxId IN (SELECT MAX(InTrxId) FROM InvenDet GROUP BY ExItemId, ExWarehouseId)"),
                  sum(hundredths("Qty"), "InvenDet"));
    checker.equal("Stock sold: movements; document lines",
                  "SELECT -SUM(" + hundredths("Qty") + ") FROM InvenDet WHERE Source = 'INV'",
                  sum(hundredths("ItemConsumedUnits_View.Qty"),
                      "ItemConsumedUnits_View INNER JOIN Item ON Item.InItemId = ItemConsumedUnits_View.InItemId"
                      " WHERE ItemConsumedUnits_View.TrxType = 7 AND (Item.IsKit = 0 OR Item.IsKit IS NULL)"));
    checker.equal("Assemblies: components used; lines",
                  "SELECT -SUM(" + hundredths("Qty") + ") FROM InvenDet WHERE Source = 'ASB' AND Qty < 0",
                  sum(hundredths("Qty"), "AssemblyDet"));
    checker.equal("Assemblies: products made; headers",
                  sum(hundredths("Qty"), "InvenDet WHERE Source = 'ASB' AND Qty > 0"),
                  sum(hundredths("Qty"), "AssemblyHdr"));
    const Text accounts = "AccountGroup WHERE Code = 'StockGL'";
    if (sqlite::Statement(checker.database(), "SELECT 1 FROM " + accounts).step())
        checker.equal("Stock value: accounts; movements",
                      sum(cents("DetAmnt"), "GLDet WHERE ExAcctId IN (SELECT ExGLAcctId FROM " + accounts + ")"),
                      sum(cents("CostAmnt"), "InvenDet"));
}

}  // namespace

std::vector<BooksLine> checkBooks(const sqlite::Database& database) {
    Checker checker(database);
    checkLedger(checker);
    checkReceivables(checker);
    checkCash(checker);
    checkHeaders(checker);
    checkStock(checker);
    return checker.take();
}

}  // namespace quillo
