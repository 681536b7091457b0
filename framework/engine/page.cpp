#include "framework/engine/page.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillo {
namespace {

constexpr std::array<std::string_view, 7> sectionNames = {"reportHeader", "pageHeader", "groupHeader", "detail",
                                                          "groupFooter",  "pageFooter", "reportFooter"};
constexpr std::array<std::string_view, 11> controlNames = {
    "Label", "Field", "Line", "Shape", "SubReport", "DataControl", "PageBreak", "Image", "RichEdit", "Chart", "Sector"};

template <class T, class Equal>
const T* intern(std::vector<std::unique_ptr<T>>& known, const T& value, Equal equal) {
    const auto found = std::find_if(known.begin(), known.end(), [&](const auto& item) { return equal(*item, value); });
    if (found != known.end()) return found->get();
    known.push_back(std::make_unique<T>(value));
    return known.back().get();
}

constexpr std::size_t chunkSize = 64 * 1024;

}  // namespace

std::string_view nameOf(SectionKind kind) {
    return sectionNames[static_cast<std::size_t>(kind)];
}
std::string_view nameOf(ChartKind kind) {
    return kind == ChartKind::pie ? "pie" : "bars";
}
std::string_view nameOf(ControlKind kind) {
    return controlNames[static_cast<std::size_t>(kind)];
}

void* Arena::allocate(std::size_t bytes, std::size_t alignment) {
    used_ = (used_ + alignment - 1) / alignment * alignment;
    while (current_ < chunks_.size() && used_ + bytes > chunks_[current_].size) {
        ++current_;
        used_ = 0;
    }
    if (current_ == chunks_.size()) {
        const std::size_t size = std::max(bytes, chunkSize);
        chunks_.push_back({std::make_unique<std::byte[]>(size), size});
    }
    void* place = chunks_[current_].bytes.get() + used_;
    used_ += bytes;
    return place;
}

std::string_view Arena::text(std::string_view source) {
    if (source.empty()) return {};
    const auto copy = array<char>(source.size());
    std::memcpy(copy.data(), source.data(), source.size());
    return {copy.data(), copy.size()};
}

void Arena::clear() {
    current_ = used_ = 0;
}

std::size_t Arena::capacity() const {
    std::size_t sum = 0;
    for (const auto& chunk : chunks_) sum += chunk.size;
    return sum;
}

const TextStyle* RunNames::style(const TextStyle& style) {
    return intern(styles_, style, std::equal_to<>());
}

const SectionInfo* RunNames::section(const SectionInfo& info) {
    return intern(sections_, info, [](const SectionInfo& a, const SectionInfo& b) {
        return a.name == b.name && a.kind == b.kind && a.level == b.level && a.bookmark == b.bookmark &&
               a.repeat == b.repeat && a.keepNext == b.keepNext && a.fill == b.fill;
    });
}

const ControlInfo* RunNames::control(const ControlInfo& info) {
    return intern(controls_, info, [](const ControlInfo& a, const ControlInfo& b) {
        return a.kind == b.kind && a.thenPageCount == b.thenPageCount && a.notInRepeats == b.notInRepeats &&
               a.name == b.name;
    });
}

const ChartData* RunNames::chart(const ChartData& chart) {
    charts_.push_back(std::make_unique<ChartData>(chart));
    return charts_.back().get();
}

std::span<const std::byte> RunNames::picture(std::span<const std::byte> file) {
    for (const auto& known : pictures_)
        if (std::equal(known.begin(), known.end(), file.begin(), file.end())) return known;
    return pictures_.emplace_back(file.begin(), file.end());
}

PlacedSection copySection(const PlacedSection& section, Arena& arena) {
    PlacedSection copy = section;
    const auto controls = arena.array<PlacedControl>(section.controls.size());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const PlacedControl& from = section.controls[i];
        PlacedControl& to = *new (&controls[i]) PlacedControl(from);
        to.text = arena.text(from.text);
        to.link = arena.text(from.link);
        const auto lines = arena.array<std::uint32_t>(from.lines.size());
        std::copy(from.lines.begin(), from.lines.end(), lines.begin());
        to.lines = lines;
        const auto sections = arena.array<PlacedSection>(from.sections.size());
        for (std::size_t s = 0; s < sections.size(); ++s)
            new (&sections[s]) PlacedSection(copySection(from.sections[s], arena));
        to.sections = sections;
    }
    copy.controls = controls;
    return copy;
}

bool shows(const PlacedControl& control) {
    switch (control.info->kind) {
        case ControlKind::line:
        case ControlKind::shape:
        case ControlKind::sector:
            return true;
        default:
            return !control.text.empty() || (control.style != nullptr && control.style->fill) ||
                   !control.picture.empty() || control.chart != nullptr ||
                   std::any_of(control.sections.begin(), control.sections.end(),
                               [](const PlacedSection& inner) { return !inner.repeat && shows(inner); });
    }
}

bool shows(const PlacedSection& section) {
    return (section.info->fill && section.height > 0) ||
           std::any_of(section.controls.begin(), section.controls.end(),
                       [](const PlacedControl& control) { return shows(control); });
}

std::unique_ptr<Page> Page::clone() const {
    auto copy = std::make_unique<Page>();
    copy->number = number;
    copy->setup = setup;
    copy->names = names;
    copy->sections.reserve(sections.size());
    for (const auto& section : sections) copy->sections.push_back(copySection(section, copy->arena));
    return copy;
}

}  // namespace quillo
