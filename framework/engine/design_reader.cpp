#include "framework/engine/design_reader.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "framework/engine/expression.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

using Json = nlohmann::ordered_json;
using Styles = std::unordered_map<std::string, TextStyle>;

// Where the reader stands, for the text of a failure.
struct Place {
    std::string text;
    [[noreturn]] void fail(const std::string& what) const { throw InputError("Design " + text + ": " + what); }
    Place in(const std::string& part) const { return {text + ", " + part}; }
    // By name, or by its place in the list (from 1) where it has none.
    Place in(const std::string& kind, const Json& object, std::size_t index) const {
        const bool named = object.is_object() && object.contains("name") && object["name"].is_string();
        return in(kind + " " + (named ? object["name"].get<std::string>() : std::to_string(index)));
    }
};

constexpr std::string_view designRootKeys[] = {"name", "page", "styles", "sections"};
constexpr std::string_view pageKeys[] = {"width", "height", "left", "right", "top", "bottom"};
constexpr std::string_view styleKeys[] = {"base", "family", "size",          "bold",  "italic", "underline",
                                          "wrap", "align",  "verticalAlign", "color", "fill"};
constexpr std::string_view sectionKeys[] = {
    "name",     "kind",      "height",       "visible",      "keepTogether",
    "newPage",  "dataField", "repeat",       "underlayNext", "groupKeepTogether",
    "bookmark", "fill",      "onlyWithRows", "controls"};
constexpr std::string_view controlKeys[] = {"kind",
                                            "name",
                                            "left",
                                            "top",
                                            "width",
                                            "height",
                                            "tag",
                                            "caption",
                                            "text",
                                            "dataField",
                                            "format",
                                            "style",
                                            "align",
                                            "canGrow",
                                            "visible",
                                            "x1",
                                            "y1",
                                            "x2",
                                            "y2",
                                            "lineWidth",
                                            "fill",
                                            "enabled",
                                            "sum",
                                            "running",
                                            "link",
                                            "onlyInRepeats",
                                            "notInRepeats",
                                            "mostLines",
                                            "optionalColumn"};
constexpr DesignKeys allKeys[] = {{"design", designRootKeys},
                                  {"page", pageKeys},
                                  {"style", styleKeys},
                                  {"section", sectionKeys},
                                  {"control", controlKeys}};

class Keys {
public:
    Keys(const Json& object, const Place& place, std::span<const std::string_view> known)
        : object_(object), place_(place) {
        if (!object.is_object()) place.fail("an object is expected");
        for (const auto& [key, value] : object.items())
            if (std::find(known.begin(), known.end(), key) == known.end()) place.fail("unknown key \"" + key + "\"");
    }

    bool has(const char* key) const { return object_.contains(key); }
    void number(const char* key, float& out) const {
        const Json* value = of(key, &Json::is_number, "a number");
        if (value == nullptr) return;
        constexpr double most = 1e6;  // far beyond any page
        if (!(std::fabs(value->get<double>()) <= most)) place_.fail("\"" + std::string(key) + "\" is too large");
        out = value->get<float>();
    }
    void boolean(const char* key, bool& out) const {
        if (const Json* value = of(key, &Json::is_boolean, "true or false")) out = value->get<bool>();
    }
    void text(const char* key, std::string& out) const {
        if (const Json* value = of(key, &Json::is_string, "a text")) out = value->get<std::string>();
    }
    std::string text(const char* key) const {
        std::string out;
        text(key, out);
        return out;
    }
    // One of the names, as its index; fallback when the key is absent.
    template <class T>
    T choice(const char* key, std::span<const std::pair<std::string_view, T>> names, T fallback) const {
        if (!has(key)) return fallback;
        const std::string given = text(key);
        for (const auto& [name, value] : names)
            if (given == name) return value;
        place_.fail("\"" + std::string(key) + "\" cannot be \"" + given + "\"");
    }
    const Json& list(const char* key) const {
        static const Json none = Json::array();
        const Json* value = of(key, &Json::is_array, "a list");
        return value != nullptr ? *value : none;
    }

private:
    const Json* of(const char* key, bool (Json::*test)() const noexcept, const char* kind) const {
        const auto found = object_.find(key);
        if (found == object_.end()) return nullptr;
        if (!((*found).*test)()) place_.fail("\"" + std::string(key) + "\" must be " + kind);
        return &*found;
    }
    const Json& object_;
    const Place& place_;
};

