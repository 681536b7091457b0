#include "host/session/option_setter.h"

namespace quillo {

OptionSetter::NamedValues OptionSetter::setSome(DialogForm& form, const NamedValues& options) {
    NamedValues disabled;
    for (const auto& [name, value] : options) {
        try {
            form.setOption(name, value);
        } catch (const DisabledError&) {
            disabled.emplace_back(name, value);
        }
    }
    return disabled;
}

void OptionSetter::ShowModal(DialogForm& form) {
    form.Show();
    try {
        NamedValues waiting = options_;
        for (std::size_t before = 0; before != waiting.size();) {
            before = waiting.size();
            waiting = setSome(form, waiting);
        }
        form.click(form.cmdOk.Name);
    } catch (const std::exception& wrong) {
        refusal_ = wrong.what();
        form.queryClose(CloseMode::windowBox);
    }
}

}  // namespace quillo
