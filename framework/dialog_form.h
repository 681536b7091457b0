#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/errors.h"

// What a form holds that a dialog service shows: captions, states and the layout that the form's rules give, in
// twips from the form's inner corner. No widget belongs to it; a host draws it, or plays the user without drawing.
namespace quillo {

struct FormControl {
    std::string Name;
    std::string Caption;
    bool Visible = true, Enabled = true;
    float Left = 90, Top = 0, Width = 4200, Height = 255;
};

struct CheckBox : FormControl {
    int Id = 0;  // the option's bit
    bool Value = false;
};

struct CommandButton : FormControl {
    CommandButton(std::string name = {}) {
        Name = std::move(name);
        Left = 0, Width = 1215, Height = 375;
    }
};

// A caption that stands by itself: the head of a column of options.
struct FormLabel : FormControl {};

// A border with a caption around what belongs together.
struct Frame : FormControl {};

struct OptionButton : FormControl {
    int Value = 0;  // what its group is worth while it is chosen
};

// Options of which at most one is chosen.
struct OptionGroup {
    std::string Name;  // of what the group decides: "SortType"
    std::string Caption;
    std::vector<OptionButton> Options;

    // The option that is chosen; null when none is.
    const OptionButton* chosen() const { return chosen_ ? &Options[*chosen_] : nullptr; }
    // Chooses the option of that value; none when there is no such option.
    void choose(int value);

private:
    std::optional<std::size_t> chosen_;
};

// What a user cannot do with the form as it stands: another choice may enable it.
struct DisabledError : InputError {
    using InputError::InputError;
};

namespace CloseMode {
inline constexpr int windowBox = 0;  // the window's own close box
}

// A form as its user meets it. A dialog service shows it, clicks, and returns when it is no longer visible.
class DialogForm {
public:
    virtual ~DialogForm() = default;
    std::string Caption;
    std::string FontName;                         // empty: the host's own
    float ScaleWidth = 4500, ScaleHeight = 2640;  // inner size
    float Height = 3000;                          // outer height
    CommandButton cmdOk{"cmdOk"};

    // What the form holds, each kind in the order in which a user reads it; what is not visible too.
    virtual std::vector<CheckBox*> checkBoxes() { return {}; }
    virtual std::vector<OptionGroup*> optionGroups() { return {}; }
    virtual std::vector<CommandButton*> buttons() { return {&cmdOk}; }
    virtual std::vector<FormLabel*> labels() { return {}; }
    virtual std::vector<Frame*> frames() { return {}; }

    void Show() { visible_ = true; }
    void Hide() { visible_ = false; }
    bool visible() const { return visible_; }

    // A user's click: turns a check box over, chooses an option, presses a button; then the form's rule for it runs.
    // Throws NameError when the form shows no such control, DisabledError when it is not enabled.
    void click(std::string_view name);
    // The clicks after which a check box holds "true" or "false", or an option group the value of one of its options
    // ("2"); none when it does so already. Throws NameError and InputError, for a value that does not fit too.
    void setOption(std::string_view name, const std::string& value);
    // The wish to close the form by other means than a button; true refuses.
    virtual bool queryClose(int mode) = 0;

protected:
    // The form's rule for a control whose state a click has changed.
    virtual void clicked(const FormControl& control) = 0;
    // Chooses an option as a click does, whether the user may or not.
    void choose(OptionGroup& group, int value);

private:
    std::vector<std::string> optionNames();
    void setBox(const CheckBox& box, const std::string& value);
    void setGroup(const OptionGroup& group, const std::string& value);
    bool visible_ = false;
};

}  // namespace quillo
