#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/page.h"
#include "framework/services/database.h"
#include "framework/values/locale_format.h"

// Sections and controls of a design as plain data that reports read and write. All measures are
// twips. What a report writes in a section's Format event holds for that print and for all later
// ones, until it is written again; what the engine grows holds for that one print. The engine keeps its own notes
// elsewhere (run_notes.h).
namespace quillo {

class Report;

struct Control {
    virtual ~Control() = default;

    ControlInfo info;
    bool Visible = true;
    bool OnlyInRepeats = false;  // of a repeating group header: prints where the header stands again, and takes no room
    float Left = 0, Top = 0, Width = 0, Height = 0;
    std::string Tag;
    std::string Hyperlink;  // the drill tag; empty: no link
    std::string LinkField;  // a column, or an expression: ="INV|" & [InInvoiId]; gives the Hyperlink for each print

    const std::string& Name() const { return info.name; }
    ControlKind kind() const { return info.kind; }
};

// How a text looks. Written as a style text ("font-size: 8pt; text-align: right; font-weight: bold;"), in
// which what is not named stays; throws InputError on a part that it does not know.
class StyleProperty {
public:
    StyleProperty& operator=(std::string_view css);
    const TextStyle& value() const { return value_; }
    TextStyle& edit() {
        ++version_;
        return value_;
    }
    // Grows with each change.
    unsigned version() const { return version_; }

private:
    TextStyle value_;
    unsigned version_ = 1;
};

struct TextControl : Control {
    StyleProperty Style;
    bool CanGrow = false;       // grows with its text and pushes down what stands below
    std::size_t MostLines = 0;  // a wrapped text of more lines ends in an ellipsis; 0: all lines
    void setAlignment(Align align) { Style.edit().align = align; }
};

struct Label : TextControl {
    std::string Caption;
};

enum class Running : std::uint8_t { none, group, all };

struct Field : TextControl {
    std::string Text;
    std::string DataField;  // a column, or an expression: =[A] & " - " & [B]; may be rebound at run time
    NumberFormat Format;
    bool IsSum = false;  // a sum of the column over a group or the report, kept by the engine
    Running SumRunning = Running::none;
    std::string SumGroup;         // name of the group's header; empty: over the report
    bool OptionalColumn = false;  // the rows may lack its column: the report fills it, or hides it
};

struct Line : Control {
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    float LineWidth = 10;
};

struct Shape : Control {
    float LineWidth = 10;
    std::optional<Color> BackColor;  // absent: what lies beneath shows through
};

struct SubReport : Control {
    std::shared_ptr<Report> Object;  // null prints nothing
    bool CanGrow = true;             // else what does not fit its height is lost
};

struct DataControl : Control {
    std::shared_ptr<quillo::Recordset> Recordset;
    // True when there is no row to read: no recordset, or it stands at its end.
    bool atEnd() const { return !Recordset || Recordset->atEnd(); }
    Variant Collect(std::string_view column) const;
};

// Breaks the page at its Top. It is never seen, so that only Enabled counts, not Visible.
struct PageBreak : Control {
    bool Enabled = true;
};

struct Image : Control {
    std::vector<std::byte> Picture;  // a PNG or JPEG file
};

// A formatted text of any length; a plain text looks as the control's style says.
struct RichEdit : TextControl {
    std::string RTF;  // or plain text
};

struct Chart : Control {
    ChartData Data;
};

namespace NewPage {
inline constexpr int none = 0, before = 1, after = 2, both = 3;
}

enum class GroupKeep : std::uint8_t { none, all, firstDetail };

struct Section {
    SectionInfo info;
    float Height = 0;
    bool Visible = true;
    int NewPage = NewPage::none;
    bool KeepTogether = true;  // not split over pages while it fits on one
    std::string DataField;     // of a group header; empty: breaks with its outer group
    bool Repeat = false;       // of a group header, or of a sub-report's header: stands again on each page that follows
    bool OnlyWithRows = false;  // of a group header: its group prints only if a row of it does
    bool UnderlayNext = false;  // of a group header: its group starts at its top, and ends below it
    GroupKeep GrpKeepTogether = GroupKeep::none;
    std::vector<std::unique_ptr<Control>> controls;

    const std::string& Name() const { return info.name; }
    SectionKind kind() const { return info.kind; }
    // Null when there is none of that name.
    Control* find(std::string_view name) const;
    // A control made at run time; its name is set by the caller through info.name.
    template <class T>
    T& add(std::string name);

    std::function<void()> Format;
    std::function<void()> AfterPrint;
};

template <class T>
struct KindOf;
template <>
struct KindOf<Label> {
    static constexpr auto kind = ControlKind::label;
};
template <>
struct KindOf<Field> {
    static constexpr auto kind = ControlKind::field;
};
template <>
struct KindOf<Line> {
    static constexpr auto kind = ControlKind::line;
};
template <>
struct KindOf<Shape> {
    static constexpr auto kind = ControlKind::shape;
};
template <>
struct KindOf<SubReport> {
    static constexpr auto kind = ControlKind::subReport;
};
template <>
struct KindOf<DataControl> {
    static constexpr auto kind = ControlKind::dataControl;
};
template <>
struct KindOf<PageBreak> {
    static constexpr auto kind = ControlKind::pageBreak;
};
template <>
struct KindOf<Image> {
    static constexpr auto kind = ControlKind::image;
};
template <>
struct KindOf<RichEdit> {
    static constexpr auto kind = ControlKind::richEdit;
};
template <>
struct KindOf<Chart> {
    static constexpr auto kind = ControlKind::chart;
};

template <class T>
T& Section::add(std::string name) {
    auto control = std::make_unique<T>();
    control->info = {std::move(name), KindOf<T>::kind};
    T& made = *control;
    controls.push_back(std::move(control));
    return made;
}

}  // namespace quillo
