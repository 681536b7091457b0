#include <gtest/gtest.h>

#include "dialogs/frmAdvFilters.h"
#include "framework/report_contract.h"
#include "framework/report_factory.h"
#include "framework/report_mixins.h"
#include "framework/values/errors.h"
#include "reports/shared/MUtils.h"
#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

// What a host reads of each report: dates to ask for, title, use of currency, and the interfaces beside IReport:
// F filter, C configuration, S segments, R rates, X comparable.
struct Row {
    const char* member;
    int dates;
    const char* title;
    bool currency;
    const char* interfaces;
};

constexpr Row rows[] = {
    {"TermList", 0, "#6127", false, "F"},
    {"CustList", 0, "#6219", false, "F"},
    {"CustPhoneList", 0, "#6216", false, "F"},
    {"ProjectPriceList", 0, "#6312", false, "F"},
    {"OpenOrders", 1, "#6089", true, "FC"},
    {"DocumentsToApprove", 1, "#7568", true, "FC"},
    {"CustListShipAddr", 0, "#5991", false, "F"},
    {"CustCustomFieldList", 0, "#6217", false, "F"},
    {"SalesJournalDetail", 1, "#6325", true, "FS"},
    {"SalesJournalSummary", 1, "#6324", true, "FS"},
    {"CashReceiptsDetail", 1, "#6082", true, "FS"},
    {"CashReceiptsSummary", 1, "#6326", true, "FS"},
    {"ExpectedAndExceededPmtByCustDet", 1, "#6054", true, "FCS"},
    {"ExpectedAndExceededPmtByCustSum", 1, "#6189", true, "FCS"},
    {"CustTransHistoryRepNova", 1, "#6265", true, ""},
    {"DayEndBalanceByUsr", 1, "#6026", false, "FC"},
    {"DayEndBalanceByUsrInvDetail", 1, "#6025", false, ""},
    {"DayEndBalanceByUsrPmtDetail", 1, "#6025", false, ""},
    {"DayEndBalanceByUsrDepDetail", 1, "#6025", false, ""},
    {"DayEndBalanceByCash", 1, "#6025", false, "FC"},
    {"DayEndBalanceByCashInvDetail", 1, "#6025", false, ""},
    {"DayEndBalanceByCashPmtDetail", 1, "#6025", false, ""},
    {"DayEndBalanceByCashDepDetail", 1, "#6025", false, ""},
    {"CollectionLetter", 0, "", false, ""},
    {"SalesBySalesPersonDetail", 1, "#6086", true, "FC"},
    {"SalesBySalesPersonSummary", 1, "#6085", true, "FC"},
    {"SalesBySalesPersProfDetail", 1, "#6237", false, "FX"},
    {"SalesBySalesPersProfSummary", 1, "#6236", false, "FX"},
    {"SalesBySalesPersonGraph", 1, "#6112", false, "F"},
    {"CustAgingDetail", 2, "#6084", true, "FSRX"},
    {"CustAgingSummary", 2, "#6083", true, "FSRX"},
    {"CustAgingGraphic", 2, "#6146", false, ""},
    {"SalesJournalCompGraph", 2, "#6149", false, ""},
    {"SalesJournalCompGraphMonths", 2, "#9107", false, ""},
    {"JobCustByProject", 1, "#6125", false, "FSX"},
    {"JobCustByCust", 1, "#6313", false, "FSX"},
    {"JobCustBySupp", 1, "#6123", false, "FSX"},
    {"JobCustByEmpl", 1, "#6124", false, "FSX"},
    {"SalesStatistic", 1, "#6309", false, "FCS"},
    {"InvStatByItem", 1, "#6088", true, "FCS"},
    {"InvStatByCust", 1, "#6087", true, "FCS"},
    {"ConsumedStatisticsByItem", 1, "#9469", false, "FCS"},
    {"ConsumedStatisticsByPeriod", 1, "#9470", false, "FCS"},
};

std::string interfacesOf(Report* report) {
    std::string letters;
    if (dynamic_cast<IFilterableReport*>(report)) letters += 'F';
    if (dynamic_cast<IReportConfig*>(report)) letters += 'C';
    if (dynamic_cast<ISegmentFilter*>(report)) letters += 'S';
    if (dynamic_cast<IExchangeRates*>(report)) letters += 'R';
    if (dynamic_cast<IComparableReport*>(report)) letters += 'X';
    return letters;
}

