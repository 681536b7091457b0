#pragma once

#include <string>
#include <vector>

// What a form holds that a dialog service shows: captions, states and the layout that the form's rules give, in
// twips. No widget belongs to it; a host draws it, or sets the states without drawing.
namespace quillo {

struct CheckBox {
    std::string Name;
    int Id = 0;  // the option's bit
    std::string Caption;
    bool Value = false;
    bool Visible = true;
    float Left = 90, Top = 0, Width = 4200, Height = 255;
};

struct CommandButton {
    std::string Caption;
    float Left = 0, Top = 0, Width = 1215, Height = 375;
};

struct DialogForm {
    virtual ~DialogForm() = default;
    std::string Caption;
    float ScaleWidth = 4500, ScaleHeight = 2640;  // inner size
    float Height = 3000;                          // outer height
    CommandButton cmdOk;
    virtual std::vector<CheckBox*> checkBoxes() = 0;
};

}  // namespace quillo
