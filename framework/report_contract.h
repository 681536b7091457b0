#pragma once

#include <memory>
#include <optional>
#include <string>

#include "framework/services/services.h"
#include "framework/values/date.h"

// The contract between a host and a report: six interfaces. A host finds out which of them a report has by
// dynamic_cast; every report of the factory has IReport. None of the members throws: a failure shows its box
// and the member gives its default.
namespace quillo {

class Report;

// What the host asks the user for before a run.
namespace DateDisplay {
inline constexpr int none = 0, range = 1, closingDate = 2;
}

class IReport {
public:
    virtual ~IReport() = default;
    virtual int IReport_DateDisplayOptions() = 0;
    virtual Date IReport_DateFrom() = 0;
    virtual void IReport_DateFrom(const Date& value) = 0;
    virtual Date IReport_DateTo() = 0;
    virtual void IReport_DateTo(const Date& value) = 0;
    // Keeps a reference until the report ends. Everything below needs it.
    virtual void IReport_Application(Application& application) = 0;
    virtual std::string IReport_ReportTitle() = 0;
    // The report itself, in its role as what the engine runs.
    virtual Report* IReport_ReportDesigner() = 0;
    virtual bool IReport_NoHeaders() = 0;
    virtual void IReport_ReportDesigner(Report* ignored) = 0;
    virtual void IReport_Initialize() = 0;
    // Asks for amounts in foreign currency.
    virtual void IReport_DisplayForeignCurrency(const bool& value) = 0;
    // Whether the host is to offer that choice.
    virtual bool IReport_UseCurrency() = 0;
};

class IFilterableReport {
public:
    virtual ~IFilterableReport() = default;
    // Where part, "|", order part; either may be empty.
    virtual void IFilterableReport_Filter(const std::string& value) = 0;
    virtual void IFilterableReport_FilterTool(FilterTool& tool) = 0;
};

class IReportConfig {
public:
    virtual ~IReportConfig() = default;
    virtual void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) = 0;
};

class ISegmentFilter {
public:
    virtual ~ISegmentFilter() = default;
    // Comma-separated ids, empty for all segments.
    virtual void ISegmentFilter_SegmentFilter(const std::string& value) = 0;
    // The same in words, for the page header.
    virtual void ISegmentFilter_SegmentFilterDisplay(const std::string& value) = 0;
    // True to include rows without any segment.
    virtual void ISegmentFilter_SegmentNoneFilter(const bool& value) = 0;
};

// Rates to home currency for a re-evaluation, by currency.
class ExchangeRates {
public:
    virtual ~ExchangeRates() = default;
    virtual int Count() const = 0;
    // Home currency for one unit of the currency whose id is given as text. Throws NameError when there is none.
    virtual double Item(std::string_view currencyId) const = 0;
    // The same; nothing when there is none.
    virtual std::optional<double> find(std::string_view currencyId) const = 0;
};

class IExchangeRates {
public:
    virtual ~IExchangeRates() = default;
    virtual std::shared_ptr<ExchangeRates> IExchangeRates_ExchangeRates() = 0;
    virtual void IExchangeRates_ExchangeRates(std::shared_ptr<ExchangeRates> rates) = 0;
    virtual bool IExchangeRates_Reevaluate() = 0;
    virtual void IExchangeRates_Reevaluate(bool value) = 0;
    virtual std::string IExchangeRates_ExchangeRatesDate() = 0;
    virtual void IExchangeRates_ExchangeRatesDate(std::string value) = 0;
};

// The host's generator of comparable tables: rows and cells that its comparison tool takes.
class ComparableReportGen {
public:
    virtual ~ComparableReportGen() = default;
    using Element = int;  // a handle into the generator's document
    virtual bool IsActive() const = 0;
    virtual Element AddTable(std::string_view title, std::string_view mode) = 0;
    virtual Element AddRow(Element table, std::string_view title, std::string_view value, std::string_view mode) = 0;
    virtual void AddCell(Element row, std::string_view name, std::string_view value, std::string_view mode) = 0;
    virtual void Close() = 0;
};

class IComparableReport {
public:
    virtual ~IComparableReport() = default;
    virtual std::string IComparableReport_InternalName() = 0;
    virtual std::string IComparableReport_Guid() = 0;
    virtual std::string IComparableReport_FullName() = 0;
    virtual std::string IComparableReport_Configuration() = 0;
    // Null takes the generator away.
    virtual void IComparableReport_ComparableReportGen(ComparableReportGen* generator) = 0;
};

}  // namespace quillo
