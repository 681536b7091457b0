#include "host/filter/filter_tool.h"

#include "framework/values/errors.h"
#include "host/filter/filter_grammar.h"
#include "host/filter/filter_words.h"

namespace quillo {
namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

}  // namespace

HeadlessFilterTool::HeadlessFilterTool(FilterChoice choice, const Catalogue& catalogue, const HostContext& context,
                                       Deliver deliver)
    : choice_(std::move(choice)), catalogue_(catalogue), context_(context), deliver_(std::move(deliver)) {}

void HeadlessFilterTool::GetFilter(const std::string& Tables, bool, bool, bool& Cancel, bool, bool) {
    Cancel = choice_.cancel;
    if (Cancel) return;
    try {
        deliver_(checked(Tables));
    } catch (const InputError& refusal) {
        failure_ = refusal.what();
        Cancel = true;
    }
}

std::string HeadlessFilterTool::checked(const std::string& tables) {
    const std::string where = trimmed(choice_.where);
    const std::string order = trimmed(choice_.order);
    if (where.empty() && order.empty()) return {};
    const FilterScope scope(tables, catalogue_);
    const auto condition = parseFilterCondition(where, scope);
    const auto columns = parseFilterOrder(order, scope);
    info_.where = condition ? conditionInWords(*condition, context_) : "";
    info_.order = orderInWords(columns, context_);
    return where + "|" + (choice_.leadingSeparator && !order.empty() ? ", " : "") + order;
}

}  // namespace quillo
