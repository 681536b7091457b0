#include "framework/engine/layout.h"

#include <algorithm>
#include <cmath>

#include "framework/engine/chart_layout.h"
#include "framework/engine/push_down.h"
#include "framework/engine/rich_layout.h"
#include "framework/richtext/rtf_reader.h"
#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr std::size_t longestText = 10000;  // lines
constexpr float mostOfPage = 0.5F;          // for a picture within a text, so that it fits wherever the text is split

// Lays out the controls of one section.
class SectionLayout {
public:
    SectionLayout(const Section& section, const LayoutRoom& room)
        : section_(section), room_(room), notes_(room.notes.of(section)) {}

    LaidOut run() {
        result_.placed.info = notes_.info;
        result_.placed.width = room_.width;
        result_.placed.height = checkedHeight();
        result_.flowing = room_.flows ? lastSubReport() : nullptr;
        placeControls();
        placeMarks();
        collectBreaks();
        if (grown_ || holdsReport_) {
            pushGrown();
            growSection();
        }
        finish();
        return result_;
    }

private:
    float checkedHeight() const {
        if (section_.Height >= 0 && std::isfinite(section_.Height)) return section_.Height;
        room_.report.showFailure(
            "A section cannot be " + Variant(static_cast<double>(section_.Height)).toText() + " twips high",
            section_.Name() + "_Format", 0);
        return 0;
    }

    static bool isPrinted(const Control& control) {
        return control.Visible && !control.OnlyInRepeats && control.kind() != ControlKind::dataControl &&
               control.kind() != ControlKind::pageBreak;
    }

    bool hasPlace(const Control& control) const {
        const auto& line = static_cast<const Line&>(control);
        const bool known = control.kind() == ControlKind::line
                               ? std::isfinite(line.X1 + line.X2 + line.Y1 + line.Y2)
                               : std::isfinite(control.Left + control.Top + control.Width + control.Height);
        if (!known)
            room_.report.showFailure("A control without a place is left out",
                                     section_.Name() + "_Format, control " + control.Name(), 0);
        return known;
    }

    // The sub-report that may run while its rows go to the pages: the only control that reaches as far down as it does.
    const SubReport* lastSubReport() const {
        const SubReport* last = nullptr;
        for (const auto& control : section_.controls) {
            if (!isPrinted(*control) || control->kind() != ControlKind::subReport) continue;
            const auto& sub = static_cast<const SubReport&>(*control);
            if (sub.Object && sub.CanGrow && (last == nullptr || sub.Top > last->Top)) last = &sub;
        }
        if (last == nullptr) return nullptr;
        for (const auto& control : section_.controls) {
            if (control.get() == last || control->kind() == ControlKind::dataControl) continue;
            if (control->kind() == ControlKind::pageBreak ? control->Top > last->Top
                                                          : isPrinted(*control) && designBottom(*control) > last->Top)
                return nullptr;
        }
        return last;
    }

    static float designBottom(const Control& control) {
        if (control.kind() != ControlKind::line) return control.Top + std::max(control.Height, 0.0F);
        const auto& line = static_cast<const Line&>(control);
        return std::max(line.Y1, line.Y2);
    }

    void placeControls() {
        const auto count = static_cast<std::size_t>(std::count_if(section_.controls.begin(), section_.controls.end(),
                                                                  [](const auto& c) { return isPrinted(*c); }));
        const auto controls = room_.arena.array<PlacedControl>(count);
        std::size_t next = 0;
        for (std::size_t i = 0; i < section_.controls.size(); ++i) {
            Control& control = *section_.controls[i];
            if (!isPrinted(control)) continue;
            if (&control == result_.flowing) {
                flowFrom(control, notes_.controls[i]);
            } else if (hasPlace(control)) {
                PlacedControl& placed = *new (&controls[next++]) PlacedControl();
                placed.info = notes_.controls[i].info;
                place(control, notes_.controls[i], placed);
                note(control, placed);
            }
        }
        controls_ = controls.first(next);
        result_.placed.controls = controls_;
    }

    void placeMarks() {
        std::vector<PlacedControl> marks;
        for (std::size_t i = 0; i < section_.controls.size(); ++i) {
            Control& control = *section_.controls[i];
            if (!control.OnlyInRepeats || !control.Visible) continue;
            PlacedControl& mark = marks.emplace_back();
            mark.info = notes_.controls[i].info;
            place(control, notes_.controls[i], mark);
        }
        if (!marks.empty()) result_.inRepeats = room_.arena.keep(marks);
    }

