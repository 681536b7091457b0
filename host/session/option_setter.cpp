#include "host/session/option_setter.h"

namespace quillo {

void OptionSetter::ShowModal(DialogForm& form) {
    form.Show();
    try {
        for (const auto& [name, value] : options_) form.setOption(name, value);
        form.click(form.cmdOk.Name);
    } catch (const std::exception& wrong) {
        refusal_ = wrong.what();
        form.queryClose(CloseMode::windowBox);
    }
}

}  // namespace quillo
