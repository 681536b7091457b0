#include "reports/statistics/item_list.h"

#include "dialogs/frmAdvFilters.h"

namespace quillo {

void ItemListReport::IReport_Initialize() {
    STEP(warehouses_ = application().DefaultWarehouseID() != 0);
}

std::string ItemListReport::filterTables() const {
    return (warehouses_ ? "Warehouse.WarehouseId, Warehouse.Name, " : "") + std::string(contract().tables);
}

void ItemListReport::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(option_, optionOn_);
    STEP(form.PrepareInvConfigDialog(application(), option_, 0));
    STEP(dialogs.ShowModal(form));
    optionOn_ = form.Properties(option_);
}

std::string ItemListReport::orderBehind(std::string_view keeping, std::string_view own) const {
    const std::string head = " ORDER BY " + std::string(keeping);
    if (m_strFilter.empty()) return head + std::string(own);
    const FilterParts filter = filterParts();
    return head + " " + (filter.order.empty() ? std::string(own) : filter.order);
}

std::string ItemListReport::foundationTitle() {
    std::string title;
    STEP_OF(IReport_ReportTitle, title = context().GetText(titleId()));
    return title;
}

std::string ItemListReport::codeAndName(std::string_view code, std::string_view name) {
    return code.empty() && name.empty() ? "" : std::string(code).append(" - ").append(name);
}

void ItemListReport::showItem(std::string_view code, std::string_view description) {
    STEP_OF(ghInItemId_Format, field("txtItemCap").Text = GetText(1729) + ":");
    field("txtItem").Text = codeAndName(code, description);
}

}  // namespace quillo
