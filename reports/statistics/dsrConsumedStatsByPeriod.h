#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "reports/statistics/item_list.h"

namespace quillo {

// What was sold, used up in assemblies and consumed of each item, a line an accounting period. The lines are no rows of
// a query: they are all periods of the range for every item, also where nothing moved.
class dsrConsumedStatsByPeriod final : public ItemListReport {
public:
    explicit dsrConsumedStatsByPeriod(HostContext& context);

    int InItemId = 0;  // one item alone, by key; 0: all

    std::string IReport_ReportTitle() override { return foundationTitle(); }

private:
    struct Figures {
        Money sales, sold, assembled, consumed;
    };
    // The days of the first and the last movement; nothing where none is known.
    struct MovementDays {
        std::optional<Date> first, last;
    };
    void ActiveReport_ReportStart() override;
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& eof);
    std::string itemQuery() const;
    MovementDays GetFirstLastTrxDate();
    void InitializePeriods();
    void RetreivePeriods(const FiscalYear& year);
    std::string GetAdditionalCriterias(std::string_view view) const;
    void nextRow();
    void fillRow();
    int itemOfRow() const { return m_items->Value("InItemId", ValueType::integer).int32OrZero(); }
    Money GetCurrentPeriodQtyConsumed() const;
    Money GetCurrentPeriodSaleAmnt() const;
    Money GetCurrentPeriodSaleQty() const;
    Money GetCurrentPeriodAssembly() const;
    const FiscalPeriod& period() const { return m_periods[m_lngCurrentPeriod - 1]; }
    void ghInItemId_Format();
    void Detail_Format();
    void gfInItemId_Format();
    void ReportFooter_Format();
    Money figure(const char* name) { return Fields.Item(name).Value.moneyOrZero(); }
    std::string plainText(Money quantity) const { return locale().plainNumber(Variant(quantity)); }

    Field& txtSalesAmnt = field("txtSalesAmnt");

    std::vector<FiscalPeriod> m_periods;  // clipped to the range
    std::size_t m_lngCurrentPeriod = 0;   // from 1; 0 before the first row
    std::unique_ptr<HostRecordset> m_items;
    ItemCostService* m_objItem = nullptr;
    Figures m_item, m_grand;
};

}  // namespace quillo
