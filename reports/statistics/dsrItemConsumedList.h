#pragma once

#include "reports/statistics/item_list.h"

namespace quillo {

// What left the stock in a period, by item: units sold on documents with their sales, units used up in assemblies with
// their cost.
class dsrItemConsumedList final : public ItemListReport {
public:
    explicit dsrItemConsumedList(HostContext& context);

    int InItemId = 0;  // one item alone, by key; 0: all

    std::string IReport_ReportTitle() override { return foundationTitle(); }

private:
    struct Sums {
        Money quantity, sold, assembled;
    };

    void ActiveReport_ReportStart() override;
    std::string query() const;
    std::string amounts() const;
    void ghInItemId_Format();
    void Detail_Format();
    std::string tagOfRow() const;
    std::string GetTrxTypeDesc();
    std::string GetInvoiTypeDesc();
    void gfInItemId_Format();
    void ReportFooter_Format();

    Field& txtTrxDate = field("txtTrxDate");
    Field& txtTrxType = field("txtTrxType");
    Field& txtNoDoc = field("txtNoDoc");
    Field& txtQty = field("txtQty");
    Field& txtSalesAmnt = field("txtSalesAmnt");
    Field& txtExtAmnt = field("txtExtAmnt");
    DataControl& rsItemTrx = data("rsItemTrx");

    Sums m_item, m_grand;
};

}  // namespace quillo