Color colorOf(const std::string& text, const Place& place) {
    if (text.size() != 7 || text[0] != '#' || text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos)
        place.fail("\"" + text + "\" is no color; #rrggbb is");
    const auto part = [&](std::size_t at) {
        return static_cast<std::uint8_t>(std::stoi(text.substr(at, 2), nullptr, 16));
    };
    return {part(1), part(3), part(5)};
}

constexpr std::pair<std::string_view, Align> alignNames[] = {
    {"left", Align::left}, {"center", Align::center}, {"right", Align::right}, {"justify", Align::justify}};
constexpr std::pair<std::string_view, VerticalAlign> verticalNames[] = {
    {"top", VerticalAlign::top}, {"middle", VerticalAlign::middle}, {"bottom", VerticalAlign::bottom}};

constexpr std::pair<std::string_view, SectionKind> kindNames[] = {
    {"reportHeader", SectionKind::reportHeader}, {"pageHeader", SectionKind::pageHeader},
    {"groupHeader", SectionKind::groupHeader},   {"detail", SectionKind::detail},
    {"groupFooter", SectionKind::groupFooter},   {"pageFooter", SectionKind::pageFooter},
    {"reportFooter", SectionKind::reportFooter}};
constexpr std::pair<std::string_view, int> newPageNames[] = {
    {"none", NewPage::none}, {"before", NewPage::before}, {"after", NewPage::after}, {"both", NewPage::both}};
constexpr std::pair<std::string_view, GroupKeep> keepNames[] = {
    {"none", GroupKeep::none}, {"all", GroupKeep::all}, {"firstDetail", GroupKeep::firstDetail}};
constexpr std::pair<std::string_view, Running> runningNames[] = {{"group", Running::group}, {"all", Running::all}};

void readStyles(const Json& styles, Styles& known, const Place& place) {
    if (!styles.is_object()) place.fail("\"styles\" must be an object of styles by name");
    for (const auto& [name, object] : styles.items()) {
        const Place here = place.in("style " + name);
        const Keys keys(object, here, styleKeys);
        TextStyle style;
        if (const std::string base = keys.text("base"); !base.empty()) {
            const auto found = known.find(base);
            if (found == known.end()) here.fail("there is no style \"" + base + "\"");
            style = found->second;
        }
        keys.text("family", style.family);
        keys.number("size", style.size);
        keys.boolean("bold", style.bold);
        keys.boolean("italic", style.italic);
        keys.boolean("underline", style.underline);
        keys.boolean("wrap", style.wrap);
        style.align = keys.choice<Align>("align", alignNames, style.align);
        style.verticalAlign = keys.choice<VerticalAlign>("verticalAlign", verticalNames, style.verticalAlign);
        if (keys.has("color")) style.color = colorOf(keys.text("color"), here);
        if (keys.has("fill")) style.fill = colorOf(keys.text("fill"), here);
        known[name] = style;
    }
}

Json parse(std::string_view text, const Place& place) {
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        const auto line = std::count(text.begin(), text.begin() + std::min(error.byte, text.size()), '\n') + 1;
        place.fail("it is no JSON, at line " + std::to_string(line));
    } catch (const Json::exception&) {
        place.fail("it holds a number that is too large");
    }
}

class Reader {
public:
    Reader(Place place, Styles styles) : place_(std::move(place)), styles_(std::move(styles)) {}

    Design read(const Json& root) {
        const Keys keys(root, place_, designRootKeys);
        if (root.contains("styles")) readStyles(root["styles"], styles_, place_);
        Design design;
        if (root.contains("page")) design.setup = readPage(root["page"]);
        for (const Json& section : keys.list("sections"))
            design.sections.push_back(readSection(section, place_.in("section", section, design.sections.size() + 1)));
        checkGroups(design);
        return design;
    }

private:
    PageSetup readPage(const Json& object) const {
        const Place here = place_.in("page");
        const Keys keys(object, here, pageKeys);
        PageSetup setup;
        keys.number("width", setup.width);
        keys.number("height", setup.height);
        keys.number("left", setup.leftMargin);
        keys.number("right", setup.rightMargin);
        keys.number("top", setup.topMargin);
        keys.number("bottom", setup.bottomMargin);
        return setup;
    }

