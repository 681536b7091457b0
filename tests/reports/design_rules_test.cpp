#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/report_runner.h"

// The house's rules of a page, held against every report that the factory gives (docs/designs.md, "A page").
namespace quillo::test {
namespace {

constexpr float columnGap = 120, amountGap = 60;  // twips

class DesignRules : public testing::TestWithParam<const clsReport::Member*> {
protected:
    void SetUp() override {
        SessionOptions options;
        options.company = company_.path();
        session_ = std::make_unique<HostSession>(options, messages_);
        job_ = std::make_unique<ReportJob>(*session_, *GetParam(), ReportWish{});
        ASSERT_TRUE(job_->made());
    }
    Report& report() { return job_->report(); }

private:
    const TestCompany company_{""};
    ListedMessages messages_;
    std::unique_ptr<HostSession> session_;
    std::unique_ptr<ReportJob> job_;
};

bool printsText(const Control& control) {
    const bool text = control.kind() == ControlKind::label || control.kind() == ControlKind::field;
    return text && control.Visible && control.Width > 0;
}

bool besideInARow(const Control& one, const Control& other) {
    return one.Top < other.Top + other.Height && other.Top < one.Top + one.Height;
}

float gapBetween(const Control& one, const Control& other) {
    const auto isAmount = [](const Control& control) {
        return static_cast<const TextControl&>(control).Style.value().align == Align::right;
    };
    return isAmount(one) && isAmount(other) ? amountGap : columnGap;
}

std::string tooClose(const Section& section) {
    std::string found;
    for (const auto& one : section.controls)
        for (const auto& other : section.controls) {
            if (one == other || !printsText(*one) || !printsText(*other) || !besideInARow(*one, *other)) continue;
            if (one->Left > other->Left || one->Left + one->Width + gapBetween(*one, *other) <= other->Left) continue;
            found += one->info.name + " and " + other->info.name + "; ";
        }
    return found;
}

TEST_P(DesignRules, ColumnsKeepTheirDistance) {
    for (const auto& section : report().sections()) EXPECT_EQ(tooClose(*section), "") << section->Name();
}

bool isRuleBelow(const Control& control, float bottom, float width) {
    if (control.kind() != ControlKind::line || !control.Visible) return false;
    const auto& line = static_cast<const Line&>(control);
    return line.X1 == 0 && line.X2 == width && line.Y1 == line.Y2 && line.Y1 >= bottom;
}

float captionsBottom(const Section& header) {
    float bottom = 0;
    for (const auto& control : header.controls)
        if (printsText(*control)) bottom = std::max(bottom, control->Top + control->Height);
    return bottom;
}

// The header that has the columns' captions: the page's, or where each group has captions of its own the group's.
const Section* captionsOf(const Report& report) {
    const Section* last = nullptr;
    for (const auto& section : report.sections()) {
        const bool rule = std::any_of(section->controls.begin(), section->controls.end(),
                                      [](const auto& control) { return control->info.name == "LineCaptions"; });
        if (section->kind() == SectionKind::pageHeader && captionsBottom(*section) > 0) return section.get();
        if (section->kind() == SectionKind::groupHeader && rule) last = section.get();
    }
    return last;
}

TEST_P(DesignRules, ARuleStandsUnderTheCaptions) {
    const bool fedByHand = GetParam()->name == "ConsumedStatisticsByPeriod";
    if (report().dataControl() == nullptr && !fedByHand) GTEST_SKIP() << "a letter or a graph has no columns";
    const Section* header = captionsOf(report());
    ASSERT_NE(header, nullptr) << "no captions";
    const float bottom = captionsBottom(*header);
    EXPECT_EQ(std::count_if(
                  header->controls.begin(), header->controls.end(),
                  [&](const auto& control) { return isRuleBelow(*control, bottom, report().setup.printableWidth()); }),
              1);
}

TEST_P(DesignRules, NothingStandsBeyondTheMargins) {
    for (const auto& section : report().sections())
        for (const auto& control : section->controls)
            EXPECT_LE(control->Left + control->Width, report().setup.printableWidth()) << control->info.name;
}

std::vector<const clsReport::Member*> members() {
    std::vector<const clsReport::Member*> all;
    for (const auto& member : clsReport::members())
        if (member.written) all.push_back(&member);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Of, DesignRules, testing::ValuesIn(members()),
                         [](const auto& member) { return std::string(member.param->name); });

}  // namespace
}  // namespace quillo::test
