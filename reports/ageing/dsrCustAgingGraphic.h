#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/run_frame.h"
#include "reports/ageing/ageing.h"

namespace quillo {

// The receivables by age as charts, in home currency: the four columns as bars, then for each column a pie of its
// largest customers with a legend. A credit note counts as its row tells, not as it stands at the date: meant, the
// graph shows the list.
class dsrCustAgingGraphic final : public ReportFrame {
public:
    explicit dsrCustAgingGraphic(HostContext& context);

private:
    // What a customer owes in a column. Customers of one name are one, with the key of the first.
    struct Customer {
        Money amount;
        int key = 0;
    };
    using Customers = std::map<std::string, Customer>;
    // A row of a pie's legend.
    struct Slice {
        std::string name;
        Money amount;
        std::optional<int> key;  // absent: the sum of those that have no row of their own
    };

    void ActiveReport_ReportStart() override;
    void ActiveReport_FetchData(bool& eof);
    void GroupHeader1_Format();
    void Detail_Format();

    void readList();
    Money FillDataStructure(Customers& customers) const;
    void AgingGraphDetailByPeriod(std::size_t column);
    std::string periodName(std::size_t column) const;
    static std::vector<Slice> slicesOf(Customers customers);
    void showLegend(const std::vector<Slice>& slices, Money total);
    void showPie(const std::vector<Slice>& slices);

    Chart& MSCCustAgeGrap = control<Chart>("MSCCustAgeGrap");
    Chart& MSCPeriod = control<Chart>("MSCPeriod");
    Label& lblPeriodName = label("lblPeriodName");
    Field& txtTotPer = field("txtTotPer");
    Label& lblNotice = label("lblNotice");

    AgePeriods m_periods;
    std::unique_ptr<HostRecordset> m_list;
    std::array<Customers, ageColumns> m_customers;
    AgeAmounts m_totals;
    bool m_bForeignUsed = false;
    int m_lngHomeCurrencyId = 0;
    std::size_t m_counter = 0;  // of the passes of Detail
};

}  // namespace quillo
