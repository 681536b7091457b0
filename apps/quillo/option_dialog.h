#pragma once

#include <string>
#include <vector>

#include "apps/quillo/run_command.h"
#include "framework/dialog_form.h"
#include "framework/host/services.h"

namespace quillo::app {

// The dialog of a program without windows: it sets the options that the user named beforehand, in their order, and
// clicks OK. What the form does not take is kept as a refusal.
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
        std::string name, values, caption, now;  // values: "true|false", "0|1|2"
    };
    void ShowModal(DialogForm& form) override;
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
};

}  // namespace quillo::app
