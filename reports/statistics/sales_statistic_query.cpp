#include "reports/statistics/sales_statistic_query.h"

#include <initializer_list>

#include "framework/query_builder.h"
#include "framework/step.h"

namespace quillo {
namespace {

#define CRLF "\r\n"

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
}

}  // namespace

Date yearBefore(Date day) {
    const auto [year, month, date] = day.civil();
    return month == 2 && date == 29 ? Date::fromCivil(year - 1, 3, 1) : Date::fromCivil(year - 1, month, date);
}

std::string SalesStatisticQuery::orNull(std::string_view expression) const {
    return report_.context().utils().NullExpression(expression, "0", true);
}

std::string SalesStatisticQuery::GetInvoiTypeFilter() const {
    switch (wish_.FilterType) {
        case 1:
            return " AND InvoiType = 1" CRLF;
        case 2:
            return " AND InvoiType = 3" CRLF;
        case 3:
            return " AND InvoiType IN (1,3)" CRLF;
        default:
            return {};
    }
}

std::string SalesStatisticQuery::soldQuery(std::string_view sum, std::string_view view) const {
    return joined({" SELECT InItemId, ", perWarehouse("ExWarehouseID, "), sum, " " CRLF " FROM ", view,
                   " " CRLF " WHERE InvoiDate BETWEEN ? AND ? " CRLF, GetInvoiTypeFilter(), " GROUP BY InItemId",
                   perWarehouse(", ExWarehouseID"), " "});
}

std::string SalesStatisticQuery::ItemSoldAmountsQuery(Params& params, const Period& period) const {
    params.insert(params.end(), {period.from, period.to});
    return soldQuery("SUM(TotalSales) AS SumTotalSales", "ItemSoldAmounts_View");
}

std::string SalesStatisticQuery::ItemSoldUnitsQuery(Params& params, const Period& period) const {
    params.insert(params.end(), {period.from, period.to});
    return soldQuery("SUM(TotalUnitsSold) AS SumTotalUnitsSold", "ItemSoldUnits_View");
}

// The last movement of each item. The last days are not told apart by warehouse where they meet the movements: meant,
// the costs are the item's, wherever it moved last.
std::string SalesStatisticQuery::lastMovements() const {
    return joined(
        {" SELECT InvenDet.InTrxId, InvenDet.ExItemId, " CRLF,
         wish_.byWarehouse ? "        InvenDet.RunningAvgCost, InvenDet.RunningLastCost, " CRLF
                             "        InvenDet.ExWarehouseID, InvenDet.ExSegmentID " CRLF
                           : "        InvenDet.RunningAvgCost, InvenDet.RunningLastCost, InvenDet.ExSegmentID " CRLF,
         " FROM InvenDet " CRLF "   INNER JOIN " CRLF
         "       (SELECT LastValidIdByItem.ExItemId, MAX(InTrxId) As MaxTrxId",
         perWarehouse(", LastValidIdByItem.ExWarehouseID"),
         " " CRLF "        FROM InvenDet LastValidIdByItem " CRLF "           INNER JOIN " CRLF
         "               (SELECT LastValidDateByItem.ExitemId, MAX(DetDate) ",
         wish_.byWarehouse ? "AS MaxDate, LastValidDateByItem.ExWarehouseID " : "As MaxDate ",
         CRLF "                FROM InvenDet LastValidDateByItem " CRLF "                WHERE DetDate <= ? " CRLF
              "                GROUP BY LastValidDateByItem.ExItemId",
         perWarehouse(", LastValidDateByItem.ExWarehouseID"),
         ") AS LastValidDateByItemQry " CRLF "           ON LastValidIdByItem.ExitemId=LastValidDateByItemQry.ExitemId"
         " AND LastValidIdByItem.DetDate=LastValidDateByItemQry.MaxDate " CRLF
         "        GROUP BY LastValidIdByItem.ExitemId",
         perWarehouse(", LastValidIdByItem.ExWarehouseID"),
         ") As LastValidIdByItemQry " CRLF "   ON InvenDet.InTrxid=LastValidIdByItemQry.MaxTrxId "});
}

