#include "framework/dialog_form.h"

#include <gtest/gtest.h>

#include "framework/values/errors.h"

namespace quillo::test {
namespace {

OptionButton option(const char* name, int value) {
    OptionButton made;
    made.Name = name;
    made.Value = value;
    return made;
}

// A measure, a direction that makes sense only with a measure, a box, and a way out that keeps nothing.
class SortForm final : public DialogForm {
public:
    SortForm() {
        measure.Name = "Measure";
        measure.Options = {option("optNone", 0), option("optAmount", 1)};
        direction.Name = "Direction";
        direction.Options = {option("optUp", 1), option("optDown", 2)};
        hideZero.Name = "chkHideZero";
        hidden.Name = "chkHidden";
        hidden.Visible = false;
    }
    // What the report asked for last time.
    void load(int byMeasure, int inDirection) {
        choose(measure, byMeasure);
        choose(direction, inDirection);
        Show();
    }
    std::vector<CheckBox*> checkBoxes() override { return {&hideZero, &hidden}; }
    std::vector<OptionGroup*> optionGroups() override { return {&measure, &direction}; }
    std::vector<CommandButton*> buttons() override { return {&cmdOk, &cmdCancel}; }
    bool queryClose(int) override { return false; }

    static int valueOf(const OptionGroup& group) { return group.chosen() == nullptr ? -1 : group.chosen()->Value; }

    OptionGroup measure, direction;
    CheckBox hideZero, hidden;
    CommandButton cmdCancel{"cmdCancel"};
    bool cancelled = false;

private:
    void clicked(const FormControl& control) override {
        if (control.Name == "optNone" || control.Name == "optAmount") {
            for (OptionButton& each : direction.Options) each.Enabled = control.Name == "optAmount";
        } else if (&control == &cmdOk || &control == &cmdCancel) {
            cancelled = &control == &cmdCancel;
            Hide();
        }
    }
};

TEST(DialogForm, ChoosingAnOptionRunsTheRuleThatEnablesTheOthers) {
    SortForm form;
    form.load(0, 7);
    EXPECT_EQ(SortForm::valueOf(form.measure), 0);
    EXPECT_EQ(SortForm::valueOf(form.direction), -1) << "no option has the value 7";
    EXPECT_FALSE(form.direction.Options[0].Enabled) << "also when the form chooses, not the user";
    EXPECT_THROW(form.click("optUp"), InputError);
    form.click("OptAmount");
    form.click("optDown");
    EXPECT_EQ(SortForm::valueOf(form.measure), 1);
    EXPECT_EQ(SortForm::valueOf(form.direction), 2);
    form.click("optUp");
    EXPECT_EQ(SortForm::valueOf(form.direction), 1) << "one option of a group at a time";
    EXPECT_TRUE(form.visible());
    form.click("cmdCancel");
    EXPECT_TRUE(form.cancelled);
    EXPECT_FALSE(form.visible());
}

TEST(DialogForm, OptionsAreSetByNameInTheOrderOfAUsersClicks) {
    SortForm form;
    form.load(0, 1);
    form.setOption("measure", "1");
    form.setOption("Direction", "2");
    form.setOption("chkHideZero", "yes");
    form.setOption("chkHideZero", "True");
    EXPECT_EQ(SortForm::valueOf(form.measure), 1);
    EXPECT_EQ(SortForm::valueOf(form.direction), 2);
    EXPECT_TRUE(form.hideZero.Value) << "what is so already stays so";
}

TEST(DialogForm, SaysWhyAnOptionIsNotTaken) {
    const struct {
        const char *name, *value, *says;
    } cases[] = {
        {"Order", "1", "there is no option \"Order\"; the form has chkHideZero, Measure, Direction"},
        {"chkHidden", "true", "there is no option \"chkHidden\"; the form has chkHideZero, Measure, Direction"},
        {"chkHideZero", "2", "chkHideZero is true or false, not \"2\""},
        {"Measure", "two", "Measure is one of 0, 1, not \"two\""},
        {"Direction", "2", "optDown cannot be clicked: what is chosen in the form so far disables it"},
    };
    for (const auto& [name, value, says] : cases) {
        SortForm form;
        form.load(0, 1);
        try {
            form.setOption(name, value);
            ADD_FAILURE() << "taken: " << name << "=" << value;
        } catch (const std::exception& refused) {
            EXPECT_STREQ(refused.what(), says);
        }
        EXPECT_EQ(SortForm::valueOf(form.direction), 1);
        EXPECT_FALSE(form.hideZero.Value || form.hidden.Value);
    }
    SortForm form;
    EXPECT_THROW(form.click("cmdApply"), NameError);
}

}  // namespace
}  // namespace quillo::test
