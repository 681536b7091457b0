#include "framework/richtext/rtf_reader.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <utility>

#include "framework/richtext/code_pages.h"
#include "framework/richtext/rtf_table.h"
#include "framework/richtext/rtf_tokens.h"
#include "framework/values/errors.h"
#include "framework/values/picture_file.h"
#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr std::size_t deepest = 200;  // groups within groups; those further in share the look of the last
constexpr std::size_t mostTabs = 64;
constexpr int mostTwips = 20'000;               // beyond any page
constexpr float leastSize = 1, mostSize = 144;  // points
constexpr int mostSpace = 2'880;                // above or below a paragraph
constexpr float twipsPerPixel = 15;
constexpr float thinRule = 10;
constexpr const char* defaultFamily = "Times New Roman";
constexpr float defaultSize = 12;

float twips(int number, int least = -mostTwips, int most = mostTwips) {
    return static_cast<float>(std::clamp(number, least, most));
}

// What a group's text is for.
enum class Destination { text, skipped, fonts, colors, picture };

struct State {
    TextStyle style;
    bool hidden = false;
    int fallbacks = 1;        // bytes behind a \u that stand for it where a reader knows no Unicode
    RichParagraph paragraph;  // its form alone
    bool inTable = false;
    Destination destination = Destination::text;
};

struct Picture {
    std::vector<std::byte> file;
    int digit = -1;  // the first of a pair
    int goalWidth = 0, goalHeight = 0, scaleX = 100, scaleY = 100;
};

class Reader {
public:
    Reader(std::string_view file, const TextStyle& base) : tokens_(file), base_(base) {
        base_.wrap = false;
        base_.fill.reset();
        base_.align = Align::left;
        base_.verticalAlign = VerticalAlign::top;
        base_.family = defaultFamily;
        base_.size = defaultSize;
        state_.style = base_;
    }

    RichText run() {
        for (RtfToken token = tokens_.next(); !token.is(RtfToken::Kind::end); token = tokens_.next()) take(token);
        if (!runs_.empty()) endParagraph();
        table_.leave(text_);
        return std::move(text_);
    }

private:
    using Action = void (*)(Reader&, const RtfToken&);

    void take(const RtfToken& token) {
        const bool starred = std::exchange(starred_, false);
        first_ = std::exchange(opened_, token.is(RtfToken::Kind::open));
        switch (token.kind) {
            case RtfToken::Kind::open:
                return open();
            case RtfToken::Kind::close:
                return close();
            case RtfToken::Kind::word:
                return takeWord(token, starred);
            case RtfToken::Kind::symbol:
                return takeSymbol(token.character);
            case RtfToken::Kind::hex:
                return takeByte(token.character);
            case RtfToken::Kind::text:
                for (const char byte : token.bytes) takeByte(static_cast<unsigned char>(byte));
                return;
            case RtfToken::Kind::binary:
                if (state_.destination == Destination::picture) takePicture(std::as_bytes(std::span(token.bytes)));
                return;
            case RtfToken::Kind::end:
                return;
        }
    }

    // --- groups

    void open() {
        toSkip_ = 0;
        if (states_.size() < deepest)
            states_.push_back(state_);
        else
            ++tooDeep_;
    }

    void close() {
        toSkip_ = 0;
        if (tooDeep_ > 0) {
            --tooDeep_;
            return;
        }
        if (states_.size() <= 1) {  // the whole file's, or one too many
            if (!runs_.empty()) endParagraph();
            return;
        }
        const Destination ended = state_.destination;
        state_ = std::move(states_.back());
        states_.pop_back();
        if (ended == state_.destination) return;
        if (ended == Destination::picture) endPicture();
        if (ended == Destination::fonts) useDefaultFont();
    }

    // A word tells what its group is for only where the group begins with it.
    void enter(Destination destination) {
        if (first_ && state_.destination != Destination::skipped) state_.destination = destination;
    }

    // --- words