// Kits do not move: their last line stands for them, with costs of 0. The day decides which kits appear and not which
// line is taken: meant, a line of a later day tells the same.
std::string SalesStatisticQuery::lastKitLines() const {
    const std::string_view warehouse = perWarehouse(", InvoiDet.ExWarehouseId");
    return joined({" SELECT InvoiDet.InInvoiDetId as InTrxId, InvoiDet.ExItemId, " CRLF,
                   wish_.byWarehouse ? "        0 as RunningAvgCost, 0 as RunningLastCost, " CRLF
                                       "        InvoiDet.ExWarehouseId, InvoiDet.ExSegmentID " CRLF
                                     : "        0 as RunningAvgCost, 0 as RunningLastCost, InvoiDet.ExSegmentID " CRLF,
                   " FROM InvoiDet " CRLF "   INNER JOIN " CRLF
                   "       (SELECT InvoiDet.ExItemId, MAX(InvoiDet.InInvoiDetId) AS MaxTrxId",
                   warehouse,
                   " " CRLF "        FROM InvoiDet " CRLF "           INNER JOIN " CRLF
                   "               (SELECT InvoiDet.ExItemId, MAX(InvoiHdr.InvoiDate) AS MaxDate",
                   warehouse,
                   " " CRLF "                FROM InvoiDet " CRLF
                   "                INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = InvoiDet.ExInvoiId " CRLF
                   "                WHERE InvoiHdr.InvoiDate <= ? " CRLF "                GROUP BY InvoiDet.ExItemId",
                   warehouse,
                   ") AS LastValidDateByItemQry " CRLF
                   "           ON InvoiDet.ExItemId = LastValidDateByItemQry.ExItemId " CRLF
                   "        GROUP BY InvoiDet.ExItemId",
                   warehouse,
                   ") AS LastValidIdByItemQry " CRLF "   ON InvoiDet.InInvoiDetId = LastValidIdByItemQry.MaxTrxId " CRLF
                   " WHERE (InvoiDet.IsKit IS NOT NULL AND InvoiDet.IsKit <> 0)"});
}

std::string SalesStatisticQuery::InvenDetQuery(Params& params, Date day) const {
    params.insert(params.end(), {day, day});
    return lastMovements() + CRLF " UNION ALL " CRLF + lastKitLines();
}

// One of the four shares ends without a blank: meant, a server knows a query again by its very text.
SalesStatisticQuery::CostTexts SalesStatisticQuery::costTexts(const Period& period) const {
    if (report_.context().company().GetParameter("CostCalculMeth", "0") == "0")
        return {"(RunningAvgCost * SumTotalUnitsSold)", "(SumTotalSales - (RunningAvgCost * SumTotalUnitsSold))",
                "((SumTotalSales - (RunningAvgCost * SumTotalUnitsSold)) / SumTotalSales) "};
    return {"(RunningLastCost * SumTotalUnitsSold)", "(SumTotalSales - (RunningLastCost * SumTotalUnitsSold))",
            period.name == "Current" ? "((SumTotalSales - (RunningLastCost * SumTotalUnitsSold)) / SumTotalSales)"
                                     : "((SumTotalSales - (RunningLastCost * SumTotalUnitsSold)) / SumTotalSales) "};
}

std::string SalesStatisticQuery::percent(std::string_view share) const {
    const std::string sales = orNull("SumTotalSales");
    return isJet(report_.context()) ? "IIF(" + sales + " = 0,0," + orNull(share) + ")"
                                    : "CASE WHEN (" + sales + " = 0) THEN 0 ELSE (" + orNull(share) + ") END";
}

