#pragma once

#include "host/database/memory_recordset.h"
#include "host/session/host_session.h"

namespace quillo::test {

// A session whose customer service gives the rows of a test, and keeps what it was asked for.
class ListHost final : public HostContext, public Company, public CustomerService {
public:
    explicit ListHost(HostSession& session) : session_(session) {}

    std::vector<std::vector<Variant>> rows;  // in the order of columns
    static inline const std::vector<std::string> columns = {
        "ExCustId",     "CustId",       "Name",       "CustNameID",
        "ExCurrencyId", "CurrencyCode", "InInvoiId",  "InvoiType",
        "DocType",      "DocOrderDate", "DocOrderId", "Balance",
        "ExchangeRate", "InvoiDate",    "InvoiId",    "PaymentCreditApplication",
        "Contact",      "Tel1",         "Descr"};
    struct {
        bool includePaid = false;
        int customer = 0;
        Date day;
        std::string where, order;
    } asked;

    std::unique_ptr<HostRecordset> GetCustAgingList(bool includePaid, int customer, Date day, std::string_view where,
                                                    std::string_view order, std::string_view, std::string_view, bool,
                                                    int) override {
        asked = {includePaid, customer, day, std::string(where), std::string(order)};
        RowSet set(columns);
        for (std::vector<Variant> row : rows) {
            row.resize(columns.size());
            set.append(row);
        }
        return std::make_unique<MemoryHostRecordset>(std::move(set));
    }
    std::string AgingFilterFields(std::string_view without) override {
        return session_.company().customers().AgingFilterFields(without);
    }
    std::string CurrencyFilterFields() override { return session_.company().customers().CurrencyFilterFields(); }

    Company& company() override { return *this; }
    CustomerService& customers() override { return *this; }

    // The rest is the session's.
    std::string GetText(int id) const override { return session_.GetText(id); }
    std::string GetMessage(int number, std::string_view source, const std::vector<std::string>& words) const override {
        return session_.GetMessage(number, source, words);
    }
    const LocaleFormat& locale() const override { return session_.locale(); }
    const ReportUtils& utils() const override { return session_.utils(); }
    ReportLocalizer& localizer() override { return session_.localizer(); }
    FilterInfoFiller& filterInfoFiller() override { return session_.filterInfoFiller(); }
    Messages& messages() override { return session_.messages(); }
    int DatabaseKind() const override { return own().DatabaseKind(); }
    HostDatabase& Database() override { return own().Database(); }
    const Settings& settings() const override { return own().settings(); }
    std::string GetParameter(std::string_view name, std::string_view fallback,
                             std::string_view section) const override {
        return own().GetParameter(name, fallback, section);
    }
    int HomeCurrencyId() const override { return own().HomeCurrencyId(); }
    CustomerStatistics& customerStatistics() override { return own().customerStatistics(); }
    InvoiceService& invoices() override { return own().invoices(); }
    AddressBook& addressBook() override { return own().addressBook(); }
    Projects& projects() override { return own().projects(); }
    AccountGroups& accountGroups() override { return own().accountGroups(); }
    DictionaryService& dictionary() override { return own().dictionary(); }
    CustomFields& customFields() override { return own().customFields(); }
    DailyRates& dailyRates() override { return own().dailyRates(); }
    FiscalCalendar& fiscalCalendar() override { return own().fiscalCalendar(); }
    ItemCostService& itemCosts() override { return own().itemCosts(); }
    PaymentSchedule& paymentSchedule() override { return own().paymentSchedule(); }
    std::string AddressText(int optionA, int optionB, int optionC) override {
        return own().AddressText(optionA, optionB, optionC);
    }
    std::unique_ptr<CashierParameters> newCashierParameters() override { return own().newCashierParameters(); }
    std::unique_ptr<InventoryUpdateAgent> newInventoryUpdateAgent() override { return own().newInventoryUpdateAgent(); }

private:
    Company& own() const { return session_.company(); }
    HostSession& session_;
};

}  // namespace quillo::test
