#include "host/services/report_utils.h"

#include <algorithm>
#include <iterator>

#include "framework/values/names.h"

namespace quillo {
namespace {

struct SourceCaption {
    std::string_view code;
    int text;
};

constexpr SourceCaption sources[] = {{"INV", 20001}, {"ADM", 20002}, {"PMT", 20003}, {"TAX", 20004},
                                     {"DEP", 20005}, {"PUR", 20006}, {"EXP", 20007}, {"PAY", 20008},
                                     {"ASB", 20009}, {"CHQ", 20010}, {"GEN", 20011}};

}  // namespace

void HostReportUtils::SetCommandParameters(Command& command, const std::vector<Variant>& values) const {
    command.Parameters.insert(command.Parameters.end(), values.begin(), values.end());
}

std::string HostReportUtils::NullExpression(std::string_view expression, std::string_view defaultValue, bool) const {
    const std::string text(expression);
    const std::string fallback(defaultValue);
    return jet_ ? "IIF(IsNull(" + text + "), " + fallback + ", " + text + ")"
                : "COALESCE(" + text + ", " + fallback + ")";
}

std::string HostReportUtils::RoundExpression(std::string_view expression, bool) const {
    return "ROUND(" + std::string(expression) + ", 2)";
}

std::string HostReportUtils::NumberText(const ValueView& value) const {
    return value.isNull() ? "" : locale_.plainNumber(value);
}

std::string HostReportUtils::DateText(const ValueView& value) const {
    return value.isNull() ? "" : locale_.shortDate(value.toDate());
}

std::string HostReportUtils::SourceText(std::string_view source) const {
    const auto* found = std::find_if(std::begin(sources), std::end(sources),
                                     [&](const SourceCaption& one) { return equalNames(one.code, source); });
    return found == std::end(sources) ? std::string(source) : language_.text(found->text);
}

}  // namespace quillo
