#include "host/services/settings.h"

namespace quillo {
namespace {

bool isTrueByDefault(int number) {
    using namespace Setting;
    return number == customerCodes || number == projectCodes || number == taxGroupCodes || number == termCodes ||
           number == stockUpdateFirst;
}

}  // namespace

Variant CompanySettings::Item(int number) const {
    const auto asked = ofThisRun_.find(number);
    const auto value = asked != ofThisRun_.end() ? std::optional(asked->second) : company_.setting(number);
    return value ? Variant(*value).toBool() : isTrueByDefault(number);
}

}  // namespace quillo
