#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "framework/engine/controls.h"
#include "framework/values/variant.h"

// Drill-down tags: what the host opens when a printed text is followed. A tag is a kind word, "|" and an internal
// key; a Null key gives an empty one, and the host decides.
namespace quillo {

namespace Drill {
inline constexpr std::string_view invoice = "INV", customer = "CUS", supplier = "SUP", employee = "EMP",
                                  project = "PRJ", item = "ITM", warehouseItem = "WI", payment = "PMT",
                                  assembly = "ASB", receivablesAdjustment = "ARAdjust";
// Stands for the salesperson of documents that have none, in tags and as the property of a report.
inline constexpr std::string_view blankSalesPerson = "BLANK SALESPERSON NAME";
}  // namespace Drill

inline std::string drillTag(std::string_view kind, const ValueView& key) {
    std::string tag(kind);
    tag += '|';
    if (!key.isNull()) tag += key.toText();
    return tag;
}

// A target that needs no kind word.
inline std::string plainTag(const ValueView& key) {
    return key.textOrEmpty();
}

// Makes every one of the controls a link with that tag.
inline void link(std::string_view tag, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->Hyperlink = tag;
}

// A web page: the address as it stands when it names its scheme, in any case of letters. Empty, and so no link, for an
// address with control characters or of a scheme that runs something ("javascript:"); so is a mail's.
std::string webTag(std::string_view address);
std::string mailTag(std::string_view address);

}  // namespace quillo
