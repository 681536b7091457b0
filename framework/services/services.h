#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/services/database.h"
#include "framework/values/locale_format.h"

// What the reports ask of their host, in small groups. A host makes one HostContext for a company and a
// session and gives it to clsReport; every report works with that one and no other. All calls come
// on the thread that runs the report. A service that cannot answer throws; the report's step shows it.
namespace quillo {

struct SubReport;
class ExchangeRates;
class IExchangeRates;
class Report;

// --- application -------------------------------------------------------------------------------

// One currency of the company.
struct CurrencyRecord {
    int id = 0;
    std::string CurrencyCode;   // ISO code: "CAD"
    std::string CurrencyDescr;  // in the user's language
};

class Currencies {
public:
    virtual ~Currencies() = default;
    virtual int Count() const = 0;
    // The key is the currency's id as text. Throws NameError when there is none.
    virtual const CurrencyRecord& Item(std::string_view id) const = 0;
    // The currency of an ISO code, null when the company has none.
    virtual const CurrencyRecord* findCode(std::string_view code) const = 0;
    // The rates of a re-evaluation in one line, for people: "1 USD = 1.35 CAD; 1 EUR = 1.48 CAD". Empty for none. The
    // rates come back as they were.
    virtual std::string GetCurrenciesLegend(std::shared_ptr<ExchangeRates>& rates) const = 0;
};

class CurrencyInfo {
public:
    virtual ~CurrencyInfo() = default;
    virtual bool CieIsForeignCurrencyUsed() const = 0;
    virtual int CieHomeCurrencyId() const = 0;
    virtual const Currencies& currencies() const = 0;
    // Fills a report's re-evaluation: the rates of the day that the report names, else of its end date, else of the
    // session's date; a rate that the report holds already stays. A report that does not re-evaluate holds none then.
    virtual void ConfigureExchangeRates(const Date& dateTo, IExchangeRates& report) = 0;
    // The amount in home currency, in cents: at the currency's own rate, or with rates at theirs. Throws NameError when
    // they lack the currency.
    virtual Money EvaluateValueWithExchangeRate(const double& rate, const int& currencyId, const Money& amount,
                                                const ExchangeRates* rates) const = 0;
};

// Stored queries of the general ledger.
class GeneralLedgerQueries {
public:
    virtual ~GeneralLedgerQueries() = default;
    // Balances of the accounts of a range of account numbers, as debit minus credit in home currency:
    // columns InGLAcctId, GLAcctId, Descr, Balance. from and to: posting dates, both included.
    virtual std::unique_ptr<HostRecordset> OpenGLAcctBalanceRange(std::string_view firstAccount,
                                                                  std::string_view lastAccount, Date from, Date to) = 0;
};

class Application {
public:
    virtual ~Application() = default;
    // A text of the host's language tables in the user's language. Throws NameError when there is none.
    virtual std::string GetText(int id) const = 0;
    virtual CurrencyInfo& currencyInfo() = 0;
    virtual std::string CieCountry() const = 0;
    virtual Date SessionDate() const = 0;
    // 0 when there is none.
    virtual int DefaultWarehouseID() const = 0;
    virtual GeneralLedgerQueries& generalLedger() = 0;
};

// --- company -----------------------------------------------------------------------------------

class CustomerStatistics {
public:
    virtual ~CustomerStatistics() = default;
    // Reads all customers at the first question and answers from memory.
    virtual void setCached(bool cached) = 0;
    // Date of the customer's last sale; noDate when there was none.
    virtual Date LastSaleDate(int customerId) = 0;
};

// The receivables of customers.
class CustomerService {
public:
    virtual ~CustomerService() = default;
    // What customers owe at the end of a day, gross: a row for each document up to it with its total (InvoiType 1, 3,
    // 4; a cash sale that was not received in full is a 1), and under it, with its DocOrderId, DocOrderDate,
    // ExchangeRate, ExCurrencyId and DocType, what settled it up to the day, negative: money and credits (99) and
    // discounts (100). Money on account is a 99 of its own, and under it what was used of it; CustHomeAdjustment is a
    // 101 at rate 1. A document whose rows come to 0 is left out with them unless includePaid. customerId 0: all
    // customers.
    //
    // Columns: ExCustId, CustId, Name, Contact, Tel1, CustNameID (name and key: one group a customer), ExCurrencyId,
    // CurrencyCode, Descr (of the document's currency, else the customer's, else home's), InInvoiId (of the document,
    // the payment, the adjustment; of money received on the spot the document's), InvoiId, InvoiDate, InvoiType,
    // DocType (the document's kind as its table has it, 99, 101), DocOrderDate, DocOrderId, Balance, ExchangeRate (1
    // where there is none), PaymentCreditApplication, ExSegmentId.
    //
    // where: a condition on these columns of CustAgingList and on Cust and WorldCurrency. order: what the rows stand
    // in. The arguments behind them are the host's.
    virtual std::unique_ptr<HostRecordset> GetCustAgingList(bool includePaid, int customerId, Date day,
                                                            std::string_view where, std::string_view order,
                                                            std::string_view argumentA, std::string_view argumentB,
                                                            bool flag, int option) = 0;
    // The tables and columns over which a user may filter that list, as the filter tool takes them, without those that
    // are named; and those of its currencies.
    virtual std::string AgingFilterFields(std::string_view without) = 0;
    virtual std::string CurrencyFilterFields() = 0;
};

class InvoiceService {
public:
    virtual ~InvoiceService() = default;
    // What was open on a document at the end of a day, in its own currency: one row with the column Balance, none for a
    // document that is not there, is later, or is no receivable.
    virtual std::unique_ptr<HostRecordset> BalanceAtDate(int invoiceId, Date day) = 0;
};

class AddressBook {
public:
    virtual ~AddressBook() = default;
    // The customer's address in printable lines, joined by line feeds.
    virtual std::string AddressOf(int customerId) = 0;
};

class Projects {
public:
    virtual ~Projects() = default;
    // Whether a project of that code exists.
    virtual bool Exists(std::string_view code) = 0;
};

class AccountGroups {
public:
    virtual ~AccountGroups() = default;
    // Ids of the ledger accounts of a group ("CustGLAR": receivables), all or those of one currency, in order.
    virtual std::vector<int> Accounts(std::string_view code) = 0;
    virtual std::vector<int> Accounts(std::string_view code, int currencyId) = 0;
};

// Words that the database keeps in one language (a document kind, a language's name).
class DictionaryService {
public:
    virtual ~DictionaryService() = default;
    // The word in the user's language; a word that is not known comes back as it is.
    virtual std::string Translate(std::string_view word) = 0;
};

// A custom field of a customer: its caption and what the user entered.
struct CustomFieldValue {
    std::string caption;
    std::string value;
};

class CustomFields {
public:
    virtual ~CustomFields() = default;
    // The fields of one record of a table ("Cust"), in their order; those without a value too.
    virtual std::vector<CustomFieldValue> Values(std::string_view table, int recordId) = 0;
};

// Exchange rates as home currency for one unit of a currency. A day without a rate takes the last one before it;
// the home currency counts 1 on every day.
class DailyRates {
public:
    virtual ~DailyRates() = default;
    // Throws NameError when the currency has no rate on the day or before it.
    virtual double Rate(int currencyId, Date day) = 0;
    // The rates of all currencies on one day; those without a rate on the day or before it are not among them.
    virtual std::shared_ptr<ExchangeRates> RatesAt(Date day) = 0;
};

// A period of a fiscal year; both days belong to it.
struct FiscalPeriod {
    Date StartDate;
    Date EndDate;
};

// A fiscal year: it may start on any day and have any number of periods of any length.
struct FiscalYear {
    int id = 0;
    std::string name;  // printable: "2024-2025"
    Date StartDate;
    Date EndDate;
    std::vector<FiscalPeriod> periods;  // in their order
};

// The years live as long as the calendar. All calls give null when there is no such year.
class FiscalCalendar {
public:
    virtual ~FiscalCalendar() = default;
    // The year that the day lies in.
    virtual const FiscalYear* FiscalYearAt(Date day) = 0;
    // The year before and the year after the one that the day lies in; for a day outside of all years the last that
    // ended before it, the first that starts after it.
    virtual const FiscalYear* FiscalYearBefore(Date day) = 0;
    virtual const FiscalYear* FiscalYearAfter(Date day) = 0;
};

// What one unit of an item costs, in home currency, and what of it went in a period.
class ItemCostService {
public:
    virtual ~ItemCostService() = default;
    // Reads the costs of all items at the first question and answers from memory. Setting it again forgets them.
    virtual void setCached(bool cached) = 0;
    // The cost at the end of a day: the running average or the last cost, as the company's parameter CostCalculMeth
    // says; of a kit the sum over its components. An item that nothing tells a cost of costs 0. The three arguments
    // behind the day are the host's. Throws NameError when there is no such item.
    virtual Money ItemCost(int itemId, Date day, int argumentA, int argumentB, bool flag) = 0;
    // What was consumed of an item, what it brought, and how much of it was sold, in a period with both of its days.
    // The clause is a condition on ItemConsumedUnits_View, ItemSoldAmounts_View and ItemSoldUnits_View, in that order;
    // empty: none. While costs are cached, the sums of all items of a period are read at its first question.
    virtual Money GetCurrentPeriodQtyConsumed(int itemId, Date start, Date end, const std::string& clause) = 0;
    virtual Money GetCurrentPeriodSaleAmnt(int itemId, Date start, Date end, const std::string& clause) = 0;
    virtual Money GetCurrentPeriodSaleQty(int itemId, Date start, Date end, const std::string& clause) = 0;
};

// Keeps the running costs and counts of the stock's movements. The stock is up to date while no movement lacks them.
class InventoryUpdateAgent {
public:
    virtual ~InventoryUpdateAgent() = default;
    // Reckons what movements lack and writes it into the company: what they have stays. False when the company cannot
    // be written now, because its file is protected or another program holds it; nothing has changed then. Writes
    // nothing when nothing is lacking. The arguments are the host's.
    virtual bool Update(int argumentA, bool argumentB) = 0;
    virtual bool IsUpToDate() = 0;
    // The last day up to which the running costs are right.
    virtual Date LastUpdateDate() = 0;
};

// The parameters of the tills (section 3 of the cashier's parameters).
class CashierParameters {
public:
    virtual ~CashierParameters() = default;
    // The payment method that is cash; 0: the drawer counts all methods.
    virtual int CashPmtMethId() const = 0;
    // What a drawer holds in the morning, in units of that currency; 0 when nothing is told.
    virtual Money OpeningAmount(int currencyId) const = 0;
};

// What the payment terms ask of a document, and what was paid on it. Amounts are in the document's own currency, days
// are whole, and both days of a range belong to it. How a term spreads a total over time, by its mode:
//
//   1, net days: all of it on one day, a number of days after the document;
//   4, day of the month: all of it on a day of the next month, or of the month after it for a document that is late in
//      its month;
//   2, instalments on fixed dates, and 3, instalments by days after the document: up to a day, the percents of those
//      instalments that have come due by then, rounded to cents once, halves away from zero. Once the last one has come
//      due it is the whole total, and never more than that. So instalments add up to the total to the cent, also where
//      their percents do not add up to 100; an instalment without a date, or without days, is none.
//
// A document of modes 1 and 4 carries its one day (InvoiHdr.DueDate), and what is due then is what is outstanding. The
// questions by term are for modes 2 and 3; a term without instalments of the kind asked for expects nothing, one
// without a mode neither.
class PaymentSchedule {
public:
    virtual ~PaymentSchedule() = default;
    // Payments, credits set against it and discounts granted in the range, and what was received on the spot where the
    // document's own day lies in it. Throws NameError when there is no such document, as OutstandingAtDate does.
    virtual Money AmountPaidBetween(int invoiceId, Date first, Date last) = 0;
    // What instalments on fixed dates ask for in the range.
    virtual Money ExpectedBetweenByTerm(int termId, Money total, Date first, Date last) = 0;
    // What instalments by days ask for in the range, of a document of that day.
    virtual Money ExpectedBetweenByTermAndDate(int termId, Date invoiceDate, Money total, Date first, Date last) = 0;
    // What is open at the end of a day; on a day before the document's own it is the whole total.
    virtual Money OutstandingAtDate(int invoiceId, Date day) = 0;
};

class Settings {
public:
    virtual ~Settings() = default;
    // A numbered company setting; convertible to Boolean.
    virtual Variant Item(int number) const = 0;
};

// The numbered settings that the reports read.
namespace Setting {
inline constexpr int customerCodes = 104, projectCodes = 111, taxGroupCodes = 113, termCodes = 114,
                     stockUpdateFirst = 134;
}

class Company {
public:
    virtual ~Company() = default;
    // 1: Jet; every other value: SQL Server.
    virtual int DatabaseKind() const = 0;
    virtual HostDatabase& Database() = 0;
    virtual const Settings& settings() const = 0;
    // A company parameter as text; the default when the company has none of that name.
    virtual std::string GetParameter(std::string_view name, std::string_view defaultValue,
                                     std::string_view section = "") const = 0;
    virtual int HomeCurrencyId() const = 0;
    // The company's own address as it prints on a letter: its name and the lines below, joined by line feeds. The
    // options are the host's.
    virtual std::string AddressText(int optionA, int optionB, int optionC) = 0;
    virtual CustomerStatistics& customerStatistics() = 0;
    virtual CustomerService& customers() = 0;
    virtual InvoiceService& invoices() = 0;
    virtual AddressBook& addressBook() = 0;
    virtual Projects& projects() = 0;
    virtual AccountGroups& accountGroups() = 0;
    virtual DictionaryService& dictionary() = 0;
    virtual CustomFields& customFields() = 0;
    virtual DailyRates& dailyRates() = 0;
    virtual FiscalCalendar& fiscalCalendar() = 0;
    virtual ItemCostService& itemCosts() = 0;
    // Loaded anew, for one report.
    virtual std::unique_ptr<CashierParameters> newCashierParameters() = 0;
    virtual PaymentSchedule& paymentSchedule() = 0;
    // Made anew, for one report.
    virtual std::unique_ptr<InventoryUpdateAgent> newInventoryUpdateAgent() = 0;
};

// --- print services ----------------------------------------------------------------------------

// What the filter tool tells of the active filter and sort, for the page header.
struct FilterInfo {
    std::string where;  // in words: "Code from A to M"; empty: no condition
    std::string order;  // in words: "Name, Code"; empty: the report's own order
};

// The host's dialog in which the user chooses a filter.
class FilterTool {
public:
    virtual ~FilterTool() = default;
    // Tables: comma-separated tables and columns over which the user may filter. Cancel comes back
    // true if the user refused; otherwise the report's filter string holds the choice. The other flags
    // are the host's.
    virtual void GetFilter(const std::string& Tables, bool FlagA, bool FlagB, bool& Cancel, bool FlagC, bool FlagD) = 0;
    virtual FilterInfo GetFilterInfo() = 0;
};

class FilterInfoFiller {
public:
    virtual ~FilterInfoFiller() = default;
    // Puts a report with the filter's text into the sub-report control and sizes it; without any text
    // the control stays empty and one line high. segments: the human-readable segment choice, empty for none.
    virtual void FillFilterInfo(SubReport& control, const FilterInfo& info, Application& application,
                                std::string_view segments) = 0;
};

class ReportLocalizer {
public:
    virtual ~ReportLocalizer() = default;
    // Sets the caption of each label whose Tag holds "Lng=<id>;" to the text of that id.
    virtual void Translate(Report& report) = 0;
};

class Messages {
public:
    virtual ~Messages() = default;
    // A modal box with the OK button alone; what it is on a system without one is the host's choice.
    virtual void Show(std::string_view text) = 0;
};

// Small conversions that reports share.
class ReportUtils {
public:
    virtual ~ReportUtils() = default;
    // One parameter of the fitting type for each value, in order, after those that the command has.
    virtual void SetCommandParameters(Command& command, const std::vector<Variant>& values) const = 0;
    // SQL text that reads NULL as the default, in the current dialect.
    virtual std::string NullExpression(std::string_view expression, std::string_view defaultValue, bool flag) const = 0;
    // SQL text that rounds the expression to cents, in the current dialect.
    virtual std::string RoundExpression(std::string_view expression, bool flag) const = 0;
    // The host's number text of a value: "1", "1.35"; empty for Null.
    virtual std::string NumberText(const ValueView& value) const = 0;
    // The host's date text; empty for Null.
    virtual std::string DateText(const ValueView& value) const = 0;
    // The caption of a ledger source code: "INV" is Invoice. A code that is not known comes back as it is.
    virtual std::string SourceText(std::string_view source) const = 0;
};

class DialogForm;

// Shows the option form of a report and gives it back; in a host without windows it sets what the
// user asked for beforehand.
class DialogService {
public:
    virtual ~DialogService() = default;
    virtual void ShowModal(DialogForm& form) = 0;
};

// --- all of it ---------------------------------------------------------------------------------

class HostContext {
public:
    virtual ~HostContext() = default;
    virtual Company& company() = 0;
    // The text service for callers that do not hold the application.
    virtual std::string GetText(int id) const = 0;
    // A message of a source ("Korva") in the user's language, its arguments in their places. Throws NameError when
    // there is no such source or number.
    virtual std::string GetMessage(int number, std::string_view source,
                                   const std::vector<std::string>& arguments) const = 0;
    virtual const LocaleFormat& locale() const = 0;
    virtual const ReportUtils& utils() const = 0;
    virtual ReportLocalizer& localizer() = 0;
    virtual FilterInfoFiller& filterInfoFiller() = 0;
    virtual Messages& messages() = 0;
};

}  // namespace quillo
