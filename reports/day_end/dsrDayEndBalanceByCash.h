#pragma once

#include "reports/day_end/balance.h"

namespace quillo {

// The closing of the day by cash register.
class dsrDayEndBalanceByCash final : public DayEndBalance {
public:
    explicit dsrDayEndBalanceByCash(HostContext& context);

private:
    Till::Query salesLines(const FilterParts& filter) override;
    Till::Query receiptsByMethod(const std::string& key) override;
    Till::Query drawerRows(const std::string& key) override;
    Till::Query salesTotals(const std::string& key) override;
    Till::Query receiptsTotal(const std::string& key) override;
    Till::Query cashSales(const std::string& key) override;
    std::shared_ptr<DayEndMethodTotals> makeMethodTotals() override;
    std::string keyOf(const Variant& value) const override { return value.textOrEmpty(); }
    void tellDrawer(dsrDayEndBalanceSubRepVent& drawer, const std::string& key) override { drawer.TrxSerNo = key; }
    void addPaymentRows(Till::Query& query, const char* dates, const char* amounts, const char* condition,
                        const std::string& key);
    // Rows without a register run under an empty key: then a query takes all registers.
    static void addKey(Till::Query& query, const char* condition, const std::string& key);
};

}  // namespace quillo