    void takeWord(const RtfToken& token, bool starred) {
        if (starred && token.name != "shppict") return enter(Destination::skipped);
        if (const auto found = characters().find(token.name); found != characters().end())
            return takeCharacter(found->second);
        if (toSkip_ > 0) toSkip_ = 0;  // a fallback that is too short does not swallow a word
        if (state_.destination == Destination::skipped) return;
        if (const auto found = actions().find(token.name); found != actions().end()) found->second(*this, token);
    }

    void takeSymbol(unsigned char symbol) {
        switch (symbol) {
            case '*':
                starred_ = opened_ = first_;
                return;
            case '~':
                return takeCharacter(U'\u00A0');
            case '_':
                return takeCharacter(U'\u2011');
            case '\\':
            case '{':
            case '}':
                return takeCharacter(symbol);
            case '\t':
                return takeCharacter(U'\t');
            case '\r':
            case '\n':
                if (state_.destination == Destination::text) endParagraph();
                return;
            default:
                return;
        }
    }

    // --- characters

    void takeByte(unsigned char byte) {
        if (state_.destination == Destination::picture) return takeDigit(byte);
        takeCharacter(characterOf(byte, codePage_));
    }

    void takeCharacter(char32_t character) {
        if (toSkip_ > 0) {
            --toSkip_;
            return;
        }
        put(character);
    }

    void takeUnicode(int number) {
        if (number < 0) number += 0x10000;
        if (number > 0 && number <= 0xFFFF) putUnit(static_cast<char32_t>(number));
        toSkip_ = state_.fallbacks;
    }

    // Characters beyond the first 65536 come in two halves.
    void putUnit(char32_t unit) {
        if (unit >= 0xD800 && unit < 0xDC00) {
            half_ = unit;
            return;
        }
        const char32_t half = std::exchange(half_, 0);
        if (unit < 0xDC00 || unit > 0xDFFF) return put(unit);
        put(half != 0 ? 0x10000 + ((half - 0xD800) << 10) + (unit - 0xDC00) : 0xFFFD);
    }

    void put(char32_t character) {
        switch (state_.destination) {
            case Destination::text:
                if (!state_.hidden && (character >= 0x20 || character == '\t' || character == '\n'))
                    appendUtf8(character, runOfNow().text);
                return;
            case Destination::fonts:
                return putFont(character);
            case Destination::colors:
                if (character == ';') colors_.push_back(std::exchange(color_, std::nullopt));
                return;
            case Destination::skipped:
            case Destination::picture:
                return;
        }
    }

    RichRun& runOfNow() {
        if (runs_.empty() || !runs_.back().picture.empty() || runs_.back().style != state_.style)
            runs_.push_back({state_.style, {}, {}, 0, 0});
        return runs_.back();
    }

    void putFont(char32_t character) {
        if (character != ';') return appendUtf8(character, fontName_);
        const auto from = fontName_.find_first_not_of(' ');
        if (from != std::string::npos) fonts_[font_] = fontName_.substr(from);
        fontName_.clear();
    }

    void useFont(int font, TextStyle& style) const {
        if (const auto known = fonts_.find(font); known != fonts_.end()) style.family = known->second;
    }

    void useDefaultFont() {
        useFont(defaultFont_, base_);
        useFont(defaultFont_, state_.style);
    }

    void setColorPart(std::uint8_t Color::*part, int value) {
        if (!color_) color_.emplace();
        (*color_).*part = static_cast<std::uint8_t>(std::clamp(value, 0, 255));
    }

    Color colorOf(int index) const {
        const bool known = index >= 0 && static_cast<std::size_t>(index) < colors_.size();
        return known ? colors_[static_cast<std::size_t>(index)].value_or(base_.color) : base_.color;
    }

    // --- paragraphs and cells

    RichParagraph takeParagraph() {
        RichParagraph paragraph = state_.paragraph;
        paragraph.style = state_.style;
        paragraph.runs = std::move(runs_);
        runs_.clear();
        return paragraph;
    }

    void endParagraph() {
        if (state_.inTable) return table_.addParagraph(takeParagraph());
        table_.leave(text_);
        text_.push_back({takeParagraph(), {}});
    }

    void endCell() {
        table_.addParagraph(takeParagraph());
        table_.endCell();
    }

