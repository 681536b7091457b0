#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The pages that a run gives: plain data, measured in twips (1440 to the inch) from the page's left
// top corner. Every output is a walk over these.
namespace quillo {

enum class Align : std::uint8_t { left, center, right, justify };
enum class VerticalAlign : std::uint8_t { top, middle, bottom };

struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

struct TextStyle {
    std::string family = "Liberation Sans";
    float size = 9;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool wrap = false;  // breaks into lines; else one line that output narrows to its box when too wide
    Align align = Align::left;
    VerticalAlign verticalAlign = VerticalAlign::top;
    Color color;
    std::optional<Color> fill;  // background of the box
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

enum class SectionKind : std::uint8_t {
    reportHeader,
    pageHeader,
    groupHeader,
    detail,
    groupFooter,
    pageFooter,
    reportFooter
};
enum class ControlKind : std::uint8_t {
    label,
    field,
    line,
    shape,
    subReport,
    dataControl,
    pageBreak,
    image,
    richEdit,
    chart,
    sector  // made by the layout of charts alone
};

std::string_view nameOf(SectionKind kind);  // "pageHeader", ... as designs write it
std::string_view nameOf(ControlKind kind);  // "Label", ... as designs write it

// What does not change from row to row, kept once for a run.
struct SectionInfo {
    std::string name;
    SectionKind kind = SectionKind::detail;
    int level = 0;          // depth of the group, 1 the outermost; 0 for other sections
    bool bookmark = false;  // a group header that the document's outline lists
    std::optional<Color> fill;
    bool repeat = false;    // a heading that stands again on each page that follows
    bool keepNext = false;  // stays on the page of what stands below it in its sub-report
};

struct ControlInfo {
    std::string name;
    ControlKind kind = ControlKind::label;
    bool notInRepeats = false;   // of a repeating group header: prints where the header stands first, and only there
    bool thenPageCount = false;  // behind its text stands the number of pages, where the output knows it in the end
};

enum class ChartKind : std::uint8_t { bars, pie };

std::string_view nameOf(ChartKind kind);  // "bars", "pie"

// Bars stand in groups, a bar of each series over one label; a pie shows the first series.
struct ChartData {
    std::string title;
    struct Point {
        std::string label;
        double value = 0;
        std::optional<Color> color{};  // absent: its series' own, or for a slice the palette's
    };
    struct Series {
        std::string name;
        std::vector<Point> points;
        std::optional<Color> color{};  // absent: the palette's
    };
    std::vector<Series> series;
    ChartKind kind = ChartKind::bars;
    bool legend = false;  // the names of the series, of a pie those of its points
};

struct PlacedSection;

// One visible control. Left and top count from its section's corner. A Line runs from (left, top) to
// (left + width, top + height), where width and height may be negative or 0.
struct PlacedControl {
    const ControlInfo* info = nullptr;
    const TextStyle* style = nullptr;
    float left = 0, top = 0, width = 0, height = 0;
    std::string_view text;
    std::string_view link;                    // the drill tag, unchanged; empty: none
    std::span<const std::uint32_t> lines;     // byte offsets at which the lines of a wrapped text start
    std::span<const PlacedSection> sections;  // of a SubReport, a RichEdit, a Chart; tops count from the control's
    const ChartData* chart = nullptr;
    std::span<const std::byte> picture;  // of an Image: the file's bytes (PNG or JPEG), at one address for a whole run
    float lineWidth = 10;                // twips, of a Line or a Shape; 0: no line
    std::optional<Color> fill;           // of a Shape or a Sector
    // Of a Sector of the circle that its box holds: degrees clockwise from the top.
    float startAngle = 0, sweep = 0;
};

struct PlacedSection {
    const SectionInfo* info = nullptr;
    float left = 0, top = 0, width = 0, height = 0;  // from the page's corner, or the sub-report's
    bool continued = false;                          // the rest of a section that began on the page before
    bool repeat = false;                             // a heading that printed before and stands here again
    std::span<const PlacedControl> controls;
};

// Memory that is given out in pieces and taken back all at once.
class Arena {
public:
    template <class T>
    std::span<T> array(std::size_t count) {
        return {static_cast<T*>(allocate(count * sizeof(T), alignof(T))), count};
    }
    std::string_view text(std::string_view source);
    // A copy of values that need no destructor.
    template <class T>
    std::span<const T> keep(const std::vector<T>& values) {
        const auto copy = array<T>(values.size());
        std::uninitialized_copy(values.begin(), values.end(), copy.begin());
        return copy;
    }
    // Gives back all but the room itself.
    void clear();
    std::size_t capacity() const;

private:
    void* allocate(std::size_t bytes, std::size_t alignment);
    struct Chunk {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size = 0;
    };
    std::vector<Chunk> chunks_;
    std::size_t current_ = 0;
    std::size_t used_ = 0;
};

// Styles, names, charts and pictures that pages point into: kept until the last page that uses them is gone. An entry
// never moves nor changes, so that another thread may read those of its pages while the run adds new ones.
class RunNames {
public:
    const TextStyle* style(const TextStyle& style);
    const SectionInfo* section(const SectionInfo& info);
    const ControlInfo* control(const ControlInfo& info);
    const ChartData* chart(const ChartData& chart);
    // The same bytes are kept once.
    std::span<const std::byte> picture(std::span<const std::byte> file);

private:
    std::vector<std::unique_ptr<TextStyle>> styles_;
    std::vector<std::unique_ptr<SectionInfo>> sections_;
    std::vector<std::unique_ptr<ControlInfo>> controls_;
    std::vector<std::unique_ptr<ChartData>> charts_;
    std::vector<std::vector<std::byte>> pictures_;
};

struct PageSetup {
    float width = 12240, height = 15840;  // letter; twips, as printed (a landscape page is wider than high)
    float leftMargin = 720, rightMargin = 720, topMargin = 1080, bottomMargin = 900;
    float printableWidth() const { return width - leftMargin - rightMargin; }
};

// One finished page. It owns its texts and shares the names.
struct Page {
    int number = 0;  // 1 for the first page
    PageSetup setup;
    std::vector<PlacedSection> sections;  // in print order
    Arena arena;
    std::shared_ptr<RunNames> names;

    std::unique_ptr<Page> clone() const;
    // Empties the page for another run of sections; its room stays.
    void clear() {
        sections.clear();
        arena.clear();
    }
};

// Copies a section with all that it points to into an arena.
PlacedSection copySection(const PlacedSection& section, Arena& arena);

// Whether anything of it can be seen: a text, a line, a box, a picture, a filled ground, or such a thing other than a
// heading that stands again in a
// sub-report.
bool shows(const PlacedControl& control);
bool shows(const PlacedSection& section);

// Takes pages as soon as they can no longer change, in page order; finish() is called once, after a run that came to
// its end; a sink that is destroyed without finish() leaves nothing behind.
class PageSink {
public:
    virtual ~PageSink() = default;
    // A page to look at during the call; what keeps it longer takes a copy by clone().
    virtual void page(const Page& page) = 0;
    // The same for a page that may be kept. Gives back a page whose room can be used again, this one or one that came
    // before; null when there is none.
    virtual std::unique_ptr<Page> take(std::unique_ptr<Page> handed) {
        page(*handed);
        return handed;
    }
    virtual void finish() {}
};

}  // namespace quillo
