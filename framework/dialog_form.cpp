#include "framework/dialog_form.h"

#include <algorithm>

#include "framework/values/names.h"
#include "framework/values/nearest_name.h"

namespace quillo {
namespace {

bool isShown(const FormControl& control, std::string_view name) {
    return control.Visible && equalNames(control.Name, name);
}

void requireEnabled(const FormControl& control) {
    if (!control.Enabled)
        throw DisabledError(control.Name + " cannot be clicked: what is chosen in the form so far disables it");
}

std::optional<bool> booleanOf(std::string_view text) {
    for (const char* word : {"true", "yes", "1"})
        if (equalNames(text, word)) return true;
    for (const char* word : {"false", "no", "0"})
        if (equalNames(text, word)) return false;
    return std::nullopt;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

}  // namespace

void OptionGroup::choose(int value) {
    const auto found = std::find_if(Options.begin(), Options.end(),
                                    [value](const OptionButton& option) { return option.Value == value; });
    chosen_.reset();
    if (found != Options.end()) chosen_ = static_cast<std::size_t>(found - Options.begin());
}

void DialogForm::choose(OptionGroup& group, int value) {
    group.choose(value);
    if (const OptionButton* option = group.chosen()) clicked(*option);
}

void DialogForm::click(std::string_view name) {
    for (CheckBox* box : checkBoxes()) {
        if (!isShown(*box, name)) continue;
        requireEnabled(*box);
        box->Value = !box->Value;
        return clicked(*box);
    }
    for (OptionGroup* group : optionGroups()) {
        for (const OptionButton& option : group->Options) {
            if (!isShown(option, name)) continue;
            requireEnabled(option);
            return choose(*group, option.Value);
        }
    }
    for (const CommandButton* button : buttons()) {
        if (!isShown(*button, name)) continue;
        requireEnabled(*button);
        return clicked(*button);
    }
    throw NameError("The form shows no control \"" + std::string(name) + "\"");
}

void DialogForm::setOption(std::string_view name, const std::string& value) {
    for (const CheckBox* box : checkBoxes())
        if (isShown(*box, name)) return setBox(*box, value);
    for (const OptionGroup* group : optionGroups())
        if (equalNames(group->Name, name)) return setGroup(*group, value);
    throw NameError("there is no option \"" + std::string(name) + "\"; the form has " + joined(optionNames()) +
                    didYouMean(name, optionNames()));
}

void DialogForm::setBox(const CheckBox& box, const std::string& value) {
    const auto wanted = booleanOf(value);
    if (!wanted) throw InputError(box.Name + " is true or false, not \"" + value + "\"");
    if (box.Value != *wanted) click(box.Name);
}

void DialogForm::setGroup(const OptionGroup& group, const std::string& value) {
    std::vector<std::string> values;
    for (const OptionButton& option : group.Options) {
        values.push_back(std::to_string(option.Value));
        if (values.back() != value) continue;
        if (group.chosen() != &option) click(option.Name);
        return;
    }
    throw InputError(group.Name + " is one of " + joined(values) + ", not \"" + value + "\"");
}

std::vector<std::string> DialogForm::optionNames() {
    std::vector<std::string> names;
    for (const CheckBox* box : checkBoxes())
        if (box->Visible) names.push_back(box->Name);
    for (const OptionGroup* group : optionGroups()) names.push_back(group->Name);
    return names;
}

}  // namespace quillo
