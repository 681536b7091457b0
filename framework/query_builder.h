#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "framework/services/services.h"

// How the user's choices enter the SQL text of a report. Values never do: dates and keys are bound to "?" marks.
namespace quillo {

// Which of the two dialects is in force; read at the moment of building.
bool isJet(HostContext& context);

// The filter string, taken apart at its first bars; what follows a second bar is nobody's.
struct FilterParts {
    std::string where;  // condition over the tables that the report named
    std::string order;  // sort columns without ORDER BY
};
FilterParts splitFilter(std::string_view filter);

enum class OwnWhere { no, yes };

// " WHERE (condition) ", or " AND (condition) " behind a WHERE of the query's own; empty without a condition.
std::string whereClause(const FilterParts& filter, OwnWhere own);

// The user's order behind " ORDER BY ", else the report's own clause as it stands.
std::string orderClause(const FilterParts& filter, std::string_view ownClause);
// The same for a report whose groups need a first column ("GLAcctId, "): it always leads the user's order.
std::string orderClauseBehind(const FilterParts& filter, std::string_view leading, std::string_view ownClause);
// As before, but a user's order that names the column itself (without regard to case) stands alone.
std::string orderClauseKeeping(const FilterParts& filter, std::string_view column, std::string_view ownClause);

// The same for groups that need several columns: they always lead, and what the user's order says of them behind that
// is left out, since it says nothing more and a server refuses a column that stands twice.
std::string orderClauseBehindAll(const FilterParts& filter, const std::vector<std::string_view>& leading,
                                 std::string_view ownClause);
// The columns of an order part, without their directions.
std::vector<std::string> orderColumns(std::string_view order);

// An order clause, and behind it the columns that keep rows together which belong together, each unless the order names
// it itself.
std::string orderWithTies(std::string orderClause, const std::vector<std::string_view>& columns);

// The segment condition, "(column IN (list) OR column IS NULL)" in the parts that are asked for, with " AND " in
// front where a condition stands before it; empty without a choice. The list goes in as the host gave it.
std::string segmentClause(std::string_view column, std::string_view list, bool none, bool behindCondition);
// The short form of queries that know no "without segment": " AND column IN (list) ".
std::string segmentListClause(std::string_view column, std::string_view list);

}  // namespace quillo
