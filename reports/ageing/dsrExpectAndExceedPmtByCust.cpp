#include "reports/ageing/dsrExpectAndExceedPmtByCust.h"

#include <algorithm>
#include <cctype>

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

constexpr int creditNote = 3;  // an InvoiType
constexpr int transactions = 5860, customers = 7622;

// Values of TermMode.
constexpr int netDays = 1, instalmentsByDates = 2, instalmentsByDays = 3, dayOfMonth = 4;

bool isOfName(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

// Customers and terms, and the tables that a filter may bring along, have such columns too.
std::string ofCustomer(std::string order, std::string_view word) {
    for (std::size_t at = 0; at + word.size() <= order.size(); ++at) {
        const std::size_t behind = at + word.size();
        const bool begins = at == 0 || (!isOfName(order[at - 1]) && order[at - 1] != '.');
        const bool ends = behind == order.size() || !isOfName(order[behind]);
        if (!begins || !ends || !equalNames(std::string_view(order).substr(at, word.size()), word)) continue;
        order.replace(at, word.size(), "Cust." + std::string(word));
        at = behind;
    }
    return order;
}

// Whether an order keeps the rows of a customer together by itself.
bool beginsWithCustomer(std::string_view order) {
    const std::string first = orderColumns(order).front();
    constexpr std::string_view columns[] = {"Cust.Name", "Cust.CustId", "Cust.InCustId", "InvoiHdr.ExCustId"};
    return std::ranges::any_of(columns, [&](std::string_view column) { return equalNames(first, column); });
}

}  // namespace

dsrExpectAndExceedPmtByCust::dsrExpectAndExceedPmtByCust(HostContext& context)
    : SegmentReport("dsrExpectAndExceedPmtByCust", context,
                    {.dateOptions = DateDisplay::range,
                     .companyCurrency = true,
                     .foreign = Foreign::kept,
                     .tables = "InvoiHdr, Cust, WorldCurrency.Descr",
                     .ownOrder = true}),
      m_schedule(context.company().paymentSchedule()) {
    property("CustId", CustId);
    property("ReportType", [this](const Variant& type) { ReportType(wholeNumber(type)); });
    onFetchData(&dsrExpectAndExceedPmtByCust::ActiveReport_FetchData);
    onFormat("ghCustomer", &dsrExpectAndExceedPmtByCust::ghCustomer_Format);
    onFormat("Detail", &dsrExpectAndExceedPmtByCust::Detail_Format);
    onFormat("ReportFooter", &dsrExpectAndExceedPmtByCust::ReportFooter_Format);
}

// In the summary a customer's sums are its only line, and stand where its name stands in the detail.
void dsrExpectAndExceedPmtByCust::ReportType(int type) {
    if (type != ExpectedPayments::detail && type != ExpectedPayments::summary)
        throw InputError("ReportType is 1 for the detail, 2 for the summary");
    m_lngReportType = type;
    ghCustomer.Visible = Detail.Visible = lblInvoice.Visible = LineCustTotal.Visible = isDetail();
    fldSumCustName.Visible = !isDetail();
    if (isDetail()) return;
    for (Field* one : {&fldSumCustName, &fldSumCustExpected, &fldSumCustReceived, &fldSumCustOverdue}) {
        one->Top = fldCustName.Top;
        one->LinkField = "InvoiHdrExCustId";
        one->Style = "font-weight: normal";
    }
    gfCustomer.Height = fldCustName.Top + fldCustName.Height + 15;
}

