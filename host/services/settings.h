#pragma once

#include <map>
#include <string>

#include "framework/services/services.h"
#include "host/company/company_file.h"

namespace quillo {

// The numbered settings: what this run asks for, else what the company has, else the default: the
// five that reports read are True, all others False.
class CompanySettings final : public Settings {
public:
    CompanySettings(const CompanyFile& company, std::map<int, std::string> ofThisRun)
        : company_(company), ofThisRun_(std::move(ofThisRun)) {}

    // Throws ConversionError when the value is neither a truth nor a number.
    Variant Item(int number) const override;

private:
    const CompanyFile& company_;
    std::map<int, std::string> ofThisRun_;
};

}  // namespace quillo
