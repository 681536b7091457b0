#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "framework/report_mixins.h"
#include "reports/ageing/ageing.h"

namespace quillo {

// The columns of the list of receivables, looked up once.
struct AgeingRow {
    AgeingRow() = default;
    explicit AgeingRow(const std::shared_ptr<Recordset>& rows);

    Column ExCustId, ExCurrencyId, InInvoiId, InvoiDate, InvoiType, DocOrderDate, DocOrderId, Balance, ExchangeRate,
        PaymentCreditApplication;
};

// The fields of a line of amounts: a column for each age and the total.
class AgeFields {
public:
    AgeFields(std::array<Field*, ageColumns> columns, Field& total) : columns_(columns), total_(total) {}

    enum class Zero { printed, blank };
    void show(const LocaleFormat& locale, const AgeAmounts& amounts, Money total, Zero zero = Zero::printed);
    void setVisible(bool visible);
    void link(std::string_view tag);
    Field& column(std::size_t index) const { return *columns_[index]; }
    Field& total() const { return total_; }

private:
    std::array<Field*, ageColumns> columns_;
    Field& total_;
};

// What the reports of receivables by age have in common: what they ask of the list, what a row's balance, rate and
// column are, and the adjustments beside the customers.
class AgeingReport : public ComparableReport<SegmentReport>, public ExchangeRatesKeeper {
public:
    std::string filterTables() const override;

protected:
    AgeingReport(std::string name, HostContext& context, int titleId);

    // What a report asks of the list.
    struct ListWish {
        bool includePaid = false;
        int customer = 0;  // 0: all
        std::string_view rowFilter;
    };
    void ActiveReport_ReportStart(const ListWish& wish);
    using Report::ActiveReport_ReportStart;

    bool isForeignUsed() const { return currencies().CieIsForeignCurrencyUsed(); }
    std::string codeOf(int currency) const {
        return currencies().currencies().Item(std::to_string(currency)).CurrencyCode;
    }
    AgeFields amountFields(std::string_view line) const;

    // Of the row: a credit note's balance is that of the date, whatever its row says.
    Money rowBalance(int kind);
    Money rowRate() const;
    std::size_t rowColumn() const;
    Money InvoiceBalanceAtDate(int invoice, Date day);
    // The adjustments that belong to no customer, of the current currency or of all. Shows them with their caption and
    // link; 0 hides both.
    Money showAdjustments(Label& caption, Field& amount, bool byCurrency);

    static constexpr std::string_view comparableMode = "PurgeIncl";

    Section& ghCurrency = section("ghCurrency");
    Section& gfCurrency = section("gfCurrency");
    Section& gfCustId = section("gfCustId");
    Label& lblTotalCap = label("lblTotalCap");
    DataControl& rsInvoiJournal = data("rsInvoiJournal");
    std::array<Label*, ageColumns> periodCaptions = {&label("lblPer1Cap"), &label("lblPer2Cap"), &label("lblPer3Cap"),
                                                     &label("lblPer4Cap")};

    AgeingRow m_row;
    int m_HomeCurrencyId = 0;
    int m_CurrentCurrencyId = 0;
    int m_CustomerCount = 0;
    Money m_CustomerTotal, m_GrandTotal;
    AgeAmounts m_CustomerPeriods, m_GrandPeriods;

private:
    void PageHeader_Format();
    std::unique_ptr<HostRecordset> ageingList(const ListWish& wish) const;

    AgePeriods m_periods;
    InvoiceService* m_objInvoice = nullptr;  // of the host, asked for once
};

}  // namespace quillo
