#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

// Terms 1 and 2: instalments by dates, whose percents add up to 100, to 90. 3: to more than that. 4 and 5: by days. 6
// has no instalments. 7: one without a day.
constexpr const char* rows =
    "INSERT INTO Term (InTermId, TermMode) VALUES (1, 2), (2, 2), (3, 2), (4, 3), (5, 3), (6, 1), (7, 3);"
    "INSERT INTO PaymentSchedule (ExTermId, Position, Percent, DueDate, Days) VALUES"
    " (1, 1, 33.34, '2024-02-15', NULL), (1, 2, 33.33, '2024-03-15', NULL), (1, 3, 33.33, '2024-04-15', NULL),"
    " (2, 1, 50, '2024-03-01', NULL), (2, 2, 40, '2024-02-01', NULL),"
    " (3, 1, 80, '2024-02-01', NULL), (3, 2, 80, '2024-03-01', NULL),"
    " (4, 1, 50, NULL, 15), (4, 2, 50, NULL, 45), (5, 1, 100, NULL, 0), (7, 1, 60, NULL, NULL), (7, 2, 40, NULL, 10);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, TotAmnt, RecAmnt) VALUES"
    " (1, 1, '2024-01-10', 100, 20), (2, 1, '2024-01-10', 50, NULL);"
    // Ahead of the document, with a discount, a credit set against it, another document's.
    "INSERT INTO PmtHdr (InPmtId, PmtDate, PmtTotAmnt, PaymentCreditApplication) VALUES (11, '2024-01-05', 10, 0),"
    " (12, '2024-02-01', 30, 0), (13, '2024-03-01', 0, 9), (14, '2024-02-01', 50, 0);"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (11, 1, 10, NULL), (12, 1, 30, 2), (13, 1, 5, 0),"
    " (14, 2, 50.5, NULL);";

Date day(std::string_view iso) {
    return Date::parseIso(iso).value();
}

class Schedule : public testing::Test {
protected:
    TestSession session{rows};
    PaymentSchedule& schedule = session->company().paymentSchedule();

    // What each of the ranges between the days expects, joined by blanks.
    template <class Ask>
    std::string between(std::vector<std::string_view> days, const Ask& expected) {
        std::string amounts;
        Date first = noStartLimit;
        for (const std::string_view last : days) {
            amounts += (amounts.empty() ? "" : " ") + expected(first, day(last)).toText();
            first = {day(last).days + 1};
        }
        return amounts;
    }
    std::string byTerm(int term, Money total, std::vector<std::string_view> days) {
        return between(days, [&](Date from, Date to) { return schedule.ExpectedBetweenByTerm(term, total, from, to); });
    }
    std::string byTermAndDate(int term, std::string_view document, Money total, std::vector<std::string_view> days) {
        return between(days, [&](Date from, Date to) {
            return schedule.ExpectedBetweenByTermAndDate(term, day(document), total, from, to);
        });
    }
};

TEST_F(Schedule, InstalmentsByDatesAddUpToTheTotalToTheCent) {
    const Money total = Money::fromDouble(100.01);
    // 33.343... and 66.676... are rounded once each.
    EXPECT_EQ(byTerm(1, total, {"2024-02-14", "2024-02-15", "2024-03-14", "2024-04-14", "2024-04-15", "2024-12-31"}),
              "0 33.34 0 33.34 33.33 0");
    EXPECT_EQ(byTerm(1, -total, {"2024-02-15", "2024-03-15", "2024-04-15"}), "-33.34 -33.34 -33.33");
    EXPECT_EQ(byTerm(2, total, {"2024-02-29", "2024-03-31"}), "40 60.01") << "the last one brings what is missing";
    EXPECT_EQ(byTerm(3, total, {"2024-02-29", "2024-03-31"}), "80.01 20") << "never more than the total";
    EXPECT_EQ(byTerm(6, total, {"2024-12-31"}), "0");
    EXPECT_EQ(byTerm(4, total, {"2024-12-31"}), "0") << "instalments by days have no dates";
    EXPECT_TRUE(schedule.ExpectedBetweenByTerm(1, total, day("2024-03-31"), day("2024-02-01")).isZero());
}

TEST_F(Schedule, InstalmentsByDaysCountFromTheDocument) {
    const Money total = Money::fromDouble(10.01);
    EXPECT_EQ(byTermAndDate(4, "2024-01-31", total, {"2024-02-14", "2024-02-15", "2024-03-15", "2024-03-16"}),
              "0 5.01 0 5")
        << "a half cent goes up once";
    EXPECT_EQ(byTermAndDate(5, "2024-01-31", total, {"2024-01-30", "2024-01-31"}), "0 10.01");
    EXPECT_EQ(byTermAndDate(7, "2024-01-31", total, {"2024-02-09", "2024-02-10"}), "0 10.01");
    EXPECT_EQ(byTermAndDate(1, "2024-01-31", total, {"2024-12-31"}), "0");
}

TEST_F(Schedule, PaidIsWhatSettledTheDocumentInTheRange) {
    const auto paid = [&](std::string_view first, std::string_view last) {
        return schedule.AmountPaidBetween(1, day(first), day(last)).toText();
    };
    EXPECT_EQ(paid("1899-12-31", "2024-01-09"), "10");
    EXPECT_EQ(paid("2024-01-10", "2024-01-10"), "20") << "on the spot, on the document's day";
    EXPECT_EQ(paid("2024-01-11", "2024-02-01"), "32") << "a discount counts";
    EXPECT_EQ(paid("2024-02-02", "9999-12-31"), "5") << "a credit counts";
    EXPECT_THROW(schedule.AmountPaidBetween(99, noStartLimit, noEndLimit), NameError);
}

TEST_F(Schedule, OutstandingIsTheTotalBeforeTheDocumentAndWhatIsLeftFromThenOn) {
    const auto open = [&](int document, std::string_view at) {
        return schedule.OutstandingAtDate(document, day(at)).toText();
    };
    EXPECT_EQ(open(1, "2024-01-09"), "100");
    EXPECT_EQ(open(1, "2024-01-10"), "70");
    EXPECT_EQ(open(1, "2024-01-31"), "70");
    EXPECT_EQ(open(1, "2024-02-01"), "38");
    EXPECT_EQ(open(1, "2025-01-01"), "33");
    EXPECT_EQ(open(2, "2024-02-01"), "-0.5") << "paid too much";
    EXPECT_THROW(schedule.OutstandingAtDate(99, noEndLimit), NameError);
}

}  // namespace
}  // namespace quillo::test
