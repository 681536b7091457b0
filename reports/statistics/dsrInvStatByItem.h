#pragma once

#include "reports/statistics/invoiced_items.h"

namespace quillo {

// The invoiced lines of a period by item, with the customer of each.
class dsrInvStatByItem final : public InvoicedItems {
public:
    explicit dsrInvStatByItem(HostContext& context);

private:
    std::string columns() const override;
    std::string_view condition() const override { return ""; }
    std::string orderBy() const override;
    std::string partyOfRow() const override { return customerOfRow(); }
    void ghInItemId_Format();
    void gfInItemId_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    Label& lblQtyTotal = label("lblQtyTotal");
    Field& txtQtyTotal = field("txtQtyTotal");
    Field& txtExtQtyTotal = field("txtExtQtyTotal");
};

}  // namespace quillo
