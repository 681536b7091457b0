#pragma once

#include "framework/services/services.h"
#include "host/language/language.h"

namespace quillo {

// Sets the captions of a report's labels to the texts that their tags name, sub-reports not included:
// those translate themselves.
class TagLocalizer final : public ReportLocalizer {
public:
    // language must outlive it.
    explicit TagLocalizer(const Language& language) : language_(language) {}
    // Throws NameError for the first label whose text the language lacks; all others are set.
    void Translate(Report& report) override;

private:
    const Language& language_;
};

}  // namespace quillo