    void flowFrom(const Control& control, const ControlNotes& notes) {
        result_.flowInfo = notes.info;
        result_.flowTop = std::max(control.Top, 0.0F);
        designBottom_ = std::max(designBottom_, designBottom(control));
        result_.flowRoom = std::max(0.0F, result_.placed.height - designBottom_);
    }

    static float designHeight(const Control& control, const PlacedControl& placed) {
        return std::max(control.kind() == ControlKind::line ? placed.height : control.Height, 0.0F);
    }

    void note(const Control& control, const PlacedControl& placed) {
        const float height = designHeight(control, placed);
        designBottom_ = std::max(designBottom_, placed.top + height);
        grown_ = grown_ || placed.height > height;
        holdsReport_ = holdsReport_ || control.kind() == ControlKind::subReport;
    }

    void pushGrown() {
        std::vector<Extent> extents;
        std::size_t next = 0;
        for (std::size_t i = 0; i < section_.controls.size() && next < controls_.size(); ++i) {
            PlacedControl& placed = controls_[next];
            if (placed.info != notes_.controls[i].info) continue;
            const float height = designHeight(*section_.controls[i], placed);
            extents.push_back({placed.top, placed.top + height, placed.height - height, &placed.top});
            ++next;
        }
        for (float& top : breaks_) extents.push_back({top, top, 0, &top});
        extents.push_back({result_.flowTop, result_.flowTop, 0, &result_.flowTop});
        pushDown(extents);
    }

    void collectBreaks() {
        const auto isBreak = [](const auto& control) {
            return control->kind() == ControlKind::pageBreak && static_cast<const PageBreak&>(*control).Enabled;
        };
        const auto count = std::count_if(section_.controls.begin(), section_.controls.end(), isBreak);
        breaks_ = room_.arena.array<float>(static_cast<std::size_t>(count));
        std::size_t next = 0;
        for (const auto& control : section_.controls) {
            if (isBreak(control)) breaks_[next++] = std::max(control->Top, 0.0F);
        }
    }

    // The room that the design leaves below its last control stays.
    void growSection() {
        float bottom = 0;
        for (const PlacedControl& control : controls_) bottom = std::max(bottom, bottomOf(control));
        PlacedSection& placed = result_.placed;
        placed.height = std::max(placed.height, bottom + std::max(0.0F, placed.height - designBottom_));
    }

    void finish() {
        for (const PlacedControl& control : controls_)
            if (bottomOf(control) > result_.placed.height && shows(control)) result_.placed.height = bottomOf(control);
        std::sort(breaks_.begin(), breaks_.end());
        result_.breaks = breaks_;
    }

    void placeText(TextControl& control, ControlNotes& notes, const std::string& text, PlacedControl& placed) {
        RunState& run = room_.run;
        placed.style = room_.notes.style(control, notes);
        placed.text = room_.arena.text(text);
        if (!placed.style->wrap || text.empty()) return;
        run.lineStarts.clear();
        run.measure.breakLines(text, *placed.style, control.Width, run.lineStarts);
        if (const std::size_t most = mostLines(control, run.lineStarts.size()); most < run.lineStarts.size())
            cutBehind(most, control, text, placed);
        placed.lines = room_.arena.keep(run.lineStarts);
        if (!control.CanGrow) return;
        const float lines = static_cast<float>(run.lineStarts.size());
        placed.height = std::max(placed.height, lines * run.measure.lineHeight(*placed.style));
    }

    // Lines of a text that print. One that would fill pages by the hundred is damage, and is told.
    std::size_t mostLines(const TextControl& control, std::size_t lines) const {
        if (control.MostLines > 0) return control.MostLines;
        if (lines > longestText)
            room_.report.showFailure("A text has " + std::to_string(lines) + " lines, of which the first " +
                                         std::to_string(longestText) + " print",
                                     section_.Name() + "_Format, control " + control.Name(), 0);
        return longestText;
    }

    // Ends the text in an ellipsis on the last line that it may have, behind a whole word where there is one.
    void cutBehind(std::size_t most, const TextControl& control, std::string_view text, PlacedControl& placed) {
        constexpr std::string_view blanks = " \t\r\n", ellipsis = "\xE2\x80\xA6";
        RunState& run = room_.run;
        const std::size_t start = run.lineStarts[most - 1];
        std::size_t end = run.lineStarts[most];
        run.lineStarts.resize(most);
        const auto lineWith = [&](std::size_t to) {
            const std::size_t last = text.substr(0, to).find_last_not_of(blanks);
            return std::string(text.substr(start, last == text.npos || last < start ? 0 : last + 1 - start))
                .append(ellipsis);
        };
        std::string line = lineWith(end);
        while (end > start && run.measure.width(line, *placed.style) > control.Width) {
            const std::size_t blank = text.substr(0, text.find_last_not_of(blanks, end - 1)).find_last_of(blanks);
            end = blank == text.npos || blank < start ? startOfCharacter(text, start + (end - start) / 2) : blank;
            line = lineWith(end);
        }
        placed.text = room_.arena.text(std::string(text.substr(0, start)) + line);
    }

