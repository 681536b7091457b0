#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/dialog_form.h"
#include "framework/services/services.h"

namespace quillo {

// The dialog of a host without windows: it sets the options that the user named beforehand and clicks OK. One that
// another one enables waits for it, so that their order does not matter; what stays disabled counts for nothing. What
// the form does not take is kept as a refusal.
class OptionSetter final : public DialogService {
public:
    using NamedValues = std::vector<std::pair<std::string, std::string>>;
    explicit OptionSetter(const NamedValues& options) : options_(options) {}
    void ShowModal(DialogForm& form) override;
    const std::string& refusal() const { return refusal_; }

private:
    // Gives those that the form keeps disabled.
    static NamedValues setSome(DialogForm& form, const NamedValues& options);

    const NamedValues& options_;
    std::string refusal_;
};

}  // namespace quillo