    std::unique_ptr<Section> readSection(const Json& object, const Place& here) {
        const Keys keys(object, here, sectionKeys);
        auto section = std::make_unique<Section>();
        keys.text("name", section->info.name);
        if (!names_.insert(foldedName(section->info.name)).second || section->info.name.empty())
            here.fail("the name stands twice, or is empty");
        section->info.kind = keys.choice<SectionKind>("kind", kindNames, SectionKind::detail);
        keys.number("height", section->Height);
        keys.boolean("visible", section->Visible);
        keys.boolean("keepTogether", section->KeepTogether);
        keys.boolean("repeat", section->Repeat);
        keys.boolean("onlyWithRows", section->OnlyWithRows);
        keys.boolean("underlayNext", section->UnderlayNext);
        keys.boolean("bookmark", section->info.bookmark);
        keys.text("dataField", section->DataField);
        if (keys.has("fill")) section->info.fill = colorOf(keys.text("fill"), here);
        section->NewPage = keys.choice<int>("newPage", newPageNames, 0);
        section->GrpKeepTogether = keys.choice<GroupKeep>("groupKeepTogether", keepNames, GroupKeep::none);
        for (const Json& control : keys.list("controls"))
            section->controls.push_back(
                readControl(control, here.in("control", control, section->controls.size() + 1), section->info.kind));
        checkSection(*section, here);
        return section;
    }

    // What the engine could not do with a section is refused here, not left out there.
    static void checkSection(const Section& section, const Place& here) {
        const SectionKind kind = section.kind();
        const bool groupHeader = kind == SectionKind::groupHeader;
        if (!groupHeader && (section.UnderlayNext || section.GrpKeepTogether != GroupKeep::none))
            here.fail("only a group header can be underlaid or keep its group together");
        const bool marks = std::any_of(section.controls.begin(), section.controls.end(), [](const auto& control) {
            return control->OnlyInRepeats || control->info.notInRepeats;
        });
        if (marks && !(groupHeader && section.Repeat))
            here.fail("only a group header that repeats tells controls of its repeats");
        if (section.Repeat && !groupHeader && kind != SectionKind::reportHeader) here.fail("only headers repeat");
        const bool breaks = std::any_of(section.controls.begin(), section.controls.end(),
                                        [](const auto& control) { return control->kind() == ControlKind::pageBreak; });
        const bool everyPage = kind == SectionKind::pageHeader || kind == SectionKind::pageFooter;
        if (breaks && (everyPage || section.Repeat)) here.fail("a section that stands on every page cannot break it");
        if (everyPage && section.NewPage != NewPage::none) here.fail("a section of every page cannot ask for a page");
    }

    std::unique_ptr<Control> readControl(const Json& object, const Place& here, SectionKind sectionKind) {
        const Keys keys(object, here, controlKeys);
        auto control = make(keys, here, sectionKind);
        keys.text("name", control->info.name);
        if (control->info.name.empty() || !names_.insert(foldedName(control->info.name)).second)
            here.fail("the name stands twice, or is empty");
        keys.number("left", control->Left);
        keys.number("top", control->Top);
        keys.number("width", control->Width);
        keys.number("height", control->Height);
        keys.boolean("visible", control->Visible);
        keys.boolean("onlyInRepeats", control->OnlyInRepeats);
        keys.boolean("notInRepeats", control->info.notInRepeats);
        keys.text("tag", control->Tag);
        keys.text("link", control->LinkField);
        checkExpression(control->LinkField, here);
        return control;
    }

    static void checkExpression(const std::string& source, const Place& here) {
        try {
            Expression::compile(source);
        } catch (const InputError& error) {
            here.fail(error.what());
        }
    }

    template <class T>
    static std::unique_ptr<T> made() {
        auto control = std::make_unique<T>();
        control->info.kind = KindOf<T>::kind;
        return control;
    }

    void readText(TextControl& control, const Keys& keys, const Place& here) const {
        const std::string style = keys.has("style") ? keys.text("style") : "text";
        const auto found = styles_.find(style);
        if (found == styles_.end()) here.fail("there is no style \"" + style + "\"");
        control.Style.edit() = found->second;
        control.Style.edit().align = keys.choice<Align>("align", alignNames, found->second.align);
        keys.boolean("canGrow", control.CanGrow);
        if (control.CanGrow) control.Style.edit().wrap = true;
        float lines = 0;
        keys.number("mostLines", lines);
        if (lines < 0 || lines != std::floor(lines)) here.fail("\"mostLines\" is a number of lines");
        control.MostLines = static_cast<std::size_t>(lines);
    }

