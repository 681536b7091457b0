#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "apps/quillo/console.h"
#include "framework/report_factory.h"
#include "host/session/host_session.h"

namespace quillo::app {

using NamedValues = std::vector<std::pair<std::string, std::string>>;

// What a user asked of one run, as it was written on the command line.
struct RunRequest {
    std::string member;
    std::string company;
    std::string from, to;         // ISO dates; empty: no limit
    bool datesAreCommon = false;  // to many reports, or of a link: one that takes none may leave them
    bool foreign = false;
    std::string where, order;
    bool cancelFilter = false;
    std::string segments;
    bool noSegment = false;
    NamedValues properties;  // public properties and factory arguments
    NamedValues options;     // of the report's dialog
    bool reevaluate = false;
    std::string ratesDate;
    NamedValues rates;  // currency code and rate to home currency
    std::string language;
    std::string locale;
    std::string dialect;
    std::string sessionDate;
    std::string format;
    std::string output;
    std::string traceSql;
    std::string comparable;
    bool strict = false;  // failures leave no file behind
    NamedValues settings;
    NamedValues parameters;
    int maxPages = 100000;
    double resolution = 110;
};

// The report of that name. Throws UsageError that offers the nearest.
const clsReport::Member& memberOf(const std::string& name);

// The session that a request asks for. Throws UsageError for what it cannot be, CompanyError when the company cannot be
// opened. messages must outlive it.
std::unique_ptr<HostSession> openSession(const RunRequest& request, Messages& messages);

// Runs a report as asked. Throws UsageError and CompanyError; gives the exit status otherwise.
int runReportCommand(const RunRequest& request, const Console& console);

// Describes a member: title, dates, filter tables, properties, options with their captions.
void describeMember(const std::string& member, const std::string& language, const Console& console);

// The catalogue, a member a line.
void listMembers(const std::string& language, const Console& console);

}  // namespace quillo::app