    // Laid out as a sub-report is. Without room to grow, lines that do not fit are lost.
    void placeRichText(const RichEdit& control, ControlNotes& notes, PlacedControl& placed) {
        placed.style = room_.notes.style(control, notes);
        const PageSetup& page = room_.report.setup;
        const float mostHeight = (page.height - page.topMargin - page.bottomMargin) * mostOfPage;
        placed.sections =
            layOutRichText(readRichText(control.RTF, *placed.style),
                           {room_.notes.names(), room_.arena, room_.run.measure, control.Width, mostHeight});
        if (control.CanGrow) {
            placed.height = std::max(placed.height, stackedHeight(placed.sections));
        } else {
            const auto fits = [&](const PlacedSection& line) { return line.top + line.height <= placed.height; };
            const auto end = std::find_if_not(placed.sections.begin(), placed.sections.end(), fits);
            placed.sections = placed.sections.first(static_cast<std::size_t>(end - placed.sections.begin()));
        }
    }

    void placeSubReport(const SubReport& control, PlacedControl& placed) {
        if (!control.Object) return;
        const auto& filled = room_.run.filled;
        const auto known =
            std::find_if(filled.begin(), filled.end(), [&](const auto& entry) { return entry.first == &control; });
        placed.sections =
            known != filled.end() ? known->second : room_.run.nested->run(*control.Object, control.Width, room_.arena);
        if (control.CanGrow) placed.height = std::max(placed.height, stackedHeight(placed.sections));
    }

    void placeChart(const Chart& control, PlacedControl& placed) {
        placed.chart = room_.notes.names().chart(control.Data);
        placed.sections = layOutChart(control.Data, {room_.notes.names(), room_.arena, room_.run.measure,
                                                     room_.report.context().locale(), placed.width, placed.height});
    }

    static void placeLine(const Line& line, PlacedControl& placed) {
        placed.left = line.X1;
        placed.top = std::max(line.Y1, 0.0F);
        placed.width = line.X2 - line.X1;
        placed.height = std::max(line.Y2, 0.0F) - placed.top;
        placed.lineWidth = line.LineWidth;
    }

    void place(Control& control, ControlNotes& notes, PlacedControl& placed) {
        placed.left = control.Left;
        placed.top = std::max(control.Top, 0.0F);
        placed.width = control.Width;
        placed.height = std::max(control.Height, 0.0F);
        placed.link = room_.arena.text(control.Hyperlink);
        switch (control.kind()) {
            case ControlKind::label:
                return placeText(static_cast<Label&>(control), notes, static_cast<Label&>(control).Caption, placed);
            case ControlKind::field:
                return placeText(static_cast<Field&>(control), notes, static_cast<Field&>(control).Text, placed);
            case ControlKind::richEdit:
                return placeRichText(static_cast<const RichEdit&>(control), notes, placed);
            case ControlKind::line:
                return placeLine(static_cast<const Line&>(control), placed);
            case ControlKind::shape:
                placed.lineWidth = static_cast<const Shape&>(control).LineWidth;
                placed.fill = static_cast<const Shape&>(control).BackColor;
                return;
            case ControlKind::subReport:
                return placeSubReport(static_cast<const SubReport&>(control), placed);
            case ControlKind::image:
                placed.picture = room_.notes.names().picture(static_cast<const Image&>(control).Picture);
                return;
            case ControlKind::chart:
                return placeChart(static_cast<const Chart&>(control), placed);
            case ControlKind::dataControl:
            case ControlKind::pageBreak:
            case ControlKind::sector:
                return;
        }
    }

    const Section& section_;
    const LayoutRoom& room_;
    SectionNotes& notes_;
    LaidOut result_;
    std::span<PlacedControl> controls_;
    std::span<float> breaks_;
    float designBottom_ = 0;  // of the lowest control, before anything grew
    bool grown_ = false;
    bool holdsReport_ = false;  // a section grows to hold the whole of its sub-reports and what stands beside them
};

}  // namespace

float bottomOf(const PlacedControl& control) {
    return control.top + std::max(control.height, 0.0F);
}

float stackedHeight(std::span<const PlacedSection> sections) {
    return sections.empty() ? 0 : sections.back().top + sections.back().height;
}

LaidOut layOut(const Section& section, const LayoutRoom& room) {
    return SectionLayout(section, room).run();
}

}  // namespace quillo
