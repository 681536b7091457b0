#pragma once

#include <string>

#include "framework/services/services.h"

// Small questions to the company that several reports ask.
namespace quillo::MUtils {

// The sum of the adjustment entries of the receivables accounts up to and with DateTo, in home currency, or in the
// currency CurrencyId over that currency's accounts when ByCurrency. 0 without entries. SqlText takes the text that
// was run. Throws DatabaseError, with " (Quillo.MUtils.GetARAdjustments component failure at line:...)" behind
// the description: the one failure of the library that its caller must show.
Money GetARAdjustments(HostContext& context, Date DateTo, const std::string& SegmentFilter, bool SegmentNoneFilter,
                       bool ByCurrency, std::string& SqlText, int CurrencyId);

// Whether the company uses projects: then the project for unassigned lines exists.
bool HasUnknownProject(HostContext& context);

}  // namespace quillo::MUtils
