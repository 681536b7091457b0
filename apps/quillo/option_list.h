#pragma once

#include <string>
#include <vector>

#include "framework/dialog_form.h"
#include "framework/services/services.h"

namespace quillo::app {

// Reads what a form offers and changes nothing.
class OptionList final : public DialogService {
public:
    struct Entry {
        std::string name, values, caption, now;  // values: "true|false", "0|1|2"
    };
    void ShowModal(DialogForm& form) override;
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

}  // namespace quillo::app
