#include "host/session/report_job.h"

#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"
#include "host/language/host_texts.h"
#include "host/session/closing_notes.h"
#include "host/session/option_setter.h"
#include "host/session/rate_table.h"

namespace quillo {
namespace {

// Texts of the frame.
constexpr int printedOn = 20211, pageWord = 20212, withoutSegment = 20213, ofWord = 20214;

std::vector<int> segmentIds(const std::string& list) {
    std::vector<int> ids;
    std::string_view rest = list;
    while (!rest.empty()) {
        const auto comma = std::min(rest.find(','), rest.size());
        const std::string_view part = trimmed(rest.substr(0, comma));
        if (part.empty() || part.size() > 9 || part.find_first_not_of("0123456789") != std::string_view::npos ||
            comma + 1 == rest.size())
            throw InputError("segments are ids joined by commas, not \"" + list + "\"");
        ids.push_back(std::stoi(std::string(part)));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return ids;
}

}  // namespace

ReportJob::ReportJob(HostSession& session, const clsReport::Member& member, const ReportWish& wish)
    : session_(session), member_(member) {
    session.failures().clear();
    clsReport factory(session);
    report_ = member.make(factory);
    contract_ = dynamic_cast<IReport*>(report_.get());
    if (!made()) return;
    giveContract(wish);
    giveProperties(wish);
    giveOptions(wish);
    giveSegments(wish);
    giveRates(wish);
    giveFilter(wish);
}

void ReportJob::refuse(const std::string& what) const {
    throw InputError(std::string(member_.name) + " " + what);
}

void ReportJob::giveContract(const ReportWish& wish) {
    if (wish.from > wish.to) throw InputError("the first day is later than the last");
    from_ = wish.from;
    to_ = wish.to;
    contract_->IReport_Application(session_);
    contract_->IReport_Initialize();
    contract_->IReport_DateFrom(from_);
    contract_->IReport_DateTo(to_);
    contract_->IReport_DisplayForeignCurrency(wish.foreign);
}

void ReportJob::giveProperties(const ReportWish& wish) {
    for (const auto& [name, value] : wish.properties) {
        try {
            // A factory argument carries the name of the property that it sets.
            report_->setProperty(equalNames(name, "lngInvType") ? "InvoiceType" : name, value);
        } catch (const std::exception& failure) {
            throw InputError(name + "=" + value + ": " + failure.what());
        }
    }
}

void ReportJob::giveOptions(const ReportWish& wish) {
    if (wish.options.empty()) return;
    auto* config = dynamic_cast<IReportConfig*>(report_.get());
    if (config == nullptr) refuse("has no options");
    OptionSetter setter(wish.options);
    config->IReportConfig_ShowConfigurationScreen(setter);
    if (!setter.refusal().empty()) throw InputError(setter.refusal());
}

void ReportJob::giveSegments(const ReportWish& wish) {
    if (wish.segments.empty() && !wish.noSegment) return;
    auto* segments = dynamic_cast<ISegmentFilter*>(report_.get());
    if (segments == nullptr) refuse("does not select segments");
    segments->ISegmentFilter_SegmentFilterDisplay(segmentText(wish));
    segments->ISegmentFilter_SegmentFilter(wish.segments);
    segments->ISegmentFilter_SegmentNoneFilter(wish.noSegment);
}

std::string ReportJob::segmentText(const ReportWish& wish) const {
    std::string text;
    for (const int id : segmentIds(wish.segments)) {
        sqlite::Statement row(session_.file().handle(), "SELECT Descr FROM Segment WHERE InSegmentId = ?");
        if (!row.bind(1, id).step()) throw InputError("the company has no segment " + std::to_string(id));
        text.append(text.empty() ? "" : ", ").append(row.text(0));
    }
    if (wish.noSegment) text += (text.empty() ? "" : ", ") + session_.GetText(withoutSegment);
    return text;
}

void ReportJob::giveRates(const ReportWish& wish) {
    if (!wish.reevaluate && wish.rates.empty() && wish.ratesDate.empty()) return;
    auto* rates = dynamic_cast<IExchangeRates*>(report_.get());
    if (rates == nullptr) refuse("does not re-evaluate balances");
    if (!wish.ratesDate.empty() && !Date::parseIsoDay(wish.ratesDate))
        throw InputError("the day of the rates is a date such as 2024-12-31, not \"" + wish.ratesDate + "\"");
    rates->IExchangeRates_Reevaluate(wish.reevaluate);
    rates->IExchangeRates_ExchangeRatesDate(wish.ratesDate);
    rates->IExchangeRates_ExchangeRates(readRates(wish.rates, session_.currencyInfo().currencies()));
}

void ReportJob::giveFilter(const ReportWish& wish) {
    auto* filterable = dynamic_cast<IFilterableReport*>(report_.get());
    if (filterable == nullptr) {
        if (!wish.where.empty() || !wish.order.empty() || wish.cancelFilter) refuse("takes no filter");
        return;
    }
    FilterChoice choice;
    choice.where = wish.where;
    choice.order = wish.order;
    choice.cancel = wish.cancelFilter;
    const auto* framed = dynamic_cast<FilterableReport*>(report_.get());
    choice.leadingSeparator = framed != nullptr && framed->joinsOrderBehindComma();
    filter_ = std::make_unique<HeadlessFilterTool>(
        choice, session_.file().catalogue(), session_,
        [filterable](const std::string& filter) { filterable->IFilterableReport_Filter(filter); });
    filterable->IFilterableReport_FilterTool(*filter_);
}

PageFrameTexts frameTexts(HostSession& session, std::string title, std::string period) {
    std::string printed = session.GetText(printedOn) + " " + session.locale().shortDate(session.SessionDate());
    if (!session.clockTime().empty()) printed += " " + session.clockTime();
    return {session.companyName(),
            std::move(title),
            std::move(printed),
            session.GetText(pageWord),
            session.GetText(ofWord),
            std::move(period),
            session.GetText(HostText::failureFoot),
            [&session] { return !session.failures().empty(); }};
}

PageFrameTexts ReportJob::pageTexts() const {
    return frameTexts(session_, contract_->IReport_ReportTitle(), period());
}

// The dates that the run covers, where the report does not print them itself.
std::string ReportJob::period() const {
    const auto date = [this](Date day) { return session_.locale().shortDate(day); };
    const int option = contract_->IReport_DateDisplayOptions();
    if (option == DateDisplay::none) return {};
    const auto* own = report_->section("PageHeader").find("lblDateFromDateTo");
    if (own != nullptr && own->Visible) return {};
    if (option == DateDisplay::closingDate)
        return to_ == noEndLimit ? session_.GetText(1376) : session_.GetText(1776) + " " + date(to_);
    if (from_ == noStartLimit && to_ == noEndLimit) return session_.GetText(1376);
    std::string text;
    if (from_ != noStartLimit) text = session_.GetText(3013) + " " + date(from_) + " ";
    return to_ == noEndLimit ? text : text + session_.GetText(3012) + " " + date(to_);
}

void ReportJob::collectInto(ComparableCollector& collector) {
    auto* comparable = dynamic_cast<IComparableReport*>(report_.get());
    if (comparable == nullptr) refuse("has no comparable tables");
    comparable->IComparableReport_ComparableReportGen(&collector);
}

ComparableTables ReportJob::comparableTables(const ComparableCollector& collector) const {
    auto& comparable = dynamic_cast<IComparableReport&>(*report_);
    const CurrencyInfo& currencies = session_.currencyInfo();
    const std::string home = std::to_string(currencies.CieHomeCurrencyId());
    return {comparable.IComparableReport_InternalName(),
            comparable.IComparableReport_FullName(),
            session_.companyName(),
            period(),
            session_.localeName(),
            currencies.currencies().Item(home).CurrencyCode,
            collector.tables()};
}

RunEnd ReportJob::run(PageSink& sink, TextMeasure& measure, RunOptions options) {
    const auto refusal = [this] { return filter_ ? filter_->failure() : std::string(); };
    const auto asked = std::move(options.proceed);
    options.proceed = [&](const Progress& progress) { return refusal().empty() && (!asked || asked(progress)); };
    const RunEnd end = runWithNotes(*report_, session_, sink, measure, options);
    if (refusal().empty()) return end;
    if (filter_->companyLacks()) throw DatabaseError(refusal());
    throw InputError(refusal());
}

}  // namespace quillo
