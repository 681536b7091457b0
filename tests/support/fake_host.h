#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/engine/engine.h"
#include "framework/services/services.h"
#include "framework/values/errors.h"

// A host without a company, for tests of the engine and of what lies above it: texts are "#id", failures are kept
// in a list, and what a test does not set is refused.
namespace quillo::test {

class MemoryRecordset final : public Recordset {
public:
    MemoryRecordset(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows)
        : columns_(std::move(columns)), rows_(std::move(rows)) {}
    bool atEnd() const override { return at_ >= rows_.size(); }
    void moveNext() override { ++at_; }
    int columnCount() const override { return static_cast<int>(columns_.size()); }
    std::string_view columnName(int column) const override { return columns_[static_cast<std::size_t>(column)]; }
    ValueView value(int column) const override {
        if (atEnd()) throw DatabaseError("The recordset is at its end");
        return rows_[at_][static_cast<std::size_t>(column)].view();
    }

private:
    std::vector<std::string> columns_;
    std::vector<std::vector<Variant>> rows_;
    std::size_t at_ = 0;
};

class FakeHost final : public HostContext, public Messages {
public:
    std::vector<std::string> boxes;
    LocaleFormat format;

    Company& company() override { throw NameError("This host has no company"); }
    std::string GetText(int id) const override { return "#" + std::to_string(id); }
    std::string GetMessage(int number, std::string_view, const std::vector<std::string>&) const override {
        return "#" + std::to_string(number);
    }
    const LocaleFormat& locale() const override { return format; }
    const ReportUtils& utils() const override { throw NameError("This host has no utilities"); }
    ReportLocalizer& localizer() override { throw NameError("This host translates nothing"); }
    FilterInfoFiller& filterInfoFiller() override { throw NameError("This host fills no filter text"); }
    Messages& messages() override { return *this; }
    void Show(std::string_view text) override { boxes.emplace_back(text); }
};

// Every letter is 100 twips wide and every line 200 high.
class FixedMeasure final : public TextMeasure {
public:
    float lineHeight(const TextStyle&) override { return 200; }
    float width(std::string_view text, const TextStyle&) override { return 100.0F * static_cast<float>(text.size()); }
    void breakLines(std::string_view text, const TextStyle&, float width, std::vector<std::uint32_t>& starts) override {
        const auto letters = std::max<std::size_t>(1, static_cast<std::size_t>(width / 100));
        for (std::size_t at = 0; at < text.size(); at += letters) starts.push_back(static_cast<std::uint32_t>(at));
    }
};

class KeptPages final : public PageSink {
public:
    std::vector<std::shared_ptr<const Page>> pages;
    bool finished = false;
    void page(const Page& page) override { pages.push_back(page.clone()); }
    void finish() override { finished = true; }
};

// One line a section: "Detail@1440 +300: name=text ..."; controls of sub-reports in brackets.
inline std::string describe(const PlacedSection& section, bool geometry) {
    std::string line = section.info->name;
    if (geometry)
        line += "@" + std::to_string(static_cast<int>(section.top)) + "+" +
                std::to_string(static_cast<int>(section.height));
    for (const PlacedControl& control : section.controls) {
        if (control.info->kind == ControlKind::subReport) {
            line += " [";
            for (const PlacedSection& inner : control.sections)
                line += (line.back() == '[' ? "" : " | ") + describe(inner, geometry);
            line += "]";
        } else {
            line += " " + std::string(control.text);
            if (geometry) line += "@" + std::to_string(static_cast<int>(control.top));
        }
    }
    return line;
}

// All pages as text, a line a section, "-- n" in front of each page.
inline std::string describe(const KeptPages& kept, bool geometry = false) {
    std::string text;
    for (const auto& page : kept.pages) {
        text += "-- " + std::to_string(page->number) + "\n";
        for (const PlacedSection& section : page->sections) text += describe(section, geometry) + "\n";
    }
    return text;
}

}  // namespace quillo::test