TEST(Contract, EachReportIsWhatTheHostExpects) {
    SessionOptions options;
    options.language = "ids";
    TestSession session("UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency'", options);
    clsReport factory(*session);
    for (const Row& row : rows) {
        const auto report = clsReport::findMember(row.member)->make(factory);
        ASSERT_TRUE(report) << row.member;
        auto& contract = dynamic_cast<IReport&>(*report);
        contract.IReport_Application(*session);
        EXPECT_EQ(contract.IReport_DateDisplayOptions(), row.dates) << row.member;
        EXPECT_EQ(contract.IReport_ReportTitle(), row.title) << row.member;
        EXPECT_EQ(contract.IReport_UseCurrency(), row.currency) << row.member;
        EXPECT_EQ(interfacesOf(report.get()), row.interfaces) << row.member;
        EXPECT_FALSE(contract.IReport_NoHeaders()) << row.member;
        EXPECT_EQ(contract.IReport_ReportDesigner(), report.get()) << row.member;
    }
    EXPECT_TRUE(session.messages.texts.empty());
    std::size_t written = 0;
    for (const auto& member : clsReport::members()) written += member.written;
    EXPECT_EQ(written, std::size(rows)) << "a report that is written needs its row here";
}

TEST(Contract, DatesAreKeptOrNotAsTheReportNeedsThem) {
    TestSession session;
    clsReport factory(*session);
    const Date day = Date::fromCivil(2024, 5, 6);
    const auto from = [&](const clsReport::Object& report) {
        auto& contract = dynamic_cast<IReport&>(*report);
        contract.IReport_DateFrom(day);
        contract.IReport_DateTo(day);
        EXPECT_EQ(contract.IReport_DateTo(), day) << "the last day is always kept";
        return contract.IReport_DateFrom();
    };
    EXPECT_EQ(from(factory.TermList()), day);
    EXPECT_EQ(from(factory.CustList()), noDate);
    EXPECT_EQ(from(factory.CustCustomFieldList()), noDate);
    EXPECT_EQ(from(factory.ProjectPriceList()), noDate);
}

TEST(Contract, WithoutAnApplicationTheTitleShowsABoxAndIsEmpty) {
    TestSession session;
    clsReport factory(*session);
    const auto report = factory.TermList();
    EXPECT_EQ(dynamic_cast<IReport&>(*report).IReport_ReportTitle(), "");
    ASSERT_EQ(session.messages.texts.size(), 1U);
    EXPECT_NE(session.messages.texts[0].find("\r\nin Quillo.dsrTermList.IReport_ReportTitle at line "),
              std::string::npos);
}

// A report of the test's own, with every interface, over the design of the open orders.
class Sample final : public ComparableReport<SegmentReport>, public ExchangeRatesKeeper {
public:
    Sample(HostSession& session, const ContractRow& row) : ComparableReport("dsrOpenOrders", session, row) {
        IReport_Application(session);
    }
    using ComparableReport::isComparing;
    using ComparableReport::m_objRow;
    using ComparableReport::m_objTable;
    using FilterableReport::askFilter;
    using SegmentReport::firstSegments;
    using SegmentReport::segments;
    bool foreign() const { return m_bDisplayForeignCurrency; }
    void fillHeader() { fillFilterInfo(); }
};

TEST(Contract, TheForeignDisplayIsKeptAsTheReportAndTheCompanyAllow) {
    const struct {
        Foreign foreign;
        const char* uses;
        bool wish, kept, shown;
    } cases[] = {
        {Foreign::keptGatesSections, "1", true, true, true},    {Foreign::keptGatesSections, "0", true, true, false},
        {Foreign::keptGatesSections, "1", false, false, false}, {Foreign::keptWhereUsed, "1", true, true, true},
        {Foreign::keptWhereUsed, "0", true, false, false},      {Foreign::keptWhereUsed, "1", false, false, false},
    };
    for (const auto& [foreign, uses, wish, kept, shown] : cases) {
        TestSession session(std::string("UPDATE CompanyFact SET Value = '") + uses +
                            "' WHERE Name = 'UsesForeignCurrency'");
        Sample report(*session, {.foreign = foreign});
        report.IReport_DisplayForeignCurrency(wish);
        const std::string what = "wish " + std::to_string(wish) + ", company " + uses + ", kind " +
                                 std::to_string(static_cast<int>(foreign));
        EXPECT_EQ(report.foreign(), kept) << what;
        EXPECT_EQ(report.section("ghCurrency").Visible, shown) << what;
        EXPECT_EQ(report.section("gfCurrency").Visible, shown) << what;
        EXPECT_TRUE(session.messages.texts.empty()) << what;
    }
}

