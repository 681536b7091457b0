#include "host/filter/filter_tool.h"

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/filter/filter_grammar.h"
#include "host/filter/filter_words.h"

namespace quillo {
namespace {

std::string orderText(const std::vector<FilterOrder>& orders) {
    std::string text;
    for (const FilterOrder& order : orders)
        text += (text.empty() ? "" : ", ") + order.column.sql() + (order.descending ? " DESC" : "");
    return text;
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
    } catch (const DatabaseError& lack) {
        failure_ = lack.what();
        companyLacks_ = Cancel = true;
    }
}

std::string HeadlessFilterTool::checked(const std::string& tables) {
    if (trimmed(choice_.where).empty() && trimmed(choice_.order).empty()) return {};
    const FilterScope scope(tables, catalogue_);
    const auto where = parseFilterCondition(choice_.where, scope, context_.locale());
    const auto columns = parseFilterOrder(choice_.order, scope);
    info_.where = where ? conditionInWords(where->condition, context_) : "";
    info_.order = orderInWords(columns, context_);
    return (where ? where->sql : "") + "|" + (choice_.leadingSeparator && !columns.empty() ? ", " : "") +
           orderText(columns);
}

}  // namespace quillo
