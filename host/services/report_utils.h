#pragma once

#include "framework/services/services.h"
#include "host/language/language.h"

namespace quillo {

// In the dialect of a database kind, the formats of a locale and the words of a language.
class HostReportUtils final : public ReportUtils {
public:
    // locale and language must outlive it.
    HostReportUtils(int databaseKind, const LocaleFormat& locale, const Language& language)
        : jet_(databaseKind == 1), locale_(locale), language_(language) {}

    void SetCommandParameters(Command& command, const std::vector<Variant>& values) const override;
    std::string NullExpression(std::string_view expression, std::string_view defaultValue, bool flag) const override;
    std::string RoundExpression(std::string_view expression, bool flag) const override;
    std::string NumberText(const ValueView& value) const override;
    std::string DateText(const ValueView& value) const override;
    std::string SourceText(std::string_view source) const override;

private:
    bool jet_;
    const LocaleFormat& locale_;
    const Language& language_;
};

}  // namespace quillo
