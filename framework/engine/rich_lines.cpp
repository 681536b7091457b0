#include "framework/engine/rich_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quillo {
namespace {

constexpr float tolerance = 0.5F;
constexpr float tabWidth = 720;     // where a paragraph has no stop of its own
constexpr float leastRoom = 720;    // indents that leave less do not count
constexpr float leastPicture = 15;  // a pixel

// A part of a run that is never broken: blanks, or what stands between them, or a picture.
struct Atom {
    const RichRun* run = nullptr;
    std::string_view text;
    float width = 0, height = 0;
    bool isBlank() const { return !text.empty() && text.front() == ' '; }
};

// What stands on a line from one tab to the next.
struct Field {
    TabStop stop;
    float behind = 0;  // where the field before it ends
    std::vector<Atom> atoms{};
    float width = 0;

    float start() const {
        const float share = stop.align == Align::right ? width : stop.align == Align::center ? width / 2 : 0;
        return std::max(behind, stop.at - share);
    }
    float end() const { return start() + width; }
    void add(const Atom& atom) {
        atoms.push_back(atom);
        width += atom.width;
    }
};

using Fields = std::vector<Field>;

// The edges of a paragraph's lines, from the room's left edge.
struct Edges {
    float first, left, right;

    Edges(const RichParagraph& paragraph, const RichRoom& room) : first(room.left), left(room.left), right(room.right) {
        const float from = std::max(paragraph.left, 0.0F), fromFirst = std::max(paragraph.left + paragraph.first, 0.0F);
        const float to = std::max(paragraph.right, 0.0F);
        if (room.right - room.left - std::max(from, fromFirst) - to < leastRoom) return;
        left += from;
        first += fromFirst;
        right -= to;
    }
};

// A line's fields as pieces: one for all atoms of a run that stand beside one another.
class LinePlacing {
public:
    LinePlacing(const RichParagraph& paragraph, TextMeasure& measure) : paragraph_(paragraph), measure_(measure) {}

    // right: the line's right edge; broken: the paragraph goes on below.
    RichLine place(const Fields& fields, float right, bool broken) {
        line_ = {};
        const bool fills = broken && fields.size() == 1 && paragraph_.align == Align::justify;
        for (const Field& field : fields) {
            const std::size_t first = line_.pieces.size();
            join(field, fills);
            x_ = field.start();
            const float gap = fills ? gapOf(field, right) : 0;
            for (std::size_t i = first; i < line_.pieces.size(); ++i) set(line_.pieces[i], gap);
        }
        if (fields.size() == 1) align(right);
        dropBlanks();
        measureHeight();
        return std::move(line_);
    }

private:
    static bool isBlank(const RichPiece& piece) {
        return !piece.text.empty() && piece.text.find_first_not_of(' ') == std::string_view::npos;
    }

    // apart: blanks are pieces of their own.
    void join(const Field& field, bool apart) {
        const RichPiece* last = nullptr;
        for (const Atom& atom : field.atoms) {
            const bool joins = last != nullptr && last->run == atom.run && !atom.text.empty() &&
                               (!apart || (!isBlank(*last) && !atom.isBlank()));
            if (joins) {
                RichPiece& piece = line_.pieces.back();
                piece.text = {piece.text.data(), piece.text.size() + atom.text.size()};
                piece.width = measure_.width(piece.text, piece.run->style);
            } else {
                line_.pieces.push_back({atom.run, atom.text, 0, atom.width, atom.height});
            }
            last = &line_.pieces.back();
        }
    }

    // By how much each blank of a line is wider that fills its room.
    static float gapOf(const Field& field, float right) {
        const auto blanks =
            std::count_if(field.atoms.begin(), field.atoms.end(), [](const Atom& a) { return a.isBlank(); });
        return blanks == 0 ? 0 : std::max(right - field.end(), 0.0F) / static_cast<float>(blanks);
    }

    void set(RichPiece& piece, float gap) {
        piece.left = x_;
        x_ += piece.width + (isBlank(piece) ? gap : 0);
    }

    void align(float right) {
        const float share = paragraph_.align == Align::right ? 1 : paragraph_.align == Align::center ? 0.5F : 0;
        const float by = std::max(right - x_, 0.0F) * share;
        for (RichPiece& piece : line_.pieces) piece.left += by;
    }

    void dropBlanks() {
        std::erase_if(line_.pieces, [](const RichPiece& p) { return isBlank(p) && !p.run->style.underline; });
    }

    void measureHeight() {
        float descent = 0;
        const auto hold = [&](const TextStyle& style) {
            const float baseline = measure_.baseline(style);
            line_.ascent = std::max(line_.ascent, baseline);
            descent = std::max(descent, measure_.lineHeight(style) - baseline);
        };
        for (const RichPiece& piece : line_.pieces) {
            if (piece.text.empty())
                line_.ascent = std::max(line_.ascent, piece.height);
            else
                hold(piece.run->style);
        }
        if (line_.pieces.empty()) hold(paragraph_.style);
        line_.height = line_.ascent + descent;
    }

