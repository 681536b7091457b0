#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "tests/support/dice.h"
#include "tests/support/page_checks.h"

// Reports that a seed makes up, each run on pages of several heights: whatever the design, the rows and the events, a
// reader finds every text once, in order, readable, and the right sums. QUILLO_SEEDS=10000 runs more of them,
// QUILLO_SEED=17 one alone.
namespace quillo::test {
namespace {

constexpr int shards = 4;
constexpr float endless = 1000000;

// A property that a report breaks, and where.
struct Fault {
    std::string property;
    std::uint64_t seed = 0;
    float pageHeight = 0;
    std::string difference;
    std::string design;
};

std::vector<Fault> faultsOn(const Trial& trial, std::uint64_t seed) {
    std::vector<Fault> faults;
    for (const PageCheck& check : pageChecks) {
        if (check.ofWholeRuns && !trial.run.error.empty()) continue;
        if (std::string found = check.find(trial); !found.empty())
            faults.push_back(
                {check.name, seed, trial.run.pageHeight, found, designOf(trial.plan, trial.run.pageHeight)});
    }
    return faults;
}

// Runs the report of a seed on an endless page, on pages of some rows, and of a few.
std::vector<Fault> faultsOf(std::uint64_t seed) {
    const ReportPlan plan = planReport(seed);
    const PlanIndex index(plan);
    const Expectation expected(plan);
    const PlannedRun whole = runPlan(plan, endless);
    const PageMatching wholeMatching(index, expected, whole);
    const Trial onOnePage{plan, index, expected, whole, whole, wholeMatching, wholeMatching};
    std::vector<Fault> faults = faultsOn(onOnePage, seed);
    if (!whole.error.empty() || !wholeMatching.difference().empty()) return faults;
    Dice dice(seed);
    const float frame = endless - bodyRoom(onOnePage);
    for (const float body : {static_cast<float>(dice.between(40, 150)), static_cast<float>(dice.between(150, 600))}) {
        const PlannedRun run = runPlan(plan, frame + 10 * body);
        const PageMatching matching(index, expected, run);
        for (Fault& fault : faultsOn({plan, index, expected, run, whole, matching, wholeMatching}, seed))
            faults.push_back(std::move(fault));
    }
    return faults;
}

int numberFrom(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text != nullptr ? std::atoi(text) : otherwise;
}

std::vector<std::uint64_t> seedsOf(int shard) {
    if (const int alone = numberFrom("QUILLO_SEED", 0); alone > 0)
        return shard == 0 ? std::vector{static_cast<std::uint64_t>(alone)} : std::vector<std::uint64_t>{};
    std::vector<std::uint64_t> seeds;
    for (int seed = 1 + shard; seed <= numberFrom("QUILLO_SEEDS", 1500); seed += shards)
        seeds.push_back(static_cast<std::uint64_t>(seed));
    return seeds;
}

std::string told(const Fault& fault) {
    return "broken: " + fault.property + "\nseed " + std::to_string(fault.seed) + ", page height " +
           std::to_string(static_cast<int>(fault.pageHeight)) + ": " + fault.difference +
           "\nalone: QUILLO_SEED=" + std::to_string(fault.seed) + " quillo_tests --gtest_filter='*RandomReports*'\n" +
           fault.design;
}

class RandomReports : public testing::TestWithParam<int> {};

// Of the faults of one property the one with the smallest design is shown.
void expectNone(const std::vector<std::uint64_t>& seeds) {
    std::map<std::string, std::vector<Fault>> faults;
    for (const std::uint64_t seed : seeds)
        for (Fault& fault : faultsOf(seed)) faults[fault.property].push_back(std::move(fault));
    for (const auto& [property, found] : faults) {
        const auto smallest = std::min_element(found.begin(), found.end(), [](const Fault& a, const Fault& b) {
            return a.design.size() < b.design.size();
        });
        ADD_FAILURE() << told(*smallest) << "\nand " << found.size() - 1 << " more";
    }
}

TEST_P(RandomReports, PrintWhatTheyMustOnPagesOfAnyHeight) {
    const auto seeds = seedsOf(GetParam());
    if (seeds.empty()) GTEST_SKIP() << "another quarter runs the seed";
    expectNone(seeds);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomReports, testing::Range(0, shards),
                         [](const auto& shard) { return "Quarter" + std::to_string(shard.param + 1); });

// Reports that were found to be difficult, and what each has. Another planner makes other reports of the seeds.
struct Difficult {
    const char* what;
    std::uint64_t seed;
};
void PrintTo(const Difficult& report, std::ostream* out) {
    *out << report.what;
}

class DifficultReports : public testing::TestWithParam<Difficult> {};

TEST_P(DifficultReports, PrintWhatTheyMustOnPagesOfAnyHeight) {
    expectNone({GetParam().seed});
}

INSTANTIATE_TEST_SUITE_P(
    Seed, DifficultReports,
    testing::Values(
        Difficult{"ARoomThatShowsNothingAheadOfATornRow", 646},
        Difficult{"ASubReportLowerThanItsPlaceWhereThePageEnds", 391},
        Difficult{"AReportHeaderThatLeavesThePageHeaderNoRoom", 1413}, Difficult{"APageFooterThatGrows", 699},
        Difficult{"APageFooterThatGrowsOverWhatCannotBeSplit", 1156},
        Difficult{"ARowTornByThePageFooterBeforeANewPage", 260}, Difficult{"ADistributionAsTheRestOfItsFooter", 536},
        Difficult{"ADistributionThatEndsInRoom", 767}, Difficult{"ARepeatedHeadingTornInASubReport", 1479},
        Difficult{"ARepeatedHeaderThatIsTorn", 1495}, Difficult{"AnUnderlaidHeaderThatIsTorn", 1300},
        Difficult{"ATotalThatMovesBehindTheEndOfItsGroup", 441}, Difficult{"AnInnerGroupKeptWithinAnUnderlaidOne", 363},
        Difficult{"ARowOfADistributionTakenToAPageThatHoldsLess", 9326},
        Difficult{"ARepeatedHeaderThatLosesOnlyRoom", 2498},
        Difficult{"ARowThatLeavesTheLastPageForAFooterThatGrows", 7836}, Difficult{"RoomAboveThePageHeader", 4256},
        Difficult{"RoomAheadOfASectionThatKeepsTogether", 3568}, Difficult{"ARowBesideAKeptHeader", 8006},
        Difficult{"PagesThatHoldALineEach", 4531}),
    [](const auto& report) { return report.param.what; });

}  // namespace
}  // namespace quillo::test
