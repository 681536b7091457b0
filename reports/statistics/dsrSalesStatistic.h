#pragma once

#include <array>
#include <memory>

#include "framework/run_frame.h"
#include "reports/statistics/sales_statistic_query.h"

namespace quillo {

// What each item sold in a period and in the same one a year earlier: units, sales, cost and margin, a line a period.
// In a company with warehouses an item is a group with a line a warehouse and a subtotal; the sections of the group are
// made at run time, when the report learns of its company.
class dsrSalesStatistic final : public SegmentReport, public IReportConfig {
public:
    explicit dsrSalesStatistic(HostContext& context);

    bool SubReportVisible = false;  // True hides the footer with its totals

    void IReport_Initialize() override;
    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;
    std::string filterTables() const override;

private:
    // What was sold in one period.
    struct Figures {
        Money units, sales, cost;
        Money profit() const { return sales - cost; }
    };
    // The controls of one period: units, sales, cost, profit, share of profit.
    using Labels = std::array<Label*, 5>;
    using Fields = std::array<Field*, 5>;
    enum Place : std::size_t { units, sales, cost, profit, share };

    Labels labels(const std::array<const char*, 5>& names) const;
    void addWarehouseSections();
    void addItemHeading();
    void addWarehouseHeading();
    void addItemTotals();
    Fields addTotalFields(float top, const std::array<const char*, 5>& names);

    void ActiveReport_ReportStart() override;
    void checkInventory();
    void setDetailHeight();
    void ClearControls();
    void comparePeriods();
    void openRows();
    void PageHeader_Format();
    void ReplacePageHeaderControls();
    void Detail_Format();
    Figures readFigures(const std::string& period, Date day);
    void addToTotals(Figures& totals, const Figures& figures);
    void printFigures(const Figures& figures, const Labels& line);
    std::string shareOf(const Figures& figures) const;
    void placeFigures();
    void addToItem(const Figures& now, const Figures& before);
    void addToLine(const Figures& figures, const Fields& line, bool begins);
    Money readBack(const std::string& text) const;
    std::string shareOfItem(const Fields& line) const;
    void m_objItemHeaderSection_Format();
    void m_objWarehouseHeaderSection_Format();
    void m_objItemFooterSection_Format();
    void PageFooter_Format();
    void ReportFooter_Format();
    void printTotals(const Figures& totals, const Labels& line);
    void placeTotals();

    DataControl& rsItem = data("rsItem");
    Label& lblCodeItemCap = label("lblCodeItemCap");
    Label& lblDescrCap = label("lblDescrCap");
    Field& fldItem = field("fldItem");
    Field& fldDescr = field("fldDescr");
    Label& lblWarningInvMaj = label("lblWarningInvMaj");
    Label& lblEnd = label("lblEnd");
    Labels thisYearCaps_, lastYearCaps_;  // the margins have one caption for both years
    Labels thisYear_, lastYear_;
    Labels thisYearTotals_, lastYearTotals_;

    // What a company with warehouses has besides.
    Section* m_objItemHeaderSection = nullptr;
    Section* m_objWarehouseHeaderSection = nullptr;
    Section* m_objItemFooterSection = nullptr;
    Fields itemThisYear_{}, itemLastYear_{};

    SalesStatisticWish wish_;
    std::unique_ptr<InventoryUpdateAgent> m_objInventoryUpdate;
    ItemCostService* m_objKitCost = nullptr;
    bool m_bInventoryWarning = false;
    Date m_dtInventoryDate;
    int m_lngCurrentItemId = 0;
    Figures m_thisYear, m_lastYear;
};

}  // namespace quillo