    void endRow() {
        if (!runs_.empty()) table_.addParagraph(takeParagraph());
        table_.endRow(text_);
    }

    void addTab(int at) {
        auto& tabs = state_.paragraph.tabs;
        const TabStop stop{twips(at), std::exchange(tabAlign_, Align::left)};
        if (tabs.size() >= mostTabs) return;
        const auto later = [](const TabStop& a, const TabStop& b) { return a.at < b.at; };
        tabs.insert(std::upper_bound(tabs.begin(), tabs.end(), stop, later), stop);
    }

    // --- pictures

    void takeDigit(unsigned char byte) {
        const int digit = byte >= '0' && byte <= '9'                     ? byte - '0'
                          : (byte | 0x20) >= 'a' && (byte | 0x20) <= 'f' ? (byte | 0x20) - 'a' + 10
                                                                         : -1;
        if (digit < 0) return;
        if (picture_.digit < 0) {
            picture_.digit = digit;
            return;
        }
        picture_.file.push_back(static_cast<std::byte>(picture_.digit * 16 + digit));
        picture_.digit = -1;
    }

    void takePicture(std::span<const std::byte> bytes) {
        picture_.file.insert(picture_.file.end(), bytes.begin(), bytes.end());
    }

    void endPicture() {
        Picture picture = std::exchange(picture_, {});
        if (state_.destination != Destination::text || state_.hidden) return;
        try {
            const PictureHeader header = readPictureHeader(picture.file);
            const auto size = [](int goal, std::uint32_t pixels, int scale) {
                const float own = goal > 0 ? twips(goal) : static_cast<float>(pixels) * twipsPerPixel;
                const float scaled = own * static_cast<float>(std::clamp(scale, 1, 1000)) / 100;
                return std::clamp(scaled, twipsPerPixel, static_cast<float>(mostTwips));
            };
            runs_.push_back({state_.style,
                             {},
                             std::move(picture.file),
                             size(picture.goalWidth, header.width, picture.scaleX),
                             size(picture.goalHeight, header.height, picture.scaleY)});
        } catch (const InputError&) {
            // Damaged, or of another kind: left out.
        }
    }

    // --- what words mean

    // Control words that stand for a character.
    static const std::map<std::string_view, char32_t>& characters() {
        static const std::map<std::string_view, char32_t> all = {
            {"tab", U'\t'},           {"line", U'\n'},        {"emdash", U'\u2014'},  {"endash", U'\u2013'},
            {"bullet", U'\u2022'},    {"lquote", U'\u2018'},  {"rquote", U'\u2019'},  {"ldblquote", U'\u201C'},
            {"rdblquote", U'\u201D'}, {"emspace", U'\u2003'}, {"enspace", U'\u2002'}, {"qmspace", U'\u2005'},
            {"nestcell", U'\t'},      {"softline", U'\n'}};
        return all;
    }

    // A switch is on with any number but 0, and without one.
    static bool isOn(const RtfToken& word) { return !word.hasNumber || word.number != 0; }

    static const std::map<std::string_view, Action>& actions() {
        static const std::map<std::string_view, Action> all = [] {
            std::map<std::string_view, Action> table;
            addDestinations(table);
            addCharacterForms(table);
            addParagraphForms(table);
            addTableForms(table);
            addTables(table);
            return table;
        }();
        return all;
    }

    template <Destination destination>
    static void enters(Reader& reader, const RtfToken&) {
        reader.enter(destination);
    }

