#pragma once

#include "reports/day_end/balance.h"

namespace quillo {

// The closing of the day by user of the tills.
class dsrDayEndBalanceByUsr final : public DayEndBalance {
public:
    explicit dsrDayEndBalanceByUsr(HostContext& context);

private:
    Till::Query salesLines(const FilterParts& filter) override;
    Till::Query receiptsByMethod(const std::string& key) override;
    Till::Query drawerRows(const std::string& key) override;
    Till::Query salesTotals(const std::string& key) override;
    Till::Query receiptsTotal(const std::string& key) override;
    Till::Query cashSales(const std::string& key) override;
    std::shared_ptr<DayEndMethodTotals> makeMethodTotals() override;
    std::string keyOf(const Variant& value) const override;
    void tellDrawer(dsrDayEndBalanceSubRepVent& drawer, const std::string& key) override;
    void ghTrxUsrKey_Format();
    std::string inHomeCurrency(const char* currency, const char* amount, const char* converted) const;
    void addPaymentRows(Till::Query& query, const char* amount, const char* amountText, const char* condition,
                        const char* more, const std::string& key);

    Field& txtUsrName = field("txtUsrName");
};

}  // namespace quillo
