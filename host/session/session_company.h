#pragma once

#include <map>
#include <optional>
#include <string>

#include "framework/services/services.h"
#include "host/company/company_file.h"
#include "host/services/address_book.h"
#include "host/services/cashier_parameters.h"
#include "host/services/company_lists.h"
#include "host/services/currencies.h"
#include "host/services/customer_statistics.h"
#include "host/services/customers.h"
#include "host/services/daily_rates.h"
#include "host/services/dictionary.h"
#include "host/services/fiscal_calendar.h"
#include "host/services/inventory_update.h"
#include "host/services/invoices.h"
#include "host/services/item_costs.h"
#include "host/services/payment_schedule.h"
#include "host/services/settings.h"

namespace quillo {

// The company of a session: its file, with what this run alone sets otherwise.
class SessionCompany final : public Company {
public:
    // file and locale must outlive it. language: the code of the user's language.
    SessionCompany(CompanyFile& file, std::string_view language, const LocaleFormat& locale, Date sessionDate,
                   std::optional<int> dialect, std::map<int, std::string> settings,
                   std::map<std::string, std::string> parameters);

    int DatabaseKind() const override { return databaseKind_; }
    HostDatabase& Database() override { return file_.database(); }
    const Settings& settings() const override { return settings_; }
    std::string GetParameter(std::string_view name, std::string_view defaultValue,
                             std::string_view section) const override;
    int HomeCurrencyId() const override { return currencies_.CieHomeCurrencyId(); }
    std::string AddressText(int, int, int) override { return addressBook_.companyAddress(); }
    CustomerStatistics& customerStatistics() override { return customerStatistics_; }
    CustomerService& customers() override { return customers_; }
    InvoiceService& invoices() override { return invoices_; }
    AddressBook& addressBook() override { return addressBook_; }
    Projects& projects() override { return projects_; }
    AccountGroups& accountGroups() override { return accountGroups_; }
    DictionaryService& dictionary() override { return dictionary_; }
    CustomFields& customFields() override { return customFields_; }
    DailyRates& dailyRates() override { return dailyRates_; }
    FiscalCalendar& fiscalCalendar() override { return fiscalCalendar_; }
    ItemCostService& itemCosts() override { return itemCosts_; }
    std::unique_ptr<CashierParameters> newCashierParameters() override {
        return std::make_unique<SqliteCashierParameters>(file_.handle(), currencies_);
    }
    PaymentSchedule& paymentSchedule() override { return paymentSchedule_; }
    std::unique_ptr<InventoryUpdateAgent> newInventoryUpdateAgent() override {
        return std::make_unique<SqliteInventoryUpdate>(file_, *this);
    }

    CompanyCurrencies& currencies() { return currencies_; }
    GeneralLedgerQueries& generalLedger() { return generalLedger_; }

private:
    CompanyFile& file_;
    int databaseKind_;
    CompanySettings settings_;
    std::map<std::string, std::string> parameters_;
    CompanyDictionary dictionary_;
    CompanyCurrencies currencies_;
    SqliteCustomerStatistics customerStatistics_;
    SqliteCustomerService customers_;
    SqliteInvoiceService invoices_;
    SqliteAddressBook addressBook_;
    SqliteProjects projects_;
    SqliteAccountGroups accountGroups_;
    SqliteCustomFields customFields_;
    SqliteLedgerQueries generalLedger_;
    SqliteDailyRates dailyRates_;
    SqliteFiscalCalendar fiscalCalendar_;
    SqliteItemCosts itemCosts_;
    SqlitePaymentSchedule paymentSchedule_;
};

}  // namespace quillo