    std::unique_ptr<Control> make(const Keys& keys, const Place& here, SectionKind sectionKind) const {
        const std::string kind = keys.text("kind");
        if (kind == "Label") {
            auto label = made<Label>();
            readText(*label, keys, here);
            keys.text("caption", label->Caption);
            return label;
        }
        if (kind == "Field") return makeField(keys, here, sectionKind);
        if (kind == "Line") {
            auto line = made<Line>();
            keys.number("x1", line->X1);
            keys.number("y1", line->Y1);
            keys.number("x2", line->X2);
            keys.number("y2", line->Y2);
            keys.number("lineWidth", line->LineWidth);
            return line;
        }
        if (kind == "Shape") {
            auto shape = made<Shape>();
            keys.number("lineWidth", shape->LineWidth);
            if (keys.has("fill")) shape->BackColor = colorOf(keys.text("fill"), here);
            return shape;
        }
        if (kind == "SubReport") {
            auto sub = made<SubReport>();
            keys.boolean("canGrow", sub->CanGrow);
            return sub;
        }
        if (kind == "DataControl") return made<DataControl>();
        if (kind == "PageBreak") {
            auto pageBreak = made<PageBreak>();
            keys.boolean("enabled", pageBreak->Enabled);
            return pageBreak;
        }
        if (kind == "Image") return made<Image>();
        if (kind == "RichEdit") {
            auto rich = made<RichEdit>();
            readText(*rich, keys, here);
            return rich;
        }
        if (kind == "Chart") return made<Chart>();
        here.fail("there is no control kind \"" + kind + "\"");
    }

    std::unique_ptr<Control> makeField(const Keys& keys, const Place& here, SectionKind sectionKind) const {
        auto field = made<Field>();
        readText(*field, keys, here);
        keys.text("text", field->Text);
        keys.text("dataField", field->DataField);
        keys.boolean("optionalColumn", field->OptionalColumn);
        try {
            field->Format = NumberFormat::compile(keys.text("format"));
        } catch (const InputError& error) {
            here.fail(error.what());
        }
        checkExpression(field->DataField, here);
        if (!keys.has("sum")) return field;
        field->IsSum = true;
        if (const std::string over = keys.text("sum"); over != "report") field->SumGroup = over;
        field->SumRunning = keys.choice<Running>("running", runningNames, Running::none);
        const bool footer = sectionKind == SectionKind::groupFooter || sectionKind == SectionKind::reportFooter;
        if (!footer && field->SumRunning == Running::none)
            here.fail("a sum that is not running prints before its rows are known; it belongs into a footer");
        return field;
    }

    void checkGroups(const Design& design) const {
        std::vector<std::string> order;
        int headers = 0, footers = 0;
        auto previous = SectionKind::reportHeader;
        for (const auto& section : design.sections) {
            if (section->kind() < previous) place_.fail("section " + section->Name() + " stands out of order");
            if (section->kind() == previous && section->kind() != SectionKind::groupHeader &&
                section->kind() != SectionKind::groupFooter && section != design.sections.front())
                place_.fail("section " + section->Name() + " is the second of its kind");
            previous = section->kind();
            headers += section->kind() == SectionKind::groupHeader;
            footers += section->kind() == SectionKind::groupFooter;
        }
        if (headers != footers) place_.fail("each group header needs its footer");
        for (const auto& section : design.sections)
            for (const auto& control : section->controls)
                if (control->kind() == ControlKind::field) checkSumGroup(design, static_cast<const Field&>(*control));
    }

    void checkSumGroup(const Design& design, const Field& field) const {
        if (field.SumGroup.empty()) return;
        for (const auto& section : design.sections)
            if (section->kind() == SectionKind::groupHeader && equalNames(section->Name(), field.SumGroup)) return;
        place_.in("control " + field.Name()).fail("there is no group \"" + field.SumGroup + "\" to sum over");
    }

    Place place_;
    Styles styles_;
    std::unordered_set<std::string> names_;
};

}  // namespace

std::span<const DesignKeys> designKeys() {
    return allKeys;
}

Design readDesign(const std::string& name, std::string_view text, std::string_view styles) {
    const Place place{name};
    Styles house;
    if (!styles.empty()) readStyles(parse(styles, {"styles"}), house, {"styles"});
    if (!house.contains("text")) house["text"] = TextStyle();
    return Reader(place, std::move(house)).read(parse(text, place));
}

}  // namespace quillo
