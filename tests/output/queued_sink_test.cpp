#include "output/queued_sink.h"

#include <gtest/gtest.h>

#include <set>

#include "output/font_measure.h"
#include "output/output_error.h"
#include "output/page_frame.h"
#include "tests/output/output_files.h"
#include "tests/support/fake_host.h"

namespace quillo::test {
namespace {

constexpr const char* design = R"({"name": "Sample", "sections": [
  {"name": "PageHeader", "kind": "pageHeader", "height": 300, "controls": [
    {"kind": "Label", "name": "lblText", "width": 3000, "height": 240, "caption": "Text"}]},
  {"name": "Detail", "kind": "detail", "height": 300, "controls": [
    {"kind": "DataControl", "name": "rs"},
    {"kind": "Field", "name": "txtKey", "width": 900, "height": 240, "dataField": "Key"},
    {"kind": "Field", "name": "txtText", "left": 1000, "width": 2000, "height": 240, "dataField": "Text", "canGrow": true}]},
  {"name": "ReportFooter", "kind": "reportFooter", "height": 600, "controls": [
    {"kind": "PageBreak", "name": "pbFirst", "top": 0}, {"kind": "PageBreak", "name": "pbSecond", "top": 10},
    {"kind": "Label", "name": "lblEnd", "top": 20, "width": 3000, "height": 240, "caption": "End"}]}]})";

constexpr int rowCount = 3000;

// Rows that grow, each with a link; styles that keep coming, as reports make them; at the end an empty page goes.
class Sample final : public Report {
public:
    explicit Sample(HostContext& context) : Report("Sample", context, design) {
        std::vector<std::vector<Variant>> rows;
        for (int i = 0; i < rowCount; ++i)
            rows.push_back(
                {i, "row " + std::to_string(i) + (i % 7 == 0 ? " with more than one line holds, \xC3\xA9" : "")});
        dataControl()->Recordset =
            std::make_shared<MemoryRecordset>(std::vector<std::string>{"Key", "Text"}, std::move(rows));
        onFormat("Detail", &Sample::Detail_Format);
    }
    void ActiveReport_ReportStart() override { RemovesEmptyPages = true; }

private:
    void Detail_Format() {
        ++row_;
        field("txtKey").Hyperlink = "key|" + std::to_string(row_);
        field("txtText").Style.edit().color = {static_cast<std::uint8_t>(row_ / 20), 0, 0};
    }
    int row_ = 0;
};

RunEnd runSample(PageSink& sink, const RunOptions& options = {}) {
    FakeHost host;
    FontMeasure measure;
    Sample report(host);
    const RunEnd end = runReport(report, sink, measure, options);
    EXPECT_TRUE(host.boxes.empty()) << host.boxes.front();
    return end;
}

std::unique_ptr<PageSink> pdf(const std::string& path) {
    return std::make_unique<PdfSink>(std::make_unique<OutputFile>(path), PdfOptions());
}

std::unique_ptr<PageSink> queued(std::unique_ptr<PageSink> inner) {
    return std::make_unique<QueuedSink>(std::move(inner));
}

std::string bytesOf(std::unique_ptr<PageSink> sink, const std::string& path) {
    FontMeasure measure;
    PageFrame framed(std::move(sink), {"Nordiques inc.", "Sample", "Printed on 2024-03-31", "Page", "of"}, measure);
    EXPECT_EQ(runSample(framed), RunEnd::done);
    return read(path);
}

TEST(QueuedSink, GivesTheSameBytes) {
    const TestFolder folder;
    const std::string path = folder.file("a.pdf");
    const std::string direct = bytesOf(pdf(path), path);
    EXPECT_GT(direct.size(), 10000U);
    EXPECT_TRUE(bytesOf(queued(pdf(path)), path) == direct);
    EXPECT_EQ(folder.count(), 1U);
}

// Looks at pages until one too many comes.
class Watcher final : public PageSink {
public:
    Watcher(std::set<const Page*>& rooms, int last) : rooms_(rooms), last_(last) {}
    void page(const Page& page) override {
        if (page.number > last_) throw OutputError("the disk is full");
        rooms_.insert(&page);
    }

private:
    std::set<const Page*>& rooms_;
    int last_;
};

TEST(QueuedSink, HoldsFewPagesAndUsesTheirRoomAgain) {
    std::set<const Page*> rooms;
    QueuedSink sink(std::make_unique<Watcher>(rooms, rowCount));
    EXPECT_EQ(runSample(sink), RunEnd::done);
    EXPECT_GT(rooms.size(), 0U);
    EXPECT_LE(rooms.size(), 24U) << "those that wait, and those that the engine works on";
}

TEST(QueuedSink, AFailureEndsTheRunWithTheSameException) {
    std::set<const Page*> rooms;
    QueuedSink early(std::make_unique<Watcher>(rooms, 3));
    try {
        runSample(early);
        ADD_FAILURE() << "the run went on";
    } catch (const OutputError& failure) {
        EXPECT_STREQ(failure.what(), "the disk is full");
    }
    QueuedSink late(pdf("/dev/full"));  // fails when it is written at the end, if not before
    EXPECT_THROW(runSample(late), OutputError);
    QueuedSink behindTheLastPage(std::make_unique<Watcher>(rooms, 0));
    behindTheLastPage.page(test::PageBuilder(1).page());
    EXPECT_THROW(behindTheLastPage.finish(), OutputError) << "also when no page follows";
}

TEST(QueuedSink, AStopOrAnAbandonedRunLeavesNothingBehind) {
    const TestFolder folder;
    {
        QueuedSink sink(pdf(folder.file("a.pdf")));
        RunOptions options;
        options.proceed = [](const Progress& progress) { return progress.pages < 20; };
        EXPECT_EQ(runSample(sink, options), RunEnd::stopped);
    }
    {
        QueuedSink sink(pdf(folder.file("b.pdf")));
        for (int number = 1; number <= 20; ++number) {
            PageBuilder builder(number);
            builder.section(240).text("Body");
            sink.page(builder.page());
        }
    }
    { const QueuedSink unused(pdf(folder.file("c.pdf"))); }
    EXPECT_EQ(folder.count(), 0U);
}

}  // namespace
}  // namespace quillo::test
