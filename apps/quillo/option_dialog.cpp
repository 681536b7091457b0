#include "apps/quillo/option_dialog.h"

#include "framework/values/names.h"

namespace quillo::app {

bool readBoolean(const std::string& name, const std::string& value) {
    for (const char* word : {"true", "yes", "1"})
        if (equalNames(value, word)) return true;
    for (const char* word : {"false", "no", "0"})
        if (equalNames(value, word)) return false;
    throw UsageError(name + " is true or false, not \"" + value + "\"");
}

void OptionDialog::ShowModal(DialogForm& form) {
    std::string names;
    for (const CheckBox* box : form.checkBoxes())
        if (box->Visible) names += (names.empty() ? "" : ", ") + box->Name;
    for (const auto& [name, value] : options_) {
        bool found = false;
        for (CheckBox* box : form.checkBoxes()) {
            if (!box->Visible || !equalNames(box->Name, name)) continue;
            found = true;
            try {
                box->Value = readBoolean(name, value);
            } catch (const UsageError& wrong) {
                refusal_ = wrong.what();
            }
        }
        if (!found && refusal_.empty()) refusal_ = "the report has no option \"" + name + "\"; it has " + names;
    }
}

void OptionList::ShowModal(DialogForm& form) {
    for (const CheckBox* box : form.checkBoxes())
        if (box->Visible) entries_.push_back({box->Name, box->Caption, box->Value});
}

}  // namespace quillo::app