    static void addDestinations(std::map<std::string_view, Action>& table) {
        table["fonttbl"] = enters<Destination::fonts>;
        table["colortbl"] = enters<Destination::colors>;
        table["pict"] = enters<Destination::picture>;
        for (const std::string_view name :
             {"stylesheet",   "info",    "header",  "headerl",  "headerr",   "headerf",
              "footer",       "footerl", "footerr", "footerf",  "fldinst",   "nonshppict",
              "nonesttables", "filetbl", "revtbl",  "xe",       "tc",        "tcn",
              "pntxta",       "pntxtb",  "objdata", "objclass", "listtable", "listoverridetable",
              "author",       "title"})
            table[name] = enters<Destination::skipped>;
        table["ansicpg"] = [](Reader& r, const RtfToken& w) { r.codePage_ = w.number; };
        table["ansi"] = [](Reader& r, const RtfToken&) { r.codePage_ = 1252; };
        table["pc"] = [](Reader& r, const RtfToken&) { r.codePage_ = 437; };
        table["pca"] = [](Reader& r, const RtfToken&) { r.codePage_ = 850; };
        table["deff"] = [](Reader& r, const RtfToken& w) { r.defaultFont_ = w.number; };
        table["uc"] = [](Reader& r, const RtfToken& w) { r.state_.fallbacks = std::clamp(w.number, 0, 16); };
        table["u"] = [](Reader& r, const RtfToken& w) { r.takeUnicode(w.number); };
    }