TEST(Contract, WithoutAFilterToolAReportGoesOnAndOneThatNeedsItSaysSo) {
    TestSession session;
    Sample optional(*session, {.filterOptional = true});
    EXPECT_TRUE(optional.askFilter()) << "nobody cancelled";
    EXPECT_NO_THROW(optional.fillHeader());
    EXPECT_TRUE(session.messages.texts.empty());
    Sample needy(*session, {});
    EXPECT_TRUE(needy.askFilter());
    ASSERT_EQ(session.messages.texts.size(), 1U);
    EXPECT_NE(session.messages.texts[0].find("The report has no filter tool"), std::string::npos);
    EXPECT_THROW(needy.fillHeader(), NameError);
}

TEST(Contract, SegmentsStandBehindAConditionOrAlone) {
    TestSession session;
    Sample report(*session, {});
    EXPECT_EQ(report.firstSegments("ExSegmentId"), "");
    report.ISegmentFilter_SegmentFilter("1,2");
    report.ISegmentFilter_SegmentNoneFilter(true);
    EXPECT_EQ(report.firstSegments("ExSegmentId"), "(ExSegmentId IN (1,2) OR ExSegmentId IS NULL)");
    EXPECT_EQ(report.segments("ExSegmentId"), " AND (ExSegmentId IN (1,2) OR ExSegmentId IS NULL)");
}

struct Rates final : ExchangeRates {
    int Count() const override { return 0; }
    double Item(std::string_view) const override { throw NameError("no rate"); }
    std::optional<double> find(std::string_view) const override { return {}; }
};

TEST(Contract, ExchangeRatesAreKeptAsTheHostGivesThem) {
    TestSession session;
    Sample sample(*session, {});
    IExchangeRates& report = sample;
    EXPECT_FALSE(report.IExchangeRates_Reevaluate());
    EXPECT_EQ(report.IExchangeRates_ExchangeRates(), nullptr);
    const auto rates = std::make_shared<Rates>();
    report.IExchangeRates_ExchangeRates(rates);
    report.IExchangeRates_Reevaluate(true);
    report.IExchangeRates_ExchangeRatesDate("2024-06-30");
    EXPECT_EQ(report.IExchangeRates_ExchangeRates(), rates);
    EXPECT_TRUE(report.IExchangeRates_Reevaluate());
    EXPECT_EQ(report.IExchangeRates_ExchangeRatesDate(), "2024-06-30");
}

struct Generator final : ComparableReportGen {
    bool active = true;
    bool IsActive() const override { return active; }
    Element AddTable(std::string_view, std::string_view) override { return 1; }
    Element AddRow(Element, std::string_view, std::string_view, std::string_view) override { return 2; }
    void AddCell(Element, std::string_view, std::string_view, std::string_view) override {}
    void Close() override {}
};

TEST(Contract, AGeneratorOfComparableTablesTakesTheReportsPlacesInTheOneBeforeAway) {
    SessionOptions options;
    options.language = "ids";
    TestSession session("", options);
    Sample sample(*session, {.titleId = 6083});
    IComparableReport& report = sample;
    EXPECT_EQ(report.IComparableReport_InternalName(), "dsrOpenOrders");
    EXPECT_EQ(report.IComparableReport_Guid(), "dsrOpenOrders");
    EXPECT_EQ(report.IComparableReport_FullName(), "#6083");
    Generator generator;
    EXPECT_FALSE(sample.isComparing());
    report.IComparableReport_ComparableReportGen(&generator);
    EXPECT_EQ(report.IComparableReport_Configuration(), "");
    EXPECT_TRUE(sample.isComparing());
    generator.active = false;
    EXPECT_FALSE(sample.isComparing());
    sample.m_objTable = 1, sample.m_objRow = 2;
    report.IComparableReport_ComparableReportGen(nullptr);
    EXPECT_FALSE(sample.isComparing());
    EXPECT_FALSE(sample.m_objTable || sample.m_objRow);
}

