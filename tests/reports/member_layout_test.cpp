#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <regex>
#include <set>

#include "framework/engine/expression.h"
#include "framework/values/names.h"
#include "tests/support/member_runs.h"

// What holds for the look of every written report, in every way that it can be asked: each caption is a text of the
// language, nothing overprints, columns stand under their captions, and fields are bound to what the query gives.
namespace quillo::test {
namespace {

using Names = std::set<std::string>;

constexpr float tolerance = 1;  // twip
constexpr float hair = 5;       // a quarter of a point, by which boxes may meet

bool isText(const PlacedControl& control) {
    return control.info->kind == ControlKind::label || control.info->kind == ControlKind::field;
}

// A text or a line as a reader sees it; measures count from the corner of the page's printable area.
struct Print {
    const PlacedControl* control;
    float left, top, right, bottom;
    const std::string& name() const { return control->info->name; }
};

Print printOf(const PlacedControl& control, float left, float top) {
    left += control.left, top += control.top;
    return {&control, left, top, left + control.width, top + control.height};
}

void collect(const PlacedSection& section, float left, float top, std::vector<Print>& prints) {
    for (const PlacedControl& control : section.controls) {
        const bool holdsPrints =
            control.info->kind == ControlKind::subReport || control.info->kind == ControlKind::richEdit;
        if (!holdsPrints) prints.push_back(printOf(control, left, top));
        if (control.info->kind == ControlKind::chart) continue;  // one picture, whose items lie over one another
        for (const PlacedSection& inner : control.sections)
            collect(inner, left + control.left + inner.left, top + control.top + inner.top, prints);
    }
}

std::vector<Print> printsOf(const Page& page, const PlacedSection& section) {
    std::vector<Print> prints;
    collect(section, section.left - page.setup.leftMargin, section.top, prints);
    return prints;
}

class MemberLayout : public testing::TestWithParam<std::string> {
protected:
    const GoldenCompany company;

