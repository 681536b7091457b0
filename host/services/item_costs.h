#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"
#include "host/services/item_sums.h"

namespace quillo {

// Costs of the first of these that knows any up to the day: of a kit, its components; the item's last movement;
// its standard cost. Movements tell their running costs; those that do not yet are reckoned from their quantity
// and value.
class SqliteItemCosts final : public ItemCostService {
public:
    // Both must outlive it. The company tells the cost method.
    SqliteItemCosts(const sqlite::Database& database, const Company& company)
        : database_(database), company_(company), sums_(database) {}

    void setCached(bool cached) override;
    Money ItemCost(int itemId, Date day, int argumentA, int argumentB, bool flag) override;
    Money GetCurrentPeriodQtyConsumed(int itemId, Date start, Date end, const std::string& clause) override;
    Money GetCurrentPeriodSaleAmnt(int itemId, Date start, Date end, const std::string& clause) override;
    Money GetCurrentPeriodSaleQty(int itemId, Date start, Date end, const std::string& clause) override;

private:
    struct CostStep {
        Date from;
        Money cost;
    };
    using Steps = std::vector<CostStep>;  // by day, the last of a day in force
    struct Component {
        int itemId;
        double quantity;  // for one unit
    };
    struct Item {
        std::string code;
        bool isKit = false;
        Steps moved, standard;
        std::vector<Component> components;
    };

    void readAll();
    void readItems();
    void readMovements();
    void readStandardCosts();
    void readComponents();
    Item* find(std::int64_t itemId);
    Money unitCost(int itemId, Date day, std::vector<int>& kits);
    static const CostStep* stepAt(const Steps& steps, Date day);

    const sqlite::Database& database_;
    const Company& company_;
    bool cached_ = false;
    bool read_ = false;
    std::unordered_map<std::int64_t, Item> items_;
    ItemSums sums_;
};

}  // namespace quillo