std::string SalesStatisticQuery::measures(const Period& period) const {
    const CostTexts cost = costTexts(period);
    return joined({orNull("RunningAvgCost"),
                   " AS RunningAvgCost",
                   period.name,
                   ", " CRLF,
                   orNull("RunningLastCost"),
                   " AS RunningLastCost",
                   period.name,
                   ", " CRLF,
                   orNull("SumTotalUnitsSold"),
                   " AS SumTotalUnitsSold",
                   period.name,
                   ", " CRLF,
                   orNull("SumTotalSales"),
                   " AS SumTotalSales",
                   period.name,
                   ", ",
                   orNull(cost.price),
                   " AS ItemPrice",
                   period.name,
                   ", " CRLF,
                   orNull(cost.profit),
                   " AS Profit",
                   period.name,
                   ", " CRLF,
                   percent(cost.percent),
                   " AS PercentProfit",
                   period.name,
                   " " CRLF});
}

std::string SalesStatisticQuery::block(Params& params, const Period& period, std::string_view head) const {
    const std::string costs = InvenDetQuery(params, period.to);
    const std::string amounts = ItemSoldAmountsQuery(params, period);
    const std::string units = ItemSoldUnitsQuery(params, period);
    const std::string costsName = "InvenDet" + std::string(period.name);
    const auto onItem = [&](std::string_view sold) {
        return wish_.byWarehouse ? joined({costsName, ".ExItemId = ", sold, ".InItemID AND ", costsName,
                                           ".ExWarehouseId = ", sold, ".ExWarehouseId"})
                                 : joined({costsName, ".ExItemId = ", sold, ".InItemId"});
    };
    return joined({head, measures(period), "FROM ((", costs, ") AS ", costsName, " " CRLF "  LEFT JOIN (", amounts,
                   ") AS ItemSoldAmount ON ", onItem("ItemSoldAmount"), ") " CRLF "  LEFT JOIN (", units,
                   ") AS ItemSoldUnits ON ", onItem("ItemSoldUnits"), " " CRLF});
}

// Items that sold in none of the periods are left out.
std::string SalesStatisticQuery::conditions(std::string_view hidden, std::string_view secondLine) const {
    std::string text = wish_.HideLastYearInfo
                           ? joined({hidden, "WHERE SumTotalUnitsSoldCurrent <> 0 AND SumTotalSalesCurrent <> 0 " CRLF})
                           : joined({"   WHERE ((SumTotalUnitsSoldCurrent <> 0 AND SumTotalSalesCurrent <> 0) OR " CRLF,
                                     secondLine, "(SumTotalUnitsSoldLast <> 0 AND SumTotalSalesLast <> 0)) "});
    if (!wish_.segments.empty()) text.append(" AND ").append(wish_.segments);
    return text;
}

std::string SalesStatisticQuery::MainQuery(Params& params) const {
    std::string now, before, query;
    STEP(now = block(params, current(), "SELECT ExItemId AS ExItemIdCurrent, ExSegmentID, " CRLF));
    STEP(before = wish_.HideLastYearInfo ? "SELECT InItemID AS ExItemIdLast FROM Item WHERE InItemID = 0" CRLF
                                         : block(params, last(), "SELECT ExItemId AS ExItemIdLast, " CRLF));
    STEP(query = joined({" SELECT Item.InItemId, Item.ItemId, Item.Descr1, Item.IsKit, CurrentInfo.*, LastInfo.* " CRLF
                         " FROM (((Item " CRLF "   LEFT JOIN (",
                         now, ") AS CurrentInfo ON Item.InItemId = CurrentInfo.ExItemIdCurrent)" CRLF "   LEFT JOIN (",
                         before,
                         ") AS LastInfo ON Item.InItemId = LastInfo.ExItemIdLast) " CRLF
                         "   LEFT JOIN Category ON Category.InCategoryId = Item.ExCategoryId) " CRLF
                         "   LEFT JOIN Category_Sub ON Category_Sub.InSubCategoryid = Item.ExSubCategoryId " CRLF,
                         conditions("   ", "       ")}));
    return query;
}

