#pragma once

#include <string>
#include <vector>

#include "apps/quillo/run_command.h"
#include "framework/dialog_form.h"
#include "framework/host/services.h"

namespace quillo::app {

// The dialog of a program without windows: it sets the boxes that the user named beforehand. A name that the form
// does not show is kept as a refusal, with the names that there are.
class OptionDialog final : public DialogService {
public:
    explicit OptionDialog(NamedValues options) : options_(std::move(options)) {}
    void ShowModal(DialogForm& form) override;
    const std::string& refusal() const { return refusal_; }

private:
    NamedValues options_;
    std::string refusal_;
};

// Reads what a form offers and changes nothing.
class OptionList final : public DialogService {
public:
    struct Entry {
        std::string name, caption;
        bool value;
    };
    void ShowModal(DialogForm& form) override;
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

// "true", "false", "yes", "no", "1", "0" in any case of letters. Throws UsageError.
bool readBoolean(const std::string& name, const std::string& value);

}  // namespace quillo::app
