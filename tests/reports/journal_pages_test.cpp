#include <gtest/gtest.h>

#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

// How the pages of both journals read: what stands under which captions, what stays together.
namespace quillo::test {
namespace {

class JournalPages : public testing::TestWithParam<const char*> {
protected:
    static ReportResult run(bool foreign, float pageHeight) {
        static const DemoFile company;
        return runReport({.member = GetParam(),
                          .company = company.path(),
                          .from = "2025-03-01",
                          .to = "2025-03-31",
                          .foreign = foreign,
                          .language = "ids",
                          .pageHeight = pageHeight});
    }
};

// All controls of that name on a page, sub-reports included.
void collect(const PlacedSection& section, std::string_view name, float left, std::vector<float>& rights) {
    for (const PlacedControl& control : section.controls) {
        if (control.info->name == name) rights.push_back(left + control.left + control.width);
        for (const PlacedSection& inner : control.sections) collect(inner, name, left + control.left, rights);
    }
}

std::vector<float> rightsOf(const Page& page, std::string_view name) {
    std::vector<float> rights;
    for (const PlacedSection& section : page.sections) collect(section, name, section.left, rights);
    return rights;
}

TEST_P(JournalPages, EachPageHasTheCaptionsOfWhatItShowsAndNoOthers) {
    constexpr float low = 5000;
    const auto result = run(true, low);
    int distributionPages = 0;
    for (const auto& page : result.kept.pages) {
        const bool distribution = !rightsOf(*page, "fldAccount").empty() || !rightsOf(*page, "txtGrTotalDebit").empty();
        distributionPages += distribution ? 1 : 0;
        EXPECT_EQ(rightsOf(*page, "lblSourceCap").size(), distribution ? 0U : 1U) << "page " << page->number;
        EXPECT_EQ(rightsOf(*page, "lblCompteCap").size(), distribution ? 1U : 0U) << "page " << page->number;
    }
    EXPECT_GT(distributionPages, 1);
}

TEST_P(JournalPages, AmountsOfTheDistributionEndWhereThoseOfTheJournalEnd) {
    for (const bool foreign : {false, true}) {
        const auto result = run(foreign, 0);
        ASSERT_GT(result.pageCount(), 1U);
        const Page& journal = *result.kept.pages.front();
        const Page& distribution = *result.kept.pages.back();
        for (const auto& [ours, theirs] : {std::pair{"txtTotalDebit", "txtDebit"}, {"txtTotalCredit", "txtCredit"}}) {
            ASSERT_FALSE(rightsOf(distribution, ours).empty());
            ASSERT_FALSE(rightsOf(journal, theirs).empty());
            EXPECT_EQ(rightsOf(distribution, ours).front(), rightsOf(journal, theirs).front()) << ours;
        }
    }
}

TEST(FilterText, TellsNoOrderWhereTheReportsOwnLeads) {
    const TestCompany company("");
    for (const char* member :
         {"SalesJournalDetail", "SalesJournalSummary", "CashReceiptsDetail", "CashReceiptsSummary"}) {
        const char* column = std::string_view(member) == "SalesJournalSummary" ? "InvoiHdr.InvoiDate" : "GLDet.DetDate";
        const auto result = runReport({.member = member,
                                       .company = company.path(),
                                       .where = std::string(column) + " > '2024-01-05'",
                                       .order = column});
        const auto texts = result.texts("lblFilter");
        ASSERT_FALSE(texts.empty()) << member;
        EXPECT_EQ(texts.front(), "Date above 2024-01-05") << member;
    }
    const auto list = runReport({.member = "CustList", .company = company.path(), .order = "Cust.Name"});
    EXPECT_EQ(list.texts("lblFilter"), std::vector<std::string>{"Sorted by Company"});
}

// The transactions of a page, by the places of their headings and totals.
TEST_P(JournalPages, ATransactionThatFitsAPageIsNotTorn) {
    const auto result = run(false, 7920);
    std::size_t transactions = 0;
    for (const auto& page : result.kept.pages) {
        const std::size_t headings = rightsOf(*page, "fldDetDescr").size();
        EXPECT_EQ(headings, rightsOf(*page, "txtDebitTotal").size()) << "page " << page->number;
        transactions += headings;
    }
    EXPECT_GT(transactions, 20U);
}

TEST_P(JournalPages, ATransactionLongerThanAPageIsHeadedOnEach) {
    const auto result = run(false, 4200);
    std::size_t again = 0;
    for (const auto& page : result.kept.pages) {
        for (const PlacedSection& section : page->sections)
            if (section.info->name == "ghSeqNo" && section.repeat) ++again;
        const bool postings = !rightsOf(*page, "txtDebit").empty();
        EXPECT_LE(postings, !rightsOf(*page, "fldDetDescr").empty()) << "page " << page->number;
    }
    EXPECT_GT(again, 0U);
}

INSTANTIATE_TEST_SUITE_P(Of, JournalPages, testing::Values("SalesJournalDetail", "CashReceiptsDetail"),
                         [](const auto& member) { return std::string(member.param); });

}  // namespace
}  // namespace quillo::test
