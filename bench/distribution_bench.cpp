#include "bench/distribution_bench.h"

#include <cstdio>
#include <memory>

#include "bench/bench_host.h"
#include "bench/measure.h"
#include "framework/engine/engine.h"
#include "output/font_measure.h"
#include "output/output_file.h"
#include "output/pdf/pdf_sink.h"

namespace quillo::bench {
namespace {

// The footer of a journal: two page breaks around nothing, and the distribution behind them.
constexpr std::string_view journalDesign = R"({
  "name": "Journal",
  "page": {"width": 12240, "height": 15840, "left": 720, "right": 720, "top": 1260, "bottom": 900},
  "sections": [
    {"name": "Detail", "kind": "detail", "height": 270, "controls": [
      {"kind": "Label", "name": "lblEntry", "left": 0, "top": 0, "width": 4000, "height": 240, "caption": "Entry"}]},
    {"name": "ReportFooter", "kind": "reportFooter", "height": 840, "keepTogether": false, "controls": [
      {"kind": "Label", "name": "lblGrandTotal", "left": 0, "top": 135, "width": 2880, "height": 240, "caption": "Grand-Total:"},
      {"kind": "PageBreak", "name": "PageBreak1", "left": 0, "top": 510},
      {"kind": "PageBreak", "name": "PageBreak2", "left": 0, "top": 525},
      {"kind": "SubReport", "name": "distribution", "left": 0, "top": 540, "width": 10800, "height": 300}]}
  ]})";

constexpr std::string_view distributionDesign = R"({
  "name": "Distribution",
  "page": {"width": 12240, "height": 15840, "left": 720, "right": 720, "top": 1260, "bottom": 900},
  "sections": [
    {"name": "ghGLAcct", "kind": "groupHeader", "height": 0, "dataField": "GLAcctId", "controls": []},
    {"name": "Detail", "kind": "detail", "height": 0, "controls": [{"kind": "DataControl", "name": "rs"}]},
    {"name": "gfGLAcct", "kind": "groupFooter", "height": 270, "controls": [
      {"kind": "Field", "name": "fldAccount", "left": 0, "top": 15, "width": 1440, "height": 240, "dataField": "GLAcctId"},
      {"kind": "Field", "name": "fldDescr", "left": 1500, "top": 15, "width": 5700, "height": 240, "dataField": "Descr", "canGrow": true},
      {"kind": "Field", "name": "sumDebit", "left": 7320, "top": 15, "width": 1680, "height": 240, "dataField": "Debit", "sum": "ghGLAcct", "format": "Currency", "align": "right"}]},
    {"name": "ReportFooter", "kind": "reportFooter", "height": 300, "controls": [
      {"kind": "Field", "name": "allDebit", "left": 7320, "top": 30, "width": 1680, "height": 240, "dataField": "Debit", "sum": "report", "format": "Currency", "align": "right"}]}
  ]})";

class Accounts final : public Recordset {
public:
    explicit Accounts(int count) : count_(count) {}
    bool atEnd() const override { return account_ >= count_; }
    void moveNext() override { ++account_; }
    int columnCount() const override { return 3; }
    std::string_view columnName(int column) const override {
        constexpr std::string_view names[] = {"GLAcctId", "Descr", "Debit"};
        return names[column];
    }
    ValueView value(int column) const override {
        if (column == 0) return ValueView::ofInt32(1000 + account_);
        if (column == 1) return ValueView::ofText("Sales - kitchens and counters");
        return ValueView::ofMoney(Money::fromInteger(account_ % 5000));
    }

private:
    int count_;
    int account_ = 0;
};

class Distribution final : public Report {
public:
    Distribution(HostContext& context, int accounts) : Report("Distribution", context, distributionDesign) {
        dataControl()->Recordset = std::make_shared<Accounts>(accounts);
    }
};

class JournalWithDistribution final : public Report {
public:
    JournalWithDistribution(HostContext& context, int accounts) : Report("Journal", context, journalDesign) {
        subReport("distribution").Object = std::make_shared<Distribution>(context, accounts);
        RemovesEmptyPages = true;  // as the journals have it: the empty page between the breaks goes
    }
};

}  // namespace

void printDistribution(int accounts, const std::string& file) {
    BenchHost host;
    FontMeasure measure;
    PdfOptions options;
    options.title = "Journal";
    PdfSink sink(std::make_unique<OutputFile>(file), options);
    JournalWithDistribution report(host, accounts);
    if (runReport(report, sink, measure) != RunEnd::done) throw std::runtime_error("the run was stopped");
}

void distributionBench() {
    const Folder folder;
    const std::string pdf = folder.file("distribution.pdf");
    constexpr long aim = 4096;
    const long few = peakMemory({"--distribution", "1000", pdf}), many = peakMemory({"--distribution", "100000", pdf});
    std::printf(
        "peak memory of a journal's distribution to PDF: %ld KiB at 1,000 accounts, %ld KiB at 100,000; difference %ld "
        "KiB (aim %ld) %s\n",
        few, many, many - few, aim, many - few <= aim ? "met" : "MISSED");
}

}  // namespace quillo::bench
