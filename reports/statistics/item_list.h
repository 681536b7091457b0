#pragma once

#include <string>
#include <string_view>

#include "framework/run_frame.h"

namespace quillo {

// What the lists of invoiced and of consumed items ask alike: a filter over warehouses too, where the company has them,
// and one option of the dialog, which holds unless the user takes it away.
class ItemListReport : public SegmentReport, public IReportConfig {
public:
    void IReport_Initialize() override;
    std::string filterTables() const override;
    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

protected:
    // option: its bit.
    ItemListReport(std::string name, HostContext& context, const ContractRow& contract, int option)
        : SegmentReport(std::move(name), context, contract), option_(option) {}

    bool isOptionOn() const { return optionOn_; }
    // The columns that keep a group together, then the user's order, which brings its comma along, else the report's
    // own.
    std::string orderBehind(std::string_view keeping, std::string_view own) const;
    // The title as the host's foundation has it.
    std::string foundationTitle();
    // "Item:" and "HNG-2 - Hinge of brass".
    void showItem(std::string_view code, std::string_view description);
    // Empty for what has neither.
    static std::string codeAndName(std::string_view code, std::string_view name);

private:
    const int option_;
    bool optionOn_ = true;
    bool warehouses_ = false;
};

}  // namespace quillo
