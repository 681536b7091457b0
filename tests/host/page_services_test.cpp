#include <gtest/gtest.h>

#include "framework/engine/report.h"
#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

constexpr std::string_view design = R"({
  "name": "dsrTest", "page": {"width": 12240, "height": 15840, "left": 720, "right": 720, "top": 720, "bottom": 720},
  "sections": [
    {"name": "PageHeader", "kind": "pageHeader", "height": 600, "controls": [
      {"kind": "SubReport", "name": "filter", "left": 0, "top": 0, "width": 9000, "height": 210},
      {"kind": "Label", "name": "lblTerms", "left": 0, "top": 300, "width": 900, "height": 240, "tag": "x;Lng=1911;y", "caption": "Default"},
      {"kind": "Label", "name": "lblPlain", "left": 0, "top": 300, "width": 900, "height": 240, "caption": "Plain"},
      {"kind": "Label", "name": "lblUnknown", "left": 0, "top": 300, "width": 900, "height": 240, "tag": "Lng=3;", "caption": "Kept"},
      {"kind": "Label", "name": "lblOdd", "left": 0, "top": 300, "width": 900, "height": 240, "tag": "Lng=1911", "caption": "Odd"}
    ]},
    {"name": "Detail", "kind": "detail", "height": 0, "controls": [
      {"kind": "Label", "name": "lblName", "left": 0, "top": 0, "width": 900, "height": 240, "tag": "Lng=1575;", "caption": "Name"}
    ]}
  ]})";

class PageServices : public testing::Test {
protected:
    class TestReport : public Report {
    public:
        explicit TestReport(HostContext& context) : Report("dsrTest", context, design) {}
        std::string caption(std::string_view name) const { return label(name).Caption; }
        SubReport& filter = subReport("filter");
    };

    // The text that the filter's sub-report prints; empty when it prints nothing.
    std::string filterText(const FilterInfo& info, std::string_view segments = "") {
        TestReport report(*session_);
        session_->filterInfoFiller().FillFilterInfo(report.filter, info, *session_, segments);
        EXPECT_EQ(report.filter.Height, 210) << "one line, also without a text";
        if (report.filter.Object == nullptr) return "";
        const auto& line = dynamic_cast<const Label&>(*report.filter.Object->section("Detail").controls.at(0));
        EXPECT_LT(line.Width, report.filter.Width) << "the dates of a report stand to its right";
        return line.Caption;
    }

    test::TestSession session_;
};

TEST_F(PageServices, LabelsTakeTheTextsOfTheirTags) {
    TestReport report(*session_);
    EXPECT_THROW(session_->localizer().Translate(report), NameError);
    EXPECT_EQ(report.caption("lblTerms"), "Terms");
    EXPECT_EQ(report.caption("lblPlain"), "Plain");
    EXPECT_EQ(report.caption("lblUnknown"), "Kept");
    EXPECT_EQ(report.caption("lblOdd"), "Odd");
    EXPECT_EQ(report.caption("lblName"), "Contact");
}

TEST_F(PageServices, FilterTextReadsWell) {
    EXPECT_EQ(filterText({}), "");
    EXPECT_EQ(filterText({"Code from A to M", "Name"}), "Code from A to M; sorted by Name");
    EXPECT_EQ(filterText({"", "Name"}), "Sorted by Name");
    EXPECT_EQ(filterText({"Code is A", ""}, "East, West"), "Code is A\nSegments: East, West");
    EXPECT_EQ(filterText({}, "East"), "Segments: East");
}

}  // namespace
}  // namespace quillo