std::string SalesStatisticQuery::MainQueryWarehouse(Params& params) const {
    std::string now, before, query;
    STEP(now = block(params, current(),
                     "SELECT InvenDetCurrent.ExItemID, InvenDetCurrent.ExWarehouseID,  ExSegmentID," CRLF));
    STEP(before = wish_.HideLastYearInfo
                      ? "SELECT InItemId AS ExItemId, NULL As ExWarehouseID FROM Item WHERE InItemId = 0" CRLF
                      : block(params, last(), "SELECT InvenDetLast.ExItemID, InvenDetLast.ExWarehouseID, " CRLF));
    STEP(query = joined({"SELECT Item.InItemId, Item.ItemId, Item.Descr1, Item.IsKit, CurrentInfo.*, LastInfo.*, " CRLF
                         "       Warehouse.InWarehouseId, Warehouse.Name, Warehouse.WarehouseId, ",
                         isJet(report_.context()) ? " (ItemId & ': ' & Descr1) as FullItemDescr " CRLF
                                                  : " (ItemId + ': ' + CAST(Descr1 AS varchar)) as FullItemDescr " CRLF,
                         " FROM ((((((SELECT InItemId, InWarehouseId " CRLF "            FROM Item, Warehouse " CRLF
                         "            WHERE Warehouse.WarehouseInactive = 0 OR Warehouse.WarehouseInactive IS NULL)"
                         " AS ItemWarehouse " CRLF "   INNER JOIN Item ON Item.InItemId = ItemWarehouse.InItemId) " CRLF
                         "   INNER JOIN Warehouse ON Warehouse.InWarehouseId = ItemWarehouse.InWarehouseID) " CRLF
                         "   LEFT JOIN (",
                         now,
                         ") AS CurrentInfo ON CurrentInfo.ExItemID = ItemWarehouse.InItemID"
                         " AND CurrentInfo.ExWarehouseID = ItemWarehouse.InWarehouseId)" CRLF "   LEFT JOIN (",
                         before,
                         ") AS LastInfo ON LastInfo.ExItemID = ItemWarehouse.InItemID"
                         " AND LastInfo.ExWarehouseID = ItemWarehouse.InWarehouseId) " CRLF
                         "   LEFT JOIN Category ON Category.InCategoryId = Item.ExCategoryId) " CRLF
                         "   LEFT JOIN Category_Sub ON Category_Sub.InSubCategoryid = Item.ExSubCategoryId " CRLF,
                         conditions("  ", "          ")}));
    return query;
}

std::string SalesStatisticQuery::sortHead() const {
    constexpr std::string_view heads[] = {"", " ORDER BY SumTotalSalesCurrent", " ORDER BY SumTotalUnitsSoldCurrent",
                                          " ORDER BY ProfitCurrent", " ORDER BY PercentProfitCurrent"};
    std::string head;
    if (wish_.SortType > 0 && wish_.SortType < static_cast<int>(std::size(heads)))
        head = heads[static_cast<std::size_t>(wish_.SortType)];
    if (wish_.SortOption == 1) head += " ASC ";
    if (wish_.SortOption == 2) head += " DESC ";
    return head.empty() ? "ORDER BY " : head + ",";
}

// With warehouses the user's order only breaks ties, so that the warehouses of an item stay together; without them it
// stands in the place of the item's code.
void SalesStatisticQuery::ManageFilters(std::string& query) const {
    const FilterParts filter = splitFilter(wish_.filter);
    query += CRLF;
    if (!filter.where.empty()) query += " AND (" + filter.where + ") ";
    query += sortHead();
    const std::string_view own = wish_.byWarehouse ? "ItemId, WarehouseId" : "ItemId";
    if (filter.order.empty())
        query += own;
    else
        query.append(perWarehouse("ItemId, WarehouseId, ")).append(filter.order);
}

}  // namespace quillo
