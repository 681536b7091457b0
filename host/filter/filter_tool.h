#pragma once

#include <functional>
#include <string>

#include "framework/services/services.h"
#include "host/company/catalogue.h"

namespace quillo {

// What a user asked for beforehand, in a host without windows.
struct FilterChoice {
    std::string where{};
    std::string order{};
    bool cancel = false;            // behaves as a user who refuses the filter
    bool leadingSeparator = false;  // the report joins the order part as it comes: it gets ", " in front
};

// Checks the choice against the tables and columns that the report names, and hands the filter string
// over. Nothing that is not a condition or an order of columns reaches the database. One report.
class HeadlessFilterTool final : public FilterTool {
public:
    using Deliver = std::function<void(const std::string& filter)>;

    // deliver takes where part, "|" and order part, or an empty text when both are empty: the report's
    // IFilterableReport_Filter. Columns are delivered as "Table.Column", however they were asked for. Catalogue and
    // context must outlive the tool.
    HeadlessFilterTool(FilterChoice choice, const Catalogue& catalogue, const HostContext& context, Deliver deliver);

    // A choice that is refused cancels, as a user who sees the refusal would; failure() then tells the place.
    void GetFilter(const std::string& Tables, bool FlagA, bool FlagB, bool& Cancel, bool FlagC, bool FlagD) override;
    // Empty before a successful GetFilter.
    FilterInfo GetFilterInfo() override { return info_; }

    // Why the choice was refused; empty when it was not.
    const std::string& failure() const { return failure_; }
    // Not the choice is to blame, but a company without a table or column of the report's.
    bool companyLacks() const { return companyLacks_; }

private:
    std::string checked(const std::string& tables);

    FilterChoice choice_;
    const Catalogue& catalogue_;
    const HostContext& context_;
    Deliver deliver_;
    FilterInfo info_;
    std::string failure_;
    bool companyLacks_ = false;
};

}  // namespace quillo
