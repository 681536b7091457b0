#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/fake_host.h"

// Small designs as text and reports over them, for tests of the engine.
namespace quillo::test {

using Rows = std::vector<std::vector<Variant>>;

// A report over a design of the test's own; events are set from outside.
class Sample final : public Report {
public:
    Sample(HostContext& context, std::string_view design) : Report("Sample", context, design) {}
    using Report::field;
    using Report::label;
    using Report::shape;
    using Report::subReport;
    std::function<void(Sample&)> start, end;
    void ActiveReport_ReportStart() override {
        if (start) start(*this);
    }
    void ActiveReport_ReportEnd() override {
        if (end) end(*this);
    }
};

// A page of 3000 twips with margins of 500: the body is 2000 high.
inline constexpr const char* smallPage =
    R"("page": {"width": 5000, "height": 3000, "left": 500, "right": 500, "top": 500, "bottom": 500})";

inline std::string design(const std::string& sections) {
    return std::string("{\"name\": \"Sample\", ") + smallPage + ", \"sections\": [" + sections + "]}";
}

inline std::string section(const std::string& name, const std::string& kind, int height,
                           const std::string& controls = "", const std::string& more = "") {
    return R"({"name": ")" + name + R"(", "kind": ")" + kind + R"(", "height": )" + std::to_string(height) +
           (more.empty() ? "" : ", " + more) + R"(, "controls": [)" + controls + "]}";
}

inline std::string bound(const std::string& name, const std::string& column, const std::string& more = "") {
    return R"({"kind": "Field", "name": ")" + name + R"(", "top": 0, "width": 1000, "height": 100, "dataField": ")" +
           column + "\"" + (more.empty() ? "" : ", " + more) + "}";
}

inline constexpr const char* dataControl = R"({"kind": "DataControl", "name": "rs"})";

struct Bench {
    FakeHost host;
    KeptPages pages;
    FixedMeasure measure;
    RunOptions options;

    std::shared_ptr<Sample> report(const std::string& text) { return std::make_shared<Sample>(host, text); }
    std::string run(Sample& report, bool geometry = false) {
        runReport(report, pages, measure, options);
        return describe(pages, geometry);
    }
    static std::shared_ptr<Recordset> rows(std::vector<std::string> columns, Rows values) {
        return std::make_shared<MemoryRecordset>(std::move(columns), std::move(values));
    }
};

}  // namespace quillo::test