    static void addCharacterForms(std::map<std::string_view, Action>& table) {
        table["b"] = [](Reader& r, const RtfToken& w) { r.state_.style.bold = isOn(w); };
        table["i"] = [](Reader& r, const RtfToken& w) { r.state_.style.italic = isOn(w); };
        table["v"] = [](Reader& r, const RtfToken& w) { r.state_.hidden = isOn(w); };
        for (const std::string_view name :
             {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulth", "ulw", "ulwave"})
            table[name] = [](Reader& r, const RtfToken& w) { r.state_.style.underline = isOn(w); };
        table["ulnone"] = [](Reader& r, const RtfToken&) { r.state_.style.underline = false; };
        table["f"] = [](Reader& r, const RtfToken& w) {
            r.font_ = w.number;
            if (r.state_.destination == Destination::text) r.useFont(w.number, r.state_.style);
        };
        table["fs"] = [](Reader& r, const RtfToken& w) {
            const float size = static_cast<float>(w.number) / 2;
            r.state_.style.size = w.number > 0 ? std::clamp(size, leastSize, mostSize) : r.base_.size;
        };
        table["cf"] = [](Reader& r, const RtfToken& w) { r.state_.style.color = r.colorOf(w.number); };
        table["plain"] = [](Reader& r, const RtfToken&) {
            r.state_.style = r.base_;
            r.state_.hidden = false;
        };
    }

    static void addParagraphForms(std::map<std::string_view, Action>& table) {
        for (const std::string_view name : {"par", "sect", "page", "column", "nestrow"})
            table[name] = [](Reader& r, const RtfToken&) {
                if (r.state_.destination == Destination::text) r.endParagraph();
            };
        table["pard"] = [](Reader& r, const RtfToken&) {
            r.state_.paragraph = {};
            r.state_.inTable = false;
            r.tabAlign_ = Align::left;
        };
        table["ql"] = [](Reader& r, const RtfToken&) { r.state_.paragraph.align = Align::left; };
        table["qr"] = [](Reader& r, const RtfToken&) { r.state_.paragraph.align = Align::right; };
        table["qc"] = [](Reader& r, const RtfToken&) { r.state_.paragraph.align = Align::center; };
        table["qj"] = [](Reader& r, const RtfToken&) { r.state_.paragraph.align = Align::justify; };
        table["li"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.left = twips(w.number); };
        table["ri"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.right = twips(w.number); };
        table["fi"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.first = twips(w.number); };
        table["sb"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.before = twips(w.number, 0, mostSpace); };
        table["sa"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.after = twips(w.number, 0, mostSpace); };
        table["keepn"] = [](Reader& r, const RtfToken& w) { r.state_.paragraph.keepNext = isOn(w); };
        table["tqr"] = table["tqdec"] = [](Reader& r, const RtfToken&) { r.tabAlign_ = Align::right; };
        table["tqc"] = [](Reader& r, const RtfToken&) { r.tabAlign_ = Align::center; };
        table["tx"] = [](Reader& r, const RtfToken& w) { r.addTab(w.number); };
    }

    static void addTableForms(std::map<std::string_view, Action>& table) {
        table["intbl"] = [](Reader& r, const RtfToken&) { r.state_.inTable = true; };
        table["trowd"] = [](Reader& r, const RtfToken&) { r.table_.define(); };
        table["trleft"] = [](Reader& r, const RtfToken& w) { r.table_.setLeft(twips(w.number)); };
        table["trgaph"] = [](Reader& r, const RtfToken& w) { r.table_.setGap(twips(w.number, 0, 720)); };
        table["trhdr"] = [](Reader& r, const RtfToken&) { r.table_.setHeading(); };
        table["cellx"] = [](Reader& r, const RtfToken& w) { r.table_.addEdge(twips(w.number)); };
        table["cell"] = [](Reader& r, const RtfToken&) { r.endCell(); };
        table["row"] = [](Reader& r, const RtfToken&) { r.endRow(); };
        table["clbrdrt"] = [](Reader& r, const RtfToken&) { r.table_.chooseRule(&RichCell::ruleAbove); };
        table["clbrdrb"] = [](Reader& r, const RtfToken&) { r.table_.chooseRule(&RichCell::ruleBelow); };
        for (const std::string_view name : {"clbrdrl", "clbrdrr", "brdrt", "brdrb", "brdrl", "brdrr", "trbrdrt",
                                            "trbrdrb", "trbrdrl", "trbrdrr", "trbrdrh", "trbrdrv"})
            table[name] = [](Reader& r, const RtfToken&) { r.table_.chooseRule(nullptr); };
        for (const std::string_view name : {"brdrs", "brdrdb", "brdrth", "brdrdot", "brdrdash"})
            table[name] = [](Reader& r, const RtfToken&) { r.table_.setRule(thinRule); };
        table["brdrw"] = [](Reader& r, const RtfToken& w) { r.table_.setRule(twips(w.number, 1, 75)); };
        table["brdrnone"] = table["brdrnil"] = [](Reader& r, const RtfToken&) { r.table_.setRule(0); };
    }

    static void addTables(std::map<std::string_view, Action>& table) {
        table["red"] = [](Reader& r, const RtfToken& w) { r.setColorPart(&Color::red, w.number); };
        table["green"] = [](Reader& r, const RtfToken& w) { r.setColorPart(&Color::green, w.number); };
        table["blue"] = [](Reader& r, const RtfToken& w) { r.setColorPart(&Color::blue, w.number); };
        table["picwgoal"] = [](Reader& r, const RtfToken& w) { r.picture_.goalWidth = w.number; };
        table["pichgoal"] = [](Reader& r, const RtfToken& w) { r.picture_.goalHeight = w.number; };
        table["picscalex"] = [](Reader& r, const RtfToken& w) { r.picture_.scaleX = w.number; };
        table["picscaley"] = [](Reader& r, const RtfToken& w) { r.picture_.scaleY = w.number; };
    }

    RtfTokens tokens_;
    TextStyle base_;
    int codePage_ = 1252;
    int font_ = 0, defaultFont_ = -1;
    std::string fontName_;
    std::map<int, std::string> fonts_;
    std::optional<Color> color_;  // of the table's entry that is being read
    std::vector<std::optional<Color>> colors_;

    State state_;
    std::vector<State> states_;
    std::size_t tooDeep_ = 0;
    bool opened_ = false, first_ = false;  // a group has just begun; the word is its first
    bool starred_ = false;                 // the group may be ignored
    int toSkip_ = 0;
    char32_t half_ = 0;
    Align tabAlign_ = Align::left;
    Picture picture_;
    std::vector<RichRun> runs_;
    RtfTable table_;
    RichText text_;
};

RichText plainText(std::string_view text, TextStyle style) {
    style.wrap = false;
    style.fill.reset();
    RichText paragraphs;
    const Align align = std::exchange(style.align, Align::left);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string line(text.substr(at, end - at));
        std::erase(line, '\r');
        RichParagraph paragraph;
        paragraph.align = align;
        paragraph.style = style;
        if (!line.empty()) paragraph.runs.push_back({style, std::move(line), {}, 0, 0});
        paragraphs.push_back({std::move(paragraph), {}});
        at = end + 1;
    }
    return paragraphs;
}

}  // namespace

RichText readRichText(std::string_view text, const TextStyle& base) {
    return isRtf(text) ? Reader(text, base).run() : plainText(text, base);
}

}  // namespace quillo
