#include "tests/support/member_runs.h"

#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/filter/filter_scope.h"

namespace quillo::test {

std::map<std::string, std::string> neededBy(std::string_view member) {
    std::map<std::string, std::string> properties;
    if (member.starts_with("DayEndBalanceByUsr") && member.ends_with("Detail")) properties["UsrNo"] = "Kevin";
    if (member.starts_with("DayEndBalanceByCash") && member.ends_with("Detail")) properties["TrxSerNo"] = "MTL-01";
    if (member.ends_with("InvDetail")) properties["GLAcctId"] = "21";
    return properties;
}

std::vector<std::string> columnsOf(std::string_view tables, const Catalogue& catalogue, bool qualified) {
    const FilterScope scope(tables, catalogue);
    std::vector<std::string> names;
    std::stringstream list{std::string(tables)};
    for (std::string entry; std::getline(list, entry, ',');) {
        const std::string_view wanted = trimmed(entry);
        const auto point = wanted.find('.');
        const std::string table(wanted.substr(0, point));
        for (const std::string& column : catalogue.columns(table)) {
            if (point != wanted.npos && wanted.substr(point + 1) != column) continue;
            try {
                names.push_back(qualified ? table + "." + column : (scope.find("", column), column));
            } catch (const InputError&) {
                // Stands in two of the tables: the user must write which one.
            }
        }
    }
    return names;
}

void filterBy(std::span<const std::string> columns, ReportRun& run) {
    run.where = run.order = "";
    for (const std::string& column : columns) {
        run.where += (run.where.empty() ? "(" : " AND (") + column + " IS NULL OR " + column + " = " + column + ")";
        run.order += (run.order.empty() ? "" : ", ") + column;
    }
}

MemberTraits traitsOf(std::string_view member, const std::string& company) {
    ListedMessages messages;
    SessionOptions options;
    options.company = company;
    HostSession session(options, messages);
    clsReport factory(session);
    const auto report = clsReport::findMember(member)->make(factory);
    MemberTraits traits;
    traits.rows = report->dataControl() != nullptr || report->fetchData != nullptr;
    if (auto* contract = dynamic_cast<IReport*>(report.get())) {
        contract->IReport_Application(session);
        contract->IReport_Initialize();
        traits.dates = contract->IReport_DateDisplayOptions();
        traits.currency = contract->IReport_UseCurrency();
    }
    if (const auto* filterable = dynamic_cast<FilterableReport*>(report.get()))
        traits.filterTables = filterable->filterTables();
    traits.segments = dynamic_cast<ISegmentFilter*>(report.get()) != nullptr;
    return traits;
}

void showDescriptions(ReportRun& run) {
    for (const int setting :
         {Setting::customerCodes, Setting::projectCodes, Setting::taxGroupCodes, Setting::termCodes})
        run.settings[setting] = "0";
    run.parameters["UseAccountNumbers"] = "False";
}

std::vector<MemberRun> runsOf(std::string_view member, const GoldenCompany& company) {
    const MemberTraits traits = traitsOf(member, company.path());
    std::vector<MemberRun> runs = {{"", company.run(member)}, {"-descriptions", company.run(member)}};
    showDescriptions(runs.back().run);
    if (traits.currency) {
        runs.push_back({"-foreign", company.run(member)});
        runs.back().run.foreign = true;
    }
    if (traits.segments) {
        runs.push_back({"-segments", company.run(member)});
        runs.back().run.segments = "2";
        runs.back().run.noSegment = true;
    }
    return runs;
}

}  // namespace quillo::test