TEST(Factory, HasItsMembersInOrderAndSaysWhatIsStillToCome) {
    const auto members = clsReport::members();
    ASSERT_EQ(members.size(), 43U) << "the forty-fourth is ShowItemLine";
    EXPECT_EQ(members[0].name, "ExpectedAndExceededPmtByCustSum");
    EXPECT_EQ(members[7].name, "TermList");
    EXPECT_EQ(members[17].name, "JobCustByProject");
    EXPECT_EQ(members[42].name, "ConsumedStatisticsByPeriod");
    TestSession session;
    clsReport factory(*session);
    for (const auto& member : members) {
        session.messages.texts.clear();
        const auto report = member.make(factory);
        EXPECT_EQ(report != nullptr, member.written) << member.name;
        if (member.written) {
            EXPECT_EQ(report->name(), member.report);
            EXPECT_NE(member.make(factory), report) << "each call makes a report of its own";
            continue;
        }
        ASSERT_EQ(session.messages.texts.size(), 1U) << member.name;
        EXPECT_NE(
            session.messages.texts[0].find(std::string(member.report) + " is not written yet\r\nin Quillo.clsReport." +
                                           std::string(member.name)),
            std::string::npos);
    }
}

TEST(Factory, AKitLineIsAnsweredByTheKitsOptions) {
    // Kits: the line's own id, option and permission.
    TestSession session(
        "INSERT INTO Item (InItemId, ItemId, ComputeKitOption, AllowKitModification) VALUES (1, 'K0', 0, 0), (2, 'K1', "
        "1, 1), (3, 'K2', 2, 0);"
        "INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, ExKitInvoiDetId) VALUES (11, 1, 1, 101), (12, 1, 2, "
        "102), (13, 1, 3, 103);");
    clsReport factory(*session);
    const struct {
        int kit;
        bool own, component;
    } cases[] = {{0, true, true}, {999, true, true}, {101, true, false}, {102, true, true}, {103, false, true}};
    for (const auto& [kit, own, component] : cases) {
        EXPECT_EQ(factory.ShowItemLine(kit, true), own) << kit;
        EXPECT_EQ(factory.ShowItemLine(kit, false), component) << kit;
    }
    EXPECT_TRUE(session.messages.texts.empty());
}

constexpr const char* adjustments =
    "INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr) VALUES (1, '1100', 'AR'), (2, '1101', 'AR USD'), (3, '1200', "
    "'Other');"
    "DELETE FROM AccountGroup; INSERT INTO AccountGroup (Code, ExCurrencyId, ExGLAcctId) VALUES ('CustGLAR', 1, 1), "
    "('CustGLAR', 2, 2);"
    "INSERT INTO Segment (InSegmentId, SegmentId, Descr) VALUES (1, 'S', 'One');"
    "INSERT INTO GLDet (InGLDetId, SeqNo, ExAcctId, DetDate, DetAmnt, ForeignAmnt, ARAPAdjustmentEntry, ExSegmentId) "
    "VALUES"
    " (1, 1, 1, '2024-01-01', 10, NULL, 1, 1), (2, 2, 2, '2024-01-02', 13, 10, 1, NULL), (3, 3, 1, '2024-01-03', 100, "
    "NULL, 0, 1),"
    " (4, 4, 1, '2024-01-04', 1000, NULL, NULL, 1), (5, 5, 3, '2024-01-05', 5000, NULL, 1, 1), (6, 6, 1, '2024-02-01', "
    "7, NULL, 1, NULL);";

