#include <array>

#include "framework/engine/report.h"
#include "host/drill/record_card.h"

namespace quillo {
namespace {

constexpr std::size_t mostColumns = 6;
constexpr float printedWidth = 10800, gap = 120, factCaption = 2400, figure = 1500;

// A line of a card: a fact, the captions of a table, or one of its rows.
struct CardLine {
    std::size_t card, block;  // what it belongs to; block 0 are the facts
    std::string title, blockTitle;
    std::array<std::string, mostColumns> texts{};
    const RecordCard::Table* table = nullptr;
    bool captions = false;
};

class CardReport final : public Report {
public:
    CardReport(HostContext& context, std::vector<RecordCard> cards)
        : Report("dsrRecordCard", context), cards_(std::move(cards)) {
        for (const char* name : {"Card", "Title", "Block", "BlockTitle"}) Fields.Add(name);
        for (std::size_t i = 0; i < mostColumns; ++i) columns_[i] = &field("fld" + std::to_string(i + 1));
        for (std::size_t i = 0; i < cards_.size(); ++i) addCard(i);
        onFetchData(&CardReport::fetch);
        onFormat("ghBlock", &CardReport::ghBlock_Format);
        onFormat("Detail", &CardReport::Detail_Format);
    }

private:
    void addCard(std::size_t at) {
        const RecordCard& card = cards_[at];
        for (const RecordCard::Fact& fact : card.facts)
            lines_.push_back({at, 0, card.title, {}, {fact.caption, fact.value}});
        for (std::size_t i = 0; i < card.tables.size(); ++i) addTable(at, i + 1, card.tables[i]);
    }

    void addTable(std::size_t card, std::size_t block, const RecordCard::Table& table) {
        CardLine line{card, block, cards_[card].title, table.title};
        line.table = &table;
        line.captions = true;
        for (std::size_t i = 0; i < table.columns.size(); ++i) line.texts[i] = table.columns[i].caption;
        lines_.push_back(line);
        line.captions = false;
        for (const auto& row : table.rows) {
            std::copy(row.begin(), row.end(), line.texts.begin());
            lines_.push_back(line);
        }
    }

    void fetch(bool& eof) {
        eof = next_ == lines_.size();
        if (eof) return;
        const CardLine& line = lines_[next_++];
        Fields.Item("Card").Value = static_cast<int>(line.card);
        Fields.Item("Title").Value = line.title;
        Fields.Item("Block").Value = static_cast<int>(line.block);
        Fields.Item("BlockTitle").Value = line.blockTitle;
    }

    const CardLine& line() const { return lines_[next_ - 1]; }

    void ghBlock_Format() { section("ghBlock").Visible = !line().blockTitle.empty(); }

    void Detail_Format() {
        const std::size_t count = line().table == nullptr ? 2 : line().table->columns.size();
        float left = 0;
        for (std::size_t i = 0; i < mostColumns; ++i) {
            Field& column = *columns_[i];
            column.Visible = i < count;
            column.Text = line().texts[i];
            if (!column.Visible) continue;
            column.Left = left;
            column.Width = widthOf(i, count);
            column.setAlignment(isFigure(i) ? Align::right : Align::left);
            column.Style.edit().bold = line().captions || (line().table == nullptr && i == 1);
            left += column.Width + gap;
        }
    }

    bool isFigure(std::size_t i) const { return line().table != nullptr && line().table->columns[i].right; }

    // Figures are of one width; the texts share what they leave.
    float widthOf(std::size_t i, std::size_t count) const {
        if (line().table == nullptr) return i == 0 ? factCaption : printedWidth - factCaption - gap;
        if (isFigure(i)) return figure;
        std::size_t figures = 0;
        for (std::size_t k = 0; k < count; ++k) figures += isFigure(k) ? 1 : 0;
        const float texts = static_cast<float>(count - figures);
        return (printedWidth - static_cast<float>(figures) * figure - static_cast<float>(count - 1) * gap) / texts;
    }

    std::vector<RecordCard> cards_;
    std::vector<CardLine> lines_;
    std::size_t next_ = 0;
    std::array<Field*, mostColumns> columns_{};
};

}  // namespace

std::shared_ptr<Report> makeCardReport(HostContext& context, std::vector<RecordCard> cards) {
    return std::make_shared<CardReport>(context, std::move(cards));
}

}  // namespace quillo
