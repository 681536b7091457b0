#include "apps/quillo/option_list.h"

namespace quillo::app {
namespace {

OptionList::Entry entryOf(const OptionGroup& group) {
    OptionList::Entry entry{group.Name, "", group.Caption + ":", "none"};
    for (const OptionButton& option : group.Options) {
        const std::string value = std::to_string(option.Value);
        entry.values += (entry.values.empty() ? "" : "|") + value;
        entry.caption += " " + value + " " + option.Caption + (&option == &group.Options.back() ? "" : ",");
    }
    if (const OptionButton* option = group.chosen()) entry.now = std::to_string(option->Value);
    return entry;
}

}  // namespace

void OptionList::ShowModal(DialogForm& form) {
    for (const CheckBox* box : form.checkBoxes())
        if (box->Visible) entries_.push_back({box->Name, "true|false", box->Caption, box->Value ? "true" : "false"});
    for (const OptionGroup* group : form.optionGroups()) entries_.push_back(entryOf(*group));
}

}  // namespace quillo::app