    const RichParagraph& paragraph_;
    TextMeasure& measure_;
    RichLine line_;
    float x_ = 0;
};

class LineBreaker {
public:
    LineBreaker(const RichParagraph& paragraph, const RichRoom& room, TextMeasure& measure)
        : paragraph_(paragraph), room_(room), edges_(paragraph, room), measure_(measure), placing_(paragraph, measure) {
        beginLine(edges_.first);
    }

    std::vector<RichLine> run() {
        for (const RichRun& run : paragraph_.runs) {
            if (run.picture.empty())
                takeText(run);
            else
                takePicture(run);
        }
        placeWord();
        endLine(false);
        return std::move(lines_);
    }

private:
    void takeText(const RichRun& run) {
        const std::string_view text = run.text;
        for (std::size_t at = 0; at < text.size();) {
            const char letter = text[at];
            const std::size_t end = letter == '\t' || letter == '\n' ? at + 1
                                    : letter == ' '                  ? text.find_first_not_of(' ', at)
                                                                     : text.find_first_of(" \t\n", at);
            const std::string_view part = text.substr(at, std::min(end, text.size()) - at);
            at += part.size();
            if (letter == '\t' || letter == '\n' || letter == ' ') placeWord();
            if (letter == '\t') {
                tab();
            } else if (letter == '\n') {
                endLine(false);
            } else {
                (letter == ' ' ? blanks_ : word_).push_back(atomOf(run, part));
            }
        }
    }

    // No larger than the room for it.
    void takePicture(const RichRun& run) {
        const float width = std::max(run.width, leastPicture), height = std::max(run.height, leastPicture);
        const float scale = std::min({1.0F, (edges_.right - edges_.left) / width, room_.mostHeight / height});
        word_.push_back({&run, {}, width * scale, height * scale});
    }

    Atom atomOf(const RichRun& run, std::string_view part) { return {&run, part, measure_.width(part, run.style), 0}; }

    void beginLine(float left) { fields_.assign(1, {{left, Align::left}, left}); }
    bool isEmpty() const { return fields_.size() == 1 && fields_.front().atoms.empty(); }

    bool fits(float more) const {
        const Field& field = fields_.back();
        return Field{field.stop, field.behind, {}, field.width + more}.end() <= edges_.right + tolerance;
    }

    void placeBlanks() {
        for (const Atom& blank : blanks_) fields_.back().add(blank);
        blanks_.clear();
    }

    static float widthOf(const std::vector<Atom>& atoms) {
        float width = 0;
        for (const Atom& atom : atoms) width += atom.width;
        return width;
    }

    void placeWord() {
        if (word_.empty()) return;
        if (!isEmpty() && !fits(widthOf(blanks_) + widthOf(word_))) endLine(true);
        placeBlanks();
        for (const Atom& atom : word_) {
            if (fits(atom.width))
                fields_.back().add(atom);
            else
                placeInPieces(atom);
        }
        word_.clear();
    }

    // What is wider than the rest of the line, and perhaps than any line.
    void placeInPieces(const Atom& atom) {
        if (!isEmpty()) endLine(true);
        if (fits(atom.width) || atom.text.empty()) return fields_.back().add(atom);
        std::vector<std::uint32_t> starts;
        measure_.breakLines(atom.text, atom.run->style, edges_.right - fields_.back().end(), starts);
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const std::size_t to = i + 1 < starts.size() ? starts[i + 1] : atom.text.size();
            if (i > 0) endLine(true);
            fields_.back().add(atomOf(*atom.run, atom.text.substr(starts[i], to - starts[i])));
        }
    }

    void tab() {
        placeBlanks();
        TabStop stop = nextStop(fields_.back().end());
        if (stop.align == Align::right) stop.at = std::min(stop.at, edges_.right);
        if (stop.at > edges_.right + tolerance) {
            if (isEmpty()) return;
            endLine(true);
            return tab();
        }
        fields_.push_back({stop, fields_.back().end()});
    }

    TabStop nextStop(float from) const {
        std::optional<TabStop> next;
        const auto consider = [&](TabStop stop) {
            if (stop.at > from + tolerance && (!next || stop.at < next->at)) next = stop;
        };
        for (const TabStop& stop : paragraph_.tabs) consider({room_.left + stop.at, stop.align});
        consider({edges_.left, Align::left});  // behind the mark of a list, where its other lines begin
        if (next) return *next;
        return {room_.left + (std::floor((from - room_.left + tolerance) / tabWidth) + 1) * tabWidth, Align::left};
    }

    // broken: the paragraph goes on below. Blanks at a line's end do not count.
    void endLine(bool broken) {
        blanks_.clear();
        lines_.push_back(placing_.place(fields_, edges_.right, broken));
        beginLine(edges_.left);
    }

    const RichParagraph& paragraph_;
    const RichRoom& room_;
    const Edges edges_;
    TextMeasure& measure_;
    LinePlacing placing_;
    std::vector<RichLine> lines_;
    Fields fields_;
    std::vector<Atom> blanks_, word_;
};

}  // namespace

std::vector<RichLine> breakParagraph(const RichParagraph& paragraph, const RichRoom& room, TextMeasure& measure) {
    return LineBreaker(paragraph, room, measure).run();
}

}  // namespace quillo
