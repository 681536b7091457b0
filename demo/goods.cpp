#include "demo/masters.h"

#include <stdexcept>
#include <string_view>

namespace quillo::demo {
namespace {

Id itemByCode(std::string_view code) {
    Id key = 0;
    for (const auto& data : items()) {
        ++key;
        if (code == data.code) return key;
    }
    throw std::logic_error("no item " + std::string(code));
}

// Reads "CODE*2 CODE*1".
std::vector<Component> componentsOf(std::string_view made) {
    std::vector<Component> components;
    while (!made.empty()) {
        const auto star = made.find('*');
        const auto blank = made.find(' ', star);
        components.push_back({itemByCode(made.substr(0, star)), units(std::stoi(std::string(made.substr(star + 1))))});
        made = blank == std::string_view::npos ? std::string_view{} : made.substr(blank + 1);
    }
    return components;
}

Account salesAccount(Category category) {
    return static_cast<Account>(Id{salesLumber} + Id{category} - Id{lumber});
}

void writeCategories(Trade& trade) {
    Table rows(trade.database, "Category");
    Id key = 0;
    for (const auto& name : categories()) rows.add(++key, trade.words.name(name));
    Table sub(trade.database, "Category_Sub");
    key = 0;
    for (const auto& row : subcategories()) sub.add(++key, Id{row.category}, trade.words.name(row.description));
}

void writeWarehouses(Trade& trade) {
    Table rows(trade.database, "Warehouse");
    rows.add(Id{montreal}, "MTL", "Montréal", false);
    rows.add(Id{quebec}, "QC", "Québec", nullptr);
    rows.add(Id{ottawa}, "OTT", "Ottawa", false);
    rows.add(Id{laval}, "LAV", trade.words.name({"Laval (closed in 2023)", "Laval (fermé en 2023)"}), true);
}

}  // namespace

void writeGoods(Trade& trade) {
    writeCategories(trade);
    writeWarehouses(trade);
    Table rows(trade.database, "Item");
    Table parts(trade.database, "ItemComponent");
    Table costs(trade.database, "ItemCost");
    for (const auto& data : items()) {
        Item item{static_cast<Id>(trade.items.size() + 1), &data, salesAccount(data.category), componentsOf(data.made),
                  Cents{data.price}};
        rows.add(item.id, data.code, trade.words.say(data.description), Id{data.category},
                 data.subcategory == 12 ? std::nullopt : std::optional(data.subcategory), item.price, item.service(),
                 item.kit(), data.assembled, data.kitOption, data.kitOption == 1, data.inactive);
        for (const auto& part : item.components) parts.add(item.id, part.item, part.quantity);
        if (data.cost != 0) costs.add(item.id, firstDay, Cents{data.cost});
        trade.items.push_back(std::move(item));
    }
}

}  // namespace quillo::demo
