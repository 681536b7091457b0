#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/services/services.h"

namespace quillo {

class RunNotes;

// Columns that a report fills by hand in ActiveReport_FetchData.
class UnboundFields {
public:
    struct UnboundField {
        std::string name;
        Variant Value;
    };
    // A field of that name that is there already stays, without its value.
    UnboundField& Add(std::string name);
    // Throws NameError when there is none.
    UnboundField& Item(std::string_view name);
    int find(std::string_view name) const;
    const UnboundField& at(int index) const { return fields_[static_cast<std::size_t>(index)]; }

private:
    std::deque<UnboundField> fields_;
};

// What a Format event may ask of the engine: both skipRow and dropRow give up the row, which then leaves no trace.
namespace LayoutActions {
inline constexpr int normal = 7, skipRow = 2, dropRow = 4;
}

// A design and the events that give it life. A report is made for one run of one company and belongs to
// the host that asked for it; it must not outlive the context. One thread at a time.
//
// Order of events: ActiveReport_ReportStart; ActiveReport_DataInitialize and ActiveReport_FetchData in reports that
// feed their rows by hand; the sections' Format and AfterPrint; ActiveReport_ReportEnd. The constructor stands for
// ActiveReport_Initialize, the destructor for ActiveReport_Terminate.
class Report {
public:
    virtual ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    const std::string& name() const { return name_; }
    HostContext& context() const { return context_; }

    PageSetup setup;
    // In the order of print: ReportHeader, PageHeader, group headers, Detail, group footers, PageFooter, ReportFooter.
    const std::vector<std::unique_ptr<Section>>& sections() const { return sections_; }
    // Throws NameError, naming the report.
    Section& section(std::string_view name) const;
    // A section made at run time, before the first row; type: groupHeader or groupFooter; index: its place.
    Section& addSection(std::string name, SectionKind type, int index, float height);
    UnboundFields Fields;
    int LayoutAction = LayoutActions::normal;
    bool drops() const { return LayoutAction == LayoutActions::skipRow || LayoutAction == LayoutActions::dropRow; }
    // True takes out the empty pages that several page breaks in a row leave, as they come, so that none of the pages
    // behind them waits for the report's end.
    bool RemovesEmptyPages = false;

    virtual void ActiveReport_ReportStart() {}
    virtual void ActiveReport_DataInitialize() {}
    virtual void ActiveReport_ReportEnd() {}

    // Sets a public property by name ("InvoiceType"). Throws NameError with the names that there are.
    void setProperty(std::string_view property, const Variant& value);
    std::vector<std::string> propertyNames() const;

    // Shows the box of a failed step; the run goes on. line 0: a failure that the engine found, which has none.
    void showFailure(std::string_view description, std::string_view procedure, int line) const;

    // The engine's: fetches the next hand-fed row, or is told of the next row of the recordset. eof comes in as
    // whether the rows are at their end; true on return ends them.
    std::function<void(bool& eof)> fetchData;
    // The engine's notes of its last run.
    std::shared_ptr<RunNotes> notes;
    // The data control whose rows the engine walks; null when the design has none.
    DataControl* dataControl() const;

protected:
    // Takes the library's design of that name.
    Report(std::string name, HostContext& context);
    // Takes a design text, for reports that are no part of the library.
    Report(std::string name, HostContext& context, std::string_view design);

    // Controls by name, for the whole life of the report. Throw NameError when the design has none of that
    // name and kind.
    Label& label(std::string_view name) const { return control<Label>(name); }
    Field& field(std::string_view name) const { return control<Field>(name); }
    Line& line(std::string_view name) const { return control<Line>(name); }
    Shape& shape(std::string_view name) const { return control<Shape>(name); }
    SubReport& subReport(std::string_view name) const { return control<SubReport>(name); }
    DataControl& data(std::string_view name) const { return control<DataControl>(name); }
    template <class T>
    T& control(std::string_view name) const {
        return static_cast<T&>(controlOf(name, KindOf<T>::kind));
    }

    // Binds an event, behind those that are bound already; throws NameError when the design lacks the section.
    template <class R>
    void onFormat(std::string_view sectionName, void (R::*handler)()) {
        bind(section(sectionName).Format, handler);
    }
    template <class R>
    void onAfterPrint(std::string_view sectionName, void (R::*handler)()) {
        bind(section(sectionName).AfterPrint, handler);
    }
    template <class R>
    void onFetchData(void (R::*handler)(bool& eof)) {
        fetchData = [this, handler](bool& eof) { (static_cast<R*>(this)->*handler)(eof); };
    }

    // Makes a field of the report a public property.
    void property(std::string name, std::function<void(const Variant&)> set);
    // A key or a choice, which no text with decimals is. Throws ConversionError.
    static int wholeNumber(const Variant& value);
    void property(std::string name, bool& target) {
        property(std::move(name), [&target](const Variant& v) { target = v.toBool(); });
    }
    void property(std::string name, int& target) {
        property(std::move(name), [&target](const Variant& v) { target = wholeNumber(v); });
    }
    void property(std::string name, std::string& target) {
        property(std::move(name), [&target](const Variant& v) { target = v.toText(); });
    }

private:
    template <class R>
    void bind(std::function<void()>& event, void (R::*handler)()) {
        event = [this, before = std::move(event), handler] {
            if (before) before();
            (static_cast<R*>(this)->*handler)();
        };
    }
    Control& controlOf(std::string_view name, ControlKind kind) const;
    std::string name_;
    HostContext& context_;
    std::vector<std::unique_ptr<Section>> sections_;
    struct Property {
        std::string name;
        std::function<void(const Variant&)> set;
    };
    std::vector<Property> properties_;
};

}  // namespace quillo