void dsrExpectAndExceedPmtByCust::ActiveReport_ReportStart() {
    STEP(m_bCustomerCodes = Setting(Setting::customerCodes));
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(section("ghCurrency").Visible = section("gfCurrency").Visible = currencies().CieIsForeignCurrencyUsed());
    if (!askFilter()) return;
    std::vector<Variant> values;
    if (CustId != 0) values.emplace_back(CustId);
    STEP(rsEEPmtByCust.Recordset = execute(query(), values));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

std::string dsrExpectAndExceedPmtByCust::query() const {
    return " SELECT Cust.*, Term.*, InvoiHdr.InInvoiId as InvoiHdrInInvoiId, InvoiHdr.InvoiType as InvoiHdrInvoiType, "
           "InvoiHdr.InvoiId as InvoiHdrInvoiId, InvoiHdr.DueDate as InvoiHdrDueDate, "
           " InvoiHdr.InvoiDate as InvoiHdrInvoiDate, InvoiHdr.ExTermId as InvoiHdrExTermId, "
           " InvoiHdr.TotAmnt as InvoiHdrTotAmnt, InvoiHdr.ExCustId as InvoiHdrExCustId, "
           " InvoiHdr.ExchangeRate as InvoiHdrExchangeRate, InvoiHdr.ExCurrencyId as InvoiHdrExCurrencyId, "
           " WorldCurrency.CurrencyCode, WorldCurrency.Descr As WorldCurrencyDescr FROM (((InvoiHdr "
           " INNER JOIN Cust ON InvoiHdr.ExCustId = Cust.InCustId) "
           " INNER JOIN InvoiOutstandingAll_View ON InvoiHdr.InInvoiId = InvoiOutstandingAll_View.InInvoiId) "
           " LEFT JOIN WorldCurrency ON InvoiHdr.ExCurrencyId = WorldCurrency.InCurrencyId) "
           " LEFT JOIN Term ON InvoiHdr.ExTermId = Term.InTermId "
           " WHERE InvoiHdr.InvoiType <> " +
           std::to_string(creditNote) + (CustId != 0 ? " AND InvoiHdr.ExCustId = ?" : "") +
           segments("InvoiHdr.ExSegmentId") + whereClause(filterParts(), OwnWhere::yes) + order();
}

// A user's order stands behind what the groups need: the currency where several are in use, and the customer.
std::string dsrExpectAndExceedPmtByCust::order() const {
    FilterParts filter = filterParts();
    filter.order = ofCustomer(ofCustomer(filter.order, "CustId"), "Name");
    std::vector<std::string_view> leading;
    if (currencies().CieIsForeignCurrencyUsed()) leading.push_back("InvoiHdr.ExCurrencyId");
    if (!filter.order.empty() && !beginsWithCustomer(filter.order))
        leading.insert(leading.end(), {"Cust.Name", "InvoiHdr.InvoiDate"});
    return orderClauseBehindAll(filter, leading, " ORDER BY InvoiHdr.ExCurrencyId, Cust.Name, InvoiHdr.InvoiDate");
}

void dsrExpectAndExceedPmtByCust::ActiveReport_DataInitialize() {
    for (const char* name : {"AmountExpected", "AmountReceived", "AmountOverdue", "CustName"}) Fields.Add(name);
}

// Rows that are not wanted are passed over here, so that neither a group nor a sum knows of them.
void dsrExpectAndExceedPmtByCust::ActiveReport_FetchData(bool& eof) {
    while (!eof && !readRow()) {
        rsEEPmtByCust.Recordset->moveNext();
        eof = rsEEPmtByCust.atEnd();
    }
}

bool dsrExpectAndExceedPmtByCust::readRow() {
    const Amounts row = amountsOfRow();
    m_curOverdue = row.overdue;
    Fields.Item("AmountExpected").Value = row.expected;
    Fields.Item("AmountReceived").Value = row.received;
    Fields.Item("AmountOverdue").Value = row.overdue;
    STEP_OF(ActiveReport_FetchData, Fields.Item("CustName").Value = customerOfRow());
    return !row.isZero() || (m_bShowZeroTransactions && isDetail());
}

dsrExpectAndExceedPmtByCust::Amounts dsrExpectAndExceedPmtByCust::amountsOfRow() {
    Amounts row;
    double rate = 0;
    STEP_OF(ActiveReport_FetchData, rate = rateOfRow());
    // To the cent, as the ledger counts documents: what prints adds up, along the row and down the column.
    STEP_OF(ActiveReport_FetchData, row.expected = roundProduct(expectedOfRow(), rate, 2));
    STEP_OF(
        ActiveReport_FetchData,
        row.received = roundProduct(m_schedule.AmountPaidBetween(documentOfRow(), m_dtDateFrom, m_dtDateTo), rate, 2));
    STEP_OF(ActiveReport_FetchData, row.overdue = std::max(row.expected - row.received, Money()));
    return row;
}

Money dsrExpectAndExceedPmtByCust::expectedOfRow() const {
    switch (rsEEPmtByCust.Collect("TermMode").int32OrZero()) {
        case instalmentsByDates:
            return expectedByInstalments(false);
        case instalmentsByDays:
            return expectedByInstalments(true);
        case netDays:
        case dayOfMonth:
            return expectedAtOnce();
        default:
            return {};
    }
}

// What was paid ahead before the period lowers what the period expects.
Money dsrExpectAndExceedPmtByCust::expectedByInstalments(bool byDays) const {
    const int term = rsEEPmtByCust.Collect("InvoiHdrExTermId").toInt32();
    const Money total = rsEEPmtByCust.Collect("InvoiHdrTotAmnt").moneyOrZero();
    const auto expectedBetween = [&](Date first, Date last) {
        if (!byDays) return m_schedule.ExpectedBetweenByTerm(term, total, first, last);
        const Date day = rsEEPmtByCust.Collect("InvoiHdrInvoiDate").toDate();
        return m_schedule.ExpectedBetweenByTermAndDate(term, day, total, first, last);
    };
    const Date before = dayBeforeStart();
    const Money ahead =
        m_schedule.AmountPaidBetween(documentOfRow(), noStartLimit, before) - expectedBetween(noStartLimit, before);
    const Money expected = expectedBetween(m_dtDateFrom, m_dtDateTo);
    return ahead > Money() ? std::max(expected - ahead, Money()) : expected;
}

Money dsrExpectAndExceedPmtByCust::expectedAtOnce() const {
    const Variant due = rsEEPmtByCust.Collect("InvoiHdrDueDate");
    if (due.isNull() || due.toDate() > m_dtDateTo) return {};
    return m_schedule.OutstandingAtDate(documentOfRow(), dayBeforeStart());
}

Date dsrExpectAndExceedPmtByCust::dayBeforeStart() const {
    return m_dtDateFrom > noStartLimit ? Date{m_dtDateFrom.days - 1} : m_dtDateFrom;
}

// Home currency counts 1, whether its documents say so or not; a document in another currency without a rate counts
// nothing.
double dsrExpectAndExceedPmtByCust::rateOfRow() const {
    if (m_bDisplayForeignCurrency) return 1;
    const int currency = rsEEPmtByCust.Collect("InvoiHdrExCurrencyId").int32OrZero();
    if (currency == 0 || currency == m_lngHomeCurrencyId) return 1;
    return rsEEPmtByCust.Collect("InvoiHdrExchangeRate").doubleOrZero();
}

// A line a fact in the detail, one line in the summary.
std::string dsrExpectAndExceedPmtByCust::customerOfRow() const {
    std::string text;
    const auto add = [&](const char* column, std::string_view mark) {
        const std::string value = rsEEPmtByCust.Collect(column).textOrEmpty();
        if (!text.empty() && !value.empty()) text += mark;
        text += value;
    };
    const std::string_view mark = isDetail() ? "\r\n" : " - ";
    if (m_bCustomerCodes) add("CustId", mark);
    add("Name", mark);
    if (!isDetail()) return text;
    add("Contact", mark);
    add("Tel1", mark);
    return text;
}

void dsrExpectAndExceedPmtByCust::ghCustomer_Format() {
    if (!isDetail()) ++m_lngRecordCount;
}

void dsrExpectAndExceedPmtByCust::Detail_Format() {
    if (isDetail()) ++m_lngRecordCount;
    fldOverdue.Style = m_curOverdue > Money() ? "font-weight: bold" : "font-weight: normal";
}

void dsrExpectAndExceedPmtByCust::ReportFooter_Format() {
    // A sum over several currencies means nothing.
    for (const char* name : {"Field1", "Field2", "Field3"}) field(name).Visible = !m_bDisplayForeignCurrency;
    for (const char* name : {"LineGrandTotal1", "LineGrandTotal2", "LineGrandTotal3"})
        line(name).Visible = !m_bDisplayForeignCurrency;
    label("lblTotal").Visible = !m_bDisplayForeignCurrency;
    STEP(label("lblEnd").Caption =
             std::to_string(m_lngRecordCount) + " " + GetText(isDetail() ? transactions : customers));
}

void dsrExpectAndExceedPmtByCust::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(Option::showZeroTransaction, m_bShowZeroTransactions);
    STEP(form.PrepareInvConfigDialog(application(), Option::showZeroTransaction, 0));
    STEP(dialogs.ShowModal(form));
    m_bShowZeroTransactions = form.Properties(Option::showZeroTransaction);
}

}  // namespace quillo