    // Each way to ask for it, plain and with a filter's text of several lines, in both dialects.
    std::vector<ReportRun> runs() const {
        std::vector<ReportRun> all;
        ListedMessages messages;
        SessionOptions options;
        options.company = company.path();
        HostSession session(options, messages);
        const auto columns =
            columnsOf(traitsOf(GetParam(), company.path()).filterTables, session.file().catalogue(), true);
        for (const auto& [name, run] : runsOf(GetParam(), company))
            for (const int dialect : {0, 1})
                for (const bool filtered : {false, true}) {
                    all.push_back(run);
                    all.back().dialect = dialect;
                    if (filtered)
                        filterBy(std::span(columns).first(std::min<std::size_t>(8, columns.size())), all.back());
                    if (GetParam() != "CashReceiptsSummary") continue;
                    all.push_back(all.back());
                    all.back().properties["IsWithPayments"] = "True";
                }
        return all;
    }
    void expectOfEachPage(const std::function<void(const Page&)>& expect) const {
        for (const ReportRun& run : runs()) {
            SCOPED_TRACE(run.member + (run.foreign ? ", foreign" : "") + (run.where.empty() ? "" : ", filtered") +
                         (run.settings.empty() ? "" : ", descriptions") + ", dialect " + std::to_string(run.dialect));
            auto result = runReport(run);
            // The profit reports tell of the one item that is gone.
            std::erase_if(result.boxes, [](const std::string& box) { return box.starts_with("There is no item"); });
            EXPECT_EQ(result.boxes, std::vector<std::string>{});
            ASSERT_GE(result.pageCount(), 1U);
            for (const auto& page : result.kept.pages) expect(*page);
        }
    }
    void expectOfEachSection(const std::function<void(const PlacedSection&, const std::vector<Print>&)>& expect) const {
        expectOfEachPage([&](const Page& page) {
            for (const PlacedSection& section : page.sections) expect(section, printsOf(page, section));
        });
    }
};

bool sees(const Print& print) {
    return !isText(*print.control) || !print.control->text.empty();
}

bool overlap(float from, float to, float otherFrom, float otherTo) {
    if (to < from) std::swap(from, to);
    if (to == from) return otherFrom + hair < from && from < otherTo - hair;
    if (otherTo == otherFrom) return overlap(otherFrom, otherTo, from, to);
    return std::min(to, otherTo) - std::max(from, otherFrom) > hair;
}

TEST_P(MemberLayout, OverprintsNothing) {
    expectOfEachSection([](const PlacedSection& section, const std::vector<Print>& prints) {
        for (std::size_t i = 0; i < prints.size(); ++i)
            for (std::size_t j = 0; j < i; ++j) {
                const Print &a = prints[i], &b = prints[j];
                if (!sees(a) || !sees(b)) continue;
                EXPECT_FALSE(overlap(a.left, a.right, b.left, b.right) && overlap(a.top, a.bottom, b.top, b.bottom))
                    << section.info->name << ": " << a.name() << " and " << b.name();
            }
    });
}

TEST_P(MemberLayout, StandsWithinThePrintableWidth) {
    expectOfEachPage([](const Page& page) {
        for (const PlacedSection& section : page.sections)
            for (const Print& print : printsOf(page, section)) {
                EXPECT_GE(print.left, -tolerance) << section.info->name << ": " << print.name();
                EXPECT_LE(print.right, page.setup.printableWidth() + tolerance)
                    << section.info->name << ": " << print.name();
            }
    });
}

// Labels that print what a row, the filter or the currencies say.
const Names labelsOfData = {
    "fldAdress", "fldTaxGroupId", "fldTermes", "fldLastSale", "fldShipAddr", "lblFilter", "lblPmtMethCap",
    "lblCurrencyName", "lbl1USDestEgalA", "lblEstEgalA", "lblForeignCurrency", "lblForeignTotalCap",
    "lblDateFromDateTo", "lblPer1Cap", "lblPer2Cap", "lblPer3Cap", "lblPer4Cap", "lblSubTotalForeign",
    "lblTotalCapForeign", "lblSubTotalEval", "lblCustInfo", "lblCustTotal", "lblCieAddress", "lblType", "lblPeriodName",
    "lblLastYear", "lblCurrYear", "lblLastYearLegend", "lblCurrYearLegend", "fldTotalLastYear", "fldTotalCurrentYear",
    "fldDiffMoney", "fldDiffPercentage", "lblTotalName", "txtDateTotal", "txtCurrTotal", "TotDate", "lblClient",
    "lblClientCap", "lblQtyTotal",
    // of the sales statistics: captions with a sign behind them, and all figures
    "lblMargeDolCap", "lblMargeCap", "lblQtyThisYear", "lblSalesThisYear", "lblPriceThisYear", "lblMargeDol1",
    "lblMarge1", "lblQtyLastYear", "lblSalesLastYear", "lblPriceLastYear", "lblMargeDol2", "lblMarge2",
    "lblQtyThisYearTot", "lblSalesThisYearTot", "lblTotalPriceCurrent", "lblTotalProfitCurrent",
    "lblTotalPercentCurrent", "lblQtyLastYearTot", "lblSalesLastYearTot", "lblTotalPriceLast", "lblTotalProfitLast",
    "lblTotalPercentLast"};

bool isHead(SectionKind kind) {
    return kind == SectionKind::pageHeader || kind == SectionKind::reportHeader;
}

// One name is that of a caption where it stands in a head.
bool printsData(const Print& print, const PlacedSection& section) {
    return labelsOfData.contains(print.name()) && !(print.name() == "lblType" && isHead(section.info->kind));
}

// With the language "ids" a caption is the number of a text, or several of them with a count or a mark: "#1898 2",
// "#4946 %"; or the mark of a balance.
TEST_P(MemberLayout, CaptionsAreTextsOfTheLanguage) {
    const std::regex caption(R"((\d+ )?(#\d+)( \d| [$%]|:|\(s\))?|[:+-]|DT|CT|\.\.)");
    expectOfEachSection([&](const PlacedSection& section, const std::vector<Print>& prints) {
        for (const Print& print : prints) {
            if (print.control->info->kind != ControlKind::label || printsData(print, section)) continue;
            const std::string text(print.control->text);
            EXPECT_TRUE(text.empty() || std::regex_match(text, caption))
                << section.info->name << ": " << print.name() << " prints \"" << text << "\"";
        }
    });
}

class Bindings {
public:
    explicit Bindings(Report& report) { watch(report); }

