#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "tests/support/golden_page.h"
#include "tests/support/member_runs.h"

// Each report's pages of one small company, as they were read line by line and found right. scripts/golden makes them
// anew; what then differs is reviewed as the change that it is.
namespace quillo::test {
namespace {

namespace fs = std::filesystem;

// What only one report can be asked.
struct OwnRun {
    const char *member, *name;
    void (*ask)(ReportRun&);
};
void reevaluate(ReportRun& run) {
    run.reevaluate = true;
    run.rates = {{"USD", "1.4"}, {"EUR", "1.5"}};
}

// The same company, as one that keeps its stock by warehouse.
void useWarehouses(ReportRun& run) {
    static const TestCompany company(fileText(goldenFolder() + "company.sql") +
                                     "UPDATE CompanyFact SET Value = '1' WHERE Name = 'DefaultWarehouseId'");
    run.company = company.path();
}

constexpr OwnRun ownRuns[] = {
    {"CashReceiptsSummary", "-payments", [](ReportRun& run) { run.properties["IsWithPayments"] = "True"; }},
    {"CashReceiptsSummary", "-payments-foreign",
     [](ReportRun& run) { run.properties["IsWithPayments"] = "True", run.foreign = true; }},
    {"CashReceiptsDetail", "-sequence", [](ReportRun& run) { run.properties["SeqNo"] = "4", run.foreign = true; }},
    {"SalesJournalDetail", "-document", [](ReportRun& run) { run.properties["ExInvoiId"] = "103"; }},
    {"OpenOrders", "-above-zero",
     [](ReportRun& run) {
         run.options = {{"chkIncludeZeroOrders", false}};
     }},
    {"ExpectedAndExceededPmtByCustDet", "-all",
     [](ReportRun& run) {
         run.options = {{"chkShowZeroTransaction", true}};
     }},
    {"ExpectedAndExceededPmtByCustSum", "-customer", [](ReportRun& run) { run.properties["CustId"] = "11"; }},
    {"CollectionLetter", "-letterhead",
     [](ReportRun& run) {
         run.properties = {{"DisplayCieAddress", "True"},
                           {"CieLogoFullPath", std::string(QUILLO_SOURCE) + "/host/letters/logo.png"}};
     }},
    {"CustAgingDetail", "-later", [](ReportRun& run) { run.to = "2024-03-31"; }},
    {"CustAgingDetail", "-reevaluated", [](ReportRun& run) { reevaluate(run); }},
    {"CustAgingSummary", "-reevaluated", [](ReportRun& run) { reevaluate(run); }},
    {"SalesBySalesPersonDetail", "-variances",
     [](ReportRun& run) { run.properties["IsCommissionVariances"] = "True"; }},
    {"SalesBySalesPersonDetail", "-variances-foreign",
     [](ReportRun& run) { run.properties["IsCommissionVariances"] = "True", run.foreign = true; }},
    {"SalesBySalesPersonSummary", "-variances",
     [](ReportRun& run) { run.properties["IsCommissionVariances"] = "True"; }},
    {"SalesBySalesPersonSummary", "-variances-foreign",
     [](ReportRun& run) { run.properties["IsCommissionVariances"] = "True", run.foreign = true; }},
    {"SalesStatistic", "-hidden",
     [](ReportRun& run) {
         run.options = {{"chkLastYear", true}, {"SortOption", "2"}, {"SortType", "3"}};
     }},
    {"SalesStatistic", "-warehouses", useWarehouses},
    {"InvStatByItem", "-above-zero",
     [](ReportRun& run) {
         run.options = {{"chkShowZeroTransaction", false}};
     }},
    {"ConsumedStatisticsByItem", "-item", [](ReportRun& run) { run.properties["InItemId"] = "11"; }},
    {"ConsumedStatisticsByPeriod", "-year", [](ReportRun& run) { run.properties["InItemId"] = "11", run.to = ""; }},
    {"OpenOrders", "-quotes", [](ReportRun& run) { run.properties["InvoiceType"] = "50"; }},
};

class GoldenPages : public testing::TestWithParam<std::string> {
protected:
    const GoldenCompany company;

    std::vector<MemberRun> runs() const {
        std::vector<MemberRun> all = runsOf(GetParam(), company);
        for (const OwnRun& own : ownRuns) {
            if (GetParam() != own.member) continue;
            all.push_back({own.name, company.run(own.member)});
            own.ask(all.back().run);
        }
        return all;
    }
    // A way to ask that changes nothing needs no pages of its own.
    std::map<std::string, std::string> pages() const {
        std::map<std::string, std::string> pages;
        std::string plain;
        for (const auto& [name, run] : runs()) {
            const std::string text = goldenText(runReport(run));
            if (name.empty()) plain = text;
            if (name.empty() || text != plain) pages[GetParam() + name + ".txt"] = text;
        }
        return pages;
    }
};

bool belongsTo(const std::string& file, const std::string& member) {
    return file.starts_with(member + ".") || file.starts_with(member + "-");
}

std::set<std::string> filesOf(const std::string& member) {
    std::set<std::string> files;
    for (const auto& entry : fs::directory_iterator(goldenFolder()))
        if (const std::string name = entry.path().filename().string(); belongsTo(name, member)) files.insert(name);
    return files;
}

void rewrite(const std::string& member, const std::map<std::string, std::string>& pages) {
    for (const std::string& file : filesOf(member)) fs::remove(goldenFolder() + file);
    for (const auto& [file, text] : pages) std::ofstream(goldenFolder() + file, std::ios::binary) << text;
}

TEST_P(GoldenPages, AreAsTheyWereReviewed) {
    const auto now = pages();
    if (std::getenv("QUILLO_MAKE_GOLDEN") != nullptr) rewrite(GetParam(), now);
    std::set<std::string> names;
    for (const auto& [file, text] : now) {
        names.insert(file);
        const std::string difference = lineDifference(fileText(goldenFolder() + file), text);
        EXPECT_TRUE(difference.empty()) << file << " differs; scripts/golden takes the new pages\n" << difference;
    }
    EXPECT_EQ(filesOf(GetParam()), names);
}

// The report's texts do not depend on the kind of database.
TEST_P(GoldenPages, AreTheSameFromBothDialects) {
    for (auto [name, run] : runs()) {
        const std::string text = goldenText(runReport(run));
        run.dialect = 1;
        EXPECT_EQ(lineDifference(text, goldenText(runReport(run))), "") << GetParam() << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Members, GoldenPages, testing::ValuesIn(writtenMembers()),
                         [](const auto& member) { return member.param; });

TEST(GoldenFolder, HoldsPagesOfWrittenReportsOnly) {
    const auto members = writtenMembers();
    for (const auto& entry : fs::directory_iterator(goldenFolder())) {
        const std::string name = entry.path().filename().string();
        if (name == "company.sql") continue;
        EXPECT_TRUE(std::any_of(members.begin(), members.end(), [&](const std::string& member) {
            return belongsTo(name, member);
        })) << name;
    }
}

TEST(LineDifference, ShowsWhatIsGoneAndWhatIsNewUnderItsSection) {
    EXPECT_EQ(lineDifference("A 0+1\n  x | 1\n", "A 0+1\n  x | 1\n"), "");
    EXPECT_EQ(lineDifference("A 0+1\n  x | 1\n  y | 2\nB 1+1\n  z | 3\n", "A 0+1\n  y | 2\nB 1+1\n  z | 4\n  w | 5\n"),
              "  A 0+1\n-   x | 1\n  B 1+1\n-   z | 3\n+   z | 4\n+   w | 5\n");
}

}  // namespace
}  // namespace quillo::test
