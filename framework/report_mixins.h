#pragma once

#include <memory>
#include <optional>
#include <string>

#include "framework/run_frame.h"

// Interfaces that some reports have besides, with the fields that they keep:
//
//     class dsrCustAgingSummary final : public ComparableReport<SegmentReport>, public ExchangeRatesKeeper
namespace quillo {

// Keeps the rates of a re-evaluation as the host gives them.
class ExchangeRatesKeeper : public IExchangeRates {
public:
    std::shared_ptr<ExchangeRates> IExchangeRates_ExchangeRates() override { return m_objExchangeRates; }
    void IExchangeRates_ExchangeRates(std::shared_ptr<ExchangeRates> rates) override {
        m_objExchangeRates = std::move(rates);
    }
    bool IExchangeRates_Reevaluate() override { return m_bReevaluate; }
    void IExchangeRates_Reevaluate(bool value) override { m_bReevaluate = value; }
    std::string IExchangeRates_ExchangeRatesDate() override { return m_strExchangeRatesDate; }
    void IExchangeRates_ExchangeRatesDate(std::string value) override { m_strExchangeRatesDate = std::move(value); }

protected:
    std::shared_ptr<ExchangeRates> m_objExchangeRates;
    std::string m_strExchangeRatesDate;
    bool m_bReevaluate = false;
};

// A frame (FilterableReport, SegmentReport) that keeps the generator of comparable tables too, and where in its
// document the report writes.
template <class Base>
class ComparableReport : public Base, public IComparableReport {
public:
    std::string IComparableReport_InternalName() override { return this->name(); }
    std::string IComparableReport_Guid() override { return this->name(); }
    std::string IComparableReport_FullName() override { return this->IReport_ReportTitle(); }
    std::string IComparableReport_Configuration() override { return {}; }
    void IComparableReport_ComparableReportGen(ComparableReportGen* generator) override {
        m_objComparableReportGen = generator;
        // Places in the document of the generator before mean nothing to this one.
        m_objTable.reset();
        m_objRow.reset();
    }

protected:
    using Base::Base;
    // Whether what prints is to be written to the generator too.
    bool isComparing() const { return m_objComparableReportGen != nullptr && m_objComparableReportGen->IsActive(); }

    ComparableReportGen* m_objComparableReportGen = nullptr;
    std::optional<ComparableReportGen::Element> m_objTable, m_objRow;
};

}  // namespace quillo