    std::map<std::string, bool> isColumn;  // whether the query, or the report itself, ever gave the column of a binding

private:
    // Looks whenever a section was formatted: by then the report has its rows, and its sub-reports theirs.
    void watch(Report& report) {
        for (const auto& section : report.sections())
            section->Format = [this, &report, before = std::move(section->Format)] {
                if (before) before();
                look(report);
            };
    }
    void look(Report& report) {
        for (const auto& section : report.sections()) {
            note(report, section->Name(), section->DataField);
            for (const auto& control : section->controls) {
                note(report, control->Name() + "'s link", control->LinkField);
                if (const auto* field = dynamic_cast<const Field*>(control.get());
                    field != nullptr && !field->OptionalColumn)
                    note(report, field->Name(), field->DataField);
                if (auto* inner = dynamic_cast<SubReport*>(control.get()); inner != nullptr && inner->Object)
                    look(*inner->Object);
            }
        }
    }
    void note(Report& report, const std::string& who, const std::string& source) {
        if (source.empty()) return;
        const DataControl* rows = report.dataControl();
        const bool hasRows = rows != nullptr && rows->Recordset != nullptr;
        if (!hasRows && !report.fetchData) return;  // not asked yet
        const Expression bound = Expression::compile(source);
        for (const Expression::Part& part : bound.parts())
            if (part.isColumn)
                isColumn[report.name() + ", " + who + ": " + part.text] |=
                    (hasRows && rows->Recordset->find(part.text) >= 0) || report.Fields.find(part.text) >= 0;
    }
};

TEST_P(MemberLayout, FieldsAreBoundToColumnsOfTheRows) {
    for (const auto& [name, run] : runsOf(GetParam(), company)) {
        std::unique_ptr<Bindings> bindings;
        ReportRun whole = run;
        if (GetParam() == "CashReceiptsSummary") whole.properties["IsWithPayments"] = "True";
        runReport(whole, [&](Report& report) { bindings = std::make_unique<Bindings>(report); });
        const bool binds = traitsOf(GetParam(), company.path()).rows && GetParam() != "CustAgingGraphic";
        EXPECT_NE(bindings->isColumn.empty(), binds);
        for (const auto& [binding, found] : bindings->isColumn) EXPECT_TRUE(found) << binding;
    }
}

// Whether a caption and a field share the better part of a column.
bool inOneColumn(const Print& field, const Print& caption) {
    const float shared = std::min(field.right, caption.right) - std::max(field.left, caption.left);
    return shared > std::min(field.right - field.left, caption.right - caption.left) / 2;
}

bool alignedAs(const Print& field, const Print& caption) {
    const Align align = field.control->style->align;
    if (align != caption.control->style->align) return false;
    return align == Align::right ? std::abs(field.right - caption.right) <= tolerance
                                 : std::abs(field.left - caption.left) <= tolerance;
}

// A fax behind a caption of its own, a company's own field with its name, and the text of a transaction, which has the
// rest of its line, and the name of a group behind its caption: they stand in no column. Units and sales of the
// statistics stand 75 left of their captions' edge.
const Names outOfColumn = {"txtFax",      "txtItem",        "lblClient",        "fldCaption",     "fldValue",
                           "fldDetDescr", "lblQtyThisYear", "lblSalesThisYear", "lblQtyLastYear", "lblSalesLastYear"};

bool isFoot(SectionKind kind) {
    return kind == SectionKind::groupFooter || kind == SectionKind::reportFooter;
}

class Columns {
public:
    // The sections of a page, or of a sub-report, whose captions stand in their own head.
    static void expectAligned(std::span<const PlacedSection> sections) {
        Columns columns;
        for (const PlacedSection& section : sections) columns.look(section);
    }

private:
    void look(const PlacedSection& section) {
        std::vector<Print> labels;
        for (const PlacedControl& control : section.controls) {
            const Print print = printOf(control, 0, 0);
            if (control.info->kind == ControlKind::label && !printsData(print, section))
                labels.push_back(print);
            else if (isText(control) && !isHead(section.info->kind))
                expectUnderCaption(print, section, labels);
            expectAligned(control.sections);
        }
        if (isHead(section.info->kind)) captions_ = labels;
    }
    // In a footer only amounts keep to a column, under the captions of the page or of the footer itself.
    void expectUnderCaption(const Print& field, const PlacedSection& section, const std::vector<Print>& own) const {
        const bool foot = isFoot(section.info->kind);
        if (outOfColumn.contains(field.name()) || (foot && field.control->style->align != Align::right)) return;
        std::vector<Print> over;
        const auto add = [&](const std::vector<Print>& captions) {
            for (const Print& caption : captions)
                if (inOneColumn(field, caption)) over.push_back(caption);
        };
        add(captions_);
        if (foot) add(own);
        const bool aligned = over.empty() || std::any_of(over.begin(), over.end(), [&](const Print& caption) {
                                 return alignedAs(field, caption);
                             });
        EXPECT_TRUE(aligned) << section.info->name << ": " << field.name() << " under " << over.front().name();
    }

    std::vector<Print> captions_;
};

TEST_P(MemberLayout, ColumnsAreAlignedAsTheirCaptions) {
    expectOfEachPage([](const Page& page) { Columns::expectAligned(page.sections); });
}

INSTANTIATE_TEST_SUITE_P(Members, MemberLayout, testing::ValuesIn(writtenMembers()),
                         [](const auto& member) { return member.param; });

}  // namespace
}  // namespace quillo::test
