#pragma once

#include "reports/statistics/invoiced_items.h"

namespace quillo {

// The invoiced lines of a period by customer, with the item of each; the lines of a kit stay together.
class dsrInvStatByCust final : public InvoicedItems {
public:
    explicit dsrInvStatByCust(HostContext& context);

private:
    std::string columns() const override;
    std::string_view condition() const override;
    std::string orderBy() const override;
    std::string partyOfRow() const override;
    void ghInCustId_Format();

    Label& lblClientCap = label("lblClientCap");
    Label& lblClient = label("lblClient");
};

}  // namespace quillo
