#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "output/page_frame.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

std::string manyTerms(int count) {
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(count) +
           ") INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due) SELECT i, 'T' || i, printf('Net %04d', i), 1, "
           "30 FROM n";
}

// A list of terms in its frame, whose rows from the first one on show that many different boxes, one of them often.
ReportResult failingList(const std::string& language, int first, int boxes) {
    SessionOptions options;
    options.language = language;
    TestSession session(manyTerms(200), options);
    ReportJob job(*session, *clsReport::findMember("TermList"), {});
    auto& detail = job.report().section("Detail");
    int row = 0;
    detail.Format = [&, before = std::move(detail.Format)] {
        before();
        if (++row >= first) throw ConversionError("Box " + std::to_string(std::min(row - first + 1, boxes)));
    };
    FixedMeasure measure;
    auto kept = std::make_unique<KeptPages>();
    KeptPages& pages = *kept;
    PageFrame frame(std::move(kept), job.pageTexts(), measure);
    EXPECT_EQ(job.run(frame, measure), RunEnd::done);
    return {pages, session.messages.texts, {}};
}

TEST(ClosingNotes, AFailureIsToldBelowEachPageFromItsOwnOnAndOnTheLast) {
    for (const auto& [language, foot, heading] :
         {std::tuple{"en", "This report has failures: see the last page", "Failures of this report"},
          std::tuple{"fr", "Ce rapport comporte des erreurs : voir la dernière page", "Erreurs de ce rapport"}}) {
        const auto result = failingList(language, 120, 3);
        const auto feet = result.texts("lblFrameFailures");
        ASSERT_EQ(feet.size(), result.pageCount());
        ASSERT_GE(feet.size(), 5U);
        EXPECT_EQ(feet[1], "") << "nothing has failed yet";
        EXPECT_EQ(feet[2], foot) << "row 120 stands on it";
        for (std::size_t i = 3; i < feet.size(); ++i) EXPECT_EQ(feet[i], foot) << "page " << i + 1;
        EXPECT_EQ(result.only("fldTitle"), heading);
        const auto notes = result.texts("fldNote");
        ASSERT_EQ(notes.size(), 3U) << "one a text";
        EXPECT_EQ(notes[0], "Box 1\r\nin Quillo.dsrTermList.Detail_Format");
        EXPECT_TRUE(notes[2].starts_with("Box 3\r\n") && notes[2].find("(79 ") != std::string::npos) << notes[2];
        EXPECT_NE(result.page(result.pageCount() - 1).find(heading), std::string::npos);
        EXPECT_EQ(result.kept.pages.back()->number, static_cast<int>(result.pageCount()));
    }
}

TEST(ClosingNotes, ManyFailuresAreCountedAndNoneGivesNoPage) {
    const auto many = failingList("en", 51, 150);
    const auto notes = many.texts("fldNote");
    ASSERT_EQ(notes.size(), 101U);
    EXPECT_EQ(notes.back(), "and 50 more");
    EXPECT_GT(many.texts("fldTitle").size(), 1U) << "each page of them has the heading";
    const auto none = failingList("en", 1000, 1);
    EXPECT_TRUE(none.texts("fldNote").empty());
    EXPECT_EQ(none.texts("lblFrameFailures").back(), "");
}

TEST(ClosingNotes, ALongFilterTakesThreeLinesOfEachPageAndStandsWholeBehindTheLast) {
    const TestCompany company(manyTerms(200));
    std::string codes;
    for (int i = 1; i <= 600; ++i) codes += (i == 1 ? "'T" : ", 'T") + std::to_string(i) + "'";
    const auto result =
        runReport({.member = "TermList", .company = company.path(), .where = "Term.TermId IN (" + codes + ")"});
    EXPECT_EQ(result.boxes, std::vector<std::string>{});
    const auto cut = result.texts("lblFilter");
    ASSERT_GT(cut.size(), 3U);
    for (const std::string& text : cut) {
        EXPECT_TRUE(text.starts_with("Code one of T1, T2, T3,") && text.ends_with(",\xE2\x80\xA6")) << text;
        EXPECT_LT(text.size(), 600U);
    }
    EXPECT_EQ(first(result.texts("fldTitle")), "The whole filter");
    std::string whole;
    for (const std::string& part : result.texts("fldNote")) whole += part;
    EXPECT_NE(whole.find("T1, T2, T3,"), std::string::npos);
    EXPECT_NE(whole.find("T599, T600"), std::string::npos) << "on as many pages as it takes";
    const auto brief = runReport({.member = "TermList", .company = company.path(), .where = "Term.TermId = 'T1'"});
    EXPECT_TRUE(brief.texts("fldNote").empty());
}

}  // namespace
}  // namespace quillo::test