TEST(Adjustments, SumTheReceivablesAccountsUpToADay) {
    TestSession session(adjustments);
    std::string sql;
    const Date january = Date::fromCivil(2024, 1, 31), always = Date::fromCivil(2030, 1, 1);
    const auto sum = [&](Date to, const char* segments, bool none, bool byCurrency, int currency) {
        return MUtils::GetARAdjustments(*session, to, segments, none, byCurrency, sql, currency).toText();
    };
    EXPECT_EQ(sum(january, "", false, false, 0), "23");
    EXPECT_EQ(sql,
              "SELECT SUM(DetAmnt) As Total FROM GLDet WHERE ExAcctId IN(1,2) AND ARAPAdjustmentEntry<>0 AND "
              "ARAPAdjustmentEntry IS NOT NULL AND DetDate<=?");
    EXPECT_EQ(sum(always, "", false, false, 0), "30");
    EXPECT_EQ(sum(always, "1", false, false, 0), "10");
    EXPECT_EQ(sum(always, "", true, false, 0), "20");
    EXPECT_EQ(sum(always, "1", true, false, 0), "30");
    EXPECT_TRUE(sql.ends_with(" AND (ExSegmentId IN (1) OR ExSegmentId IS NULL)")) << sql;
    EXPECT_EQ(sum(always, "", false, true, 1), "17");
    EXPECT_EQ(sum(always, "", false, true, 2), "10") << "a foreign currency sums its own amounts";
    EXPECT_EQ(sum(Date::fromCivil(2000, 1, 1), "", false, false, 0), "0") << "no entry is no amount";
}

TEST(Adjustments, AGroupWithoutAccountsRaisesTheDatabasesError) {
    TestSession session("DELETE FROM AccountGroup");
    std::string sql;
    try {
        MUtils::GetARAdjustments(*session, Date::fromCivil(2024, 1, 1), "", false, false, sql, 0);
        FAIL() << "an empty list was taken";
    } catch (const std::exception& failure) {
        EXPECT_NE(std::string(failure.what()).find(" (Quillo.MUtils.GetARAdjustments component failure at line:"),
                  std::string::npos)
            << failure.what();
    }
    EXPECT_NE(sql.find("ExAcctId IN()"), std::string::npos);
}

TEST(OptionForm, StacksTheBoxesOfItsMaskInTheOrderOfTheTable) {
    SessionOptions options;
    options.language = "ids";
    TestSession session("", options);
    frmAdvFilters form(*session);
    form.Properties(Option::includeKitComponent, true);
    form.Properties(64, true);
    EXPECT_FALSE(form.Properties(64));
    form.PrepareInvConfigDialog(*session, Option::includeKitComponent + Option::includeZeroOrders, 7145);
    const auto boxes = form.checkBoxes();
    std::string shown;
    for (const CheckBox* box : boxes)
        if (box->Visible)
            shown += box->Name + "@" + std::to_string(static_cast<int>(box->Top)) + " " + box->Caption + ";";
    EXPECT_EQ(shown, "chkIncludeZeroOrders@90 #7145;chkIncludeKitComponent@405 #11965;");
    EXPECT_EQ(form.cmdOk.Top, 720);
    EXPECT_EQ(form.cmdOk.Left, form.ScaleWidth - form.cmdOk.Width - 180);
    EXPECT_EQ(form.ScaleHeight, form.cmdOk.Top + form.cmdOk.Height + 90);
    EXPECT_EQ(form.Caption, "#1449");
    EXPECT_EQ(form.cmdOk.Caption, "#1323");

    form.PrepareInvConfigDialog(*session, 0, 0);
    EXPECT_EQ(form.cmdOk.Top, 90);
}

TEST(OptionForm, KeepsItsBoxesByEveryWayOfLeaving) {
    TestSession session;
    frmAdvFilters form(*session);
    form.PrepareInvConfigDialog(*session, Option::includeKit, 0);
    form.Show();
    form.setOption("chkIncludeKit", "true");
    form.click("cmdOk");
    EXPECT_FALSE(form.visible());
    form.Show();
    EXPECT_FALSE(form.queryClose(1)) << "the program's own unloading passes";
    EXPECT_TRUE(form.visible());
    EXPECT_TRUE(form.queryClose(CloseMode::windowBox)) << "the window's own close box hides";
    EXPECT_FALSE(form.visible());
    EXPECT_TRUE(form.Properties(Option::includeKit));
}

}  // namespace
}  // namespace quillo::test
