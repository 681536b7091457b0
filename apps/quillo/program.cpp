#include "apps/quillo/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <new>
#include <ostream>
#include <sstream>

#include "apps/quillo/company_commands.h"
#include "apps/quillo/compare_command.h"
#include "apps/quillo/drill_command.h"
#include "apps/quillo/letters_command.h"
#include "apps/quillo/run_all_command.h"
#include "apps/quillo/run_command.h"
#include "framework/values/errors.h"
#include "framework/values/nearest_name.h"
#include "framework/values/text.h"

namespace quillo::app {
namespace {

// NAME=VALUE pairs of an option that may be given several times.
void addPairs(CLI::App& command, const std::string& name, NamedValues& target, const std::string& description) {
    command
        .add_option_function<std::vector<std::string>>(
            name,
            [&target, name](const std::vector<std::string>& given) {
                for (const std::string& text : given) {
                    const auto equals = text.find('=');
                    if (equals == std::string::npos || equals == 0)
                        throw CLI::ValidationError(name, "takes NAME=VALUE, not \"" + text + "\"");
                    target.emplace_back(text.substr(0, equals), text.substr(equals + 1));
                }
            },
            description)
        ->type_name("NAME=VALUE")
        ->take_all()
        ->expected(1);
}

// An option that takes one text; what is given empty is a mistake, in a script a variable that has no value.
CLI::Option* addText(CLI::App& command, const std::string& name, std::string& target, const std::string& description,
                     const std::string& type) {
    const auto given = [](const std::string& text) { return text.empty() ? "takes a value, not nothing" : ""; };
    return command.add_option(name, target, description)->type_name(type)->check(CLI::Validator(given, ""));
}

// A number between two bounds, which what is no number is not.
CLI::Validator between(double least, double most) {
    return {[=](const std::string& text) -> std::string {
                double value = 0;
                if (CLI::detail::lexical_cast(text, value) && value >= least && value <= most) return {};
                std::ostringstream refusal;
                refusal << "takes a number from " << least << " to " << most << ", not \"" << text << '"';
                return refusal.str();
            },
            ""};
}

CLI::Validator digits() {
    return {[](const std::string& text) -> std::string {
                constexpr std::size_t most = 18;
                const bool is = !text.empty() && text.size() <= most && std::all_of(text.begin(), text.end(), isDigit);
                return is ? std::string() : "takes a whole number from 0, not \"" + text + "\"";
            },
            ""};
}

// What a report and a record are printed with.
void addPrintOptions(CLI::App& run, RunRequest& request) {
    addText(run, "--company", request.company, "The company file", "DB");
    addText(run, "--from", request.from, "First day, 2024-01-01; without it there is no limit", "DATE");
    addText(run, "--to", request.to, "Last day", "DATE");
    addText(run, "--language", request.language, "en, fr, a file of texts, or ids to see each text's number", "L");
    addText(run, "--locale", request.locale, "Formats of dates, numbers and money: fr_CA", "L");
    addText(run, "--dialect", request.dialect, "sqlserver (default) or jet", "D");
    addText(run, "--session-date", request.sessionDate, "The date of the session, printed as today's", "DATE");
    addText(run, "--format", request.format, "pdf, png or json; else by the file's ending", "F");
    addText(run, "-o,--output", request.output, "The file to write; JSON goes to standard output without it", "FILE");
    run.add_option("--resolution", request.resolution, "Dots to the inch of a PNG")->check(between(20, 1200));
    addPairs(run, "--setting", request.settings, "A numbered company setting for this run: 104=0");
    addPairs(run, "--parameter", request.parameters, "A company parameter for this run: UseAccountNumbers=False");
    run.add_flag("--strict", request.strict, "Write nothing where the report shows failures");
    run.add_option("--max-pages", request.maxPages, "Stop a run that gives more pages")->check(CLI::Range(1, 10000000));
}

void addRunOptions(CLI::App& run, RunRequest& request) {
    run.add_option("member", request.member, "The report: a name that \"quillo list\" gives");
    addPrintOptions(run, request);
    run.add_flag("--foreign", request.foreign, "Amounts in foreign currency");
    run.add_option("--where", request.where, "Condition over the report's tables: \"CustId BETWEEN 'A' AND 'M'\"")
        ->type_name("CONDITION");
    run.add_option("--order", request.order, "Order: \"Cust.Name, InvoiDate DESC\"")->type_name("COLUMNS");
    run.add_flag("--cancel-filter", request.cancelFilter, "Behave as a user who cancels the filter");
    addText(run, "--segments", request.segments, "Segments by id: 1,2", "IDS");
    run.add_flag("--no-segment", request.noSegment, "Include rows without segment");
    addPairs(run, "--set", request.properties, "A property of the report: InvoiceType=51");
    addPairs(run, "--option", request.options, "An option of the report's dialog: chkIncludeZeroOrders=false");
    run.add_flag("--reevaluate", request.reevaluate, "Re-evaluate foreign balances");
    addText(run, "--rates-date", request.ratesDate, "Date of the rates", "DATE");
    addPairs(run, "--rate", request.rates, "A rate to home currency: USD=1.35");
    addText(run, "--trace-sql", request.traceSql, "Write every SQL text with its parameters, a JSON object a line",
            "FILE");
    addText(run, "--comparable", request.comparable, "Write the comparable tables (XML) of a report that has them",
            "FILE");
}

void addLettersOptions(CLI::App& letters, LettersRequest& request) {
    addText(letters, "--company", request.company, "The company file", "DB")->required();
    addText(letters, "-o,--output", request.folder, "The folder that takes the letters, a PDF a customer", "FOLDER")
        ->required();
    addText(letters, "--template", request.letter, "The letter as RTF with fields; else the program's own", "FILE");
    addText(letters, "--to", request.to, "The day that balances are of, and the letter's date; else today", "DATE");
    letters.add_option("--min-days", request.minDays, "Days that a balance must be past due")
        ->check(CLI::Range(0, 36500));
    addText(letters, "--logo", request.logo, "A PNG or JPEG that prints above the letter", "FILE");
    letters.add_flag("--no-address", request.noAddress, "Leave the company's address out");
    addText(letters, "--language", request.language, "en, fr or a file of texts", "L");
    addText(letters, "--locale", request.locale, "Formats of dates and amounts: fr_CA", "L");
}

// "quillo run MEMBER --help" tells of the report, not only of the command.
bool asksForMember(const std::vector<std::string>& arguments) {
    if (arguments.size() < 3 || arguments[0] != "run" || arguments[1].starts_with("-")) return false;
    return std::find(arguments.begin(), arguments.end(), "--help") != arguments.end() ||
           std::find(arguments.begin(), arguments.end(), "-h") != arguments.end();
}

void refuseUnknownCommand(const CLI::App& program, const std::vector<std::string>& arguments) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands({})) names.push_back(command->get_name());
    const bool known = arguments.empty() || arguments.front().starts_with("-") ||
                       std::find(names.begin(), names.end(), arguments.front()) != names.end();
    if (!known)
        throw UsageError("there is no command \"" + arguments.front() + "\"" + didYouMean(arguments.front(), names) +
                         "; \"quillo --help\" names them all");
}

// What somebody who wrote an option wrong may have meant.
std::string hint(const CLI::App& program, const std::vector<std::string>& arguments) {
    const auto commands = program.get_subcommands();
    std::vector<std::string> names;
    if (commands.empty()) return {};
    for (const CLI::Option* option : commands.front()->get_options())
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    for (const std::string& argument : arguments) {
        const std::string written = argument.substr(0, argument.find('='));
        if (written.starts_with("--") && std::find(names.begin(), names.end(), written) == names.end())
            return didYouMean(written, names);
    }
    return {};
}

int dispatch(const std::vector<std::string>& arguments, const Console& console) {
    CLI::App program("Quillo prints the accounts-receivable reports of a company file.", "quillo");
    program.require_subcommand(1);
    program.set_version_flag("--version", "quillo 1.0.0");

    std::string path, other, output, tag, till, language = "en";
    int scale = 1;
    std::uint64_t seed = 1;
    bool books = false, all = false;
    RunRequest request;
    LettersRequest lettersRequest;

    auto* create = program.add_subcommand("new", "Make an empty company: schema, views and settings");
    create->add_option("file", path, "The company file to make")->required();
    auto* demo = program.add_subcommand("demo", "Make the demo company: some years of a made-up trade");
    demo->add_option("file", path, "The company file to make")->required();
    demo->add_option("--scale", scale, "Multiplies the documents")->check(CLI::Range(1, 1000));
    demo->add_option("--seed", seed, "The same seed gives the same company")->check(digits());
    addText(*demo, "--language", language, "The company's own words: en or fr", "L");
    auto* list = program.add_subcommand("list", "Name the reports and what each takes");
    addText(*list, "--language", language, "en, fr, ids or a file of texts", "L");
    auto* check = program.add_subcommand("check", "Tell what a company file lacks");
    check->add_option("company", path, "The company file")->required();
    check->add_flag("--books", books, "Prove the books: ledger against documents");
    auto* compare = program.add_subcommand("compare", "Lay the comparable tables of two runs side by side");
    compare->add_option("left", path, "A file that \"quillo run --comparable\" wrote")->required();
    compare->add_option("right", other, "The other one: another day, another company")->required();
    addText(*compare, "-o,--output", output, "A CSV file; without it a table", "FILE");
    auto* run = program.add_subcommand("run", "Print a report");
    addRunOptions(*run, request);
    run->add_flag("--all", all, "Every report into the folder -o, a file each");
    run->footer(
        "Example: quillo run CustList --company demo.db --where \"Name LIKE 'A%'\" --order Name -o customers.pdf\n"
        "\"quillo run MEMBER --help\" tells a report's own properties and options.");
    auto* letters = program.add_subcommand("letters", "Write collection letters, a PDF a customer");
    addLettersOptions(*letters, lettersRequest);
    letters->footer("Example: quillo letters --company demo.db --to 2025-12-31 --min-days 30 -o letters/");

    auto* drill = program.add_subcommand("drill", "Follow a link of a page: print what it leads to");
    drill->add_option("tag", tag, "The link as the page has it: \"INV|1234\", \"Invoice|7|17\"")->required();
    drill->add_option("--by", till, "Whose key a link of the day end carries: user or register")
        ->check(CLI::IsMember({"user", "register"}));
    addPrintOptions(*drill, request);

    refuseUnknownCommand(program, arguments);
    try {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        program.parse(reversed);
    } catch (const CLI::ParseError& failure) {
        if (failure.get_exit_code() == 0) {
            if (asksForMember(arguments)) {
                describeMember(arguments[1], request.language.empty() ? "en" : request.language, console);
                console.out << '\n';
            }
            return program.exit(failure, console.out, console.err) == 0 ? ExitStatus::done : ExitStatus::wrongArguments;
        }
        throw UsageError(failure.what() + hint(program, arguments) + " (\"quillo --help\" tells more)");
    }

    if (*create) {
        newCompany(path, console);
    } else if (*demo) {
        demoCompany(path, scale, seed, language, console);
    } else if (*list) {
        listMembers(language, console);
    } else if (*check) {
        return checkCompanyFile(path, books, console);
    } else if (*compare) {
        compareFiles(path, other, output, console);
    } else if (*letters) {
        return writeLetters(lettersRequest, console);
    } else {
        if (request.company.empty()) throw UsageError("--company is required: a company file");
        if (*drill) return drillCommand(tag, till, request, console);
        if (all) return runAllCommand(request, console);
        if (request.member.empty())
            throw UsageError("member is required: a report that \"quillo list\" names, or --all");
        return runReportCommand(request, console);
    }
    return ExitStatus::done;
}

int tellingFailures(const std::vector<std::string>& arguments, const Console& console) {
    try {
        return dispatch(arguments, console);
    } catch (const UsageError& failure) {
        console.complain(failure.what());
        return ExitStatus::wrongArguments;
    } catch (const CompanyError& failure) {
        console.complain(failure.what());
        return ExitStatus::noCompany;
    } catch (const RunStopped&) {
        console.complain("stopped; nothing was written");
        return ExitStatus::failures;
    } catch (const std::filesystem::filesystem_error& failure) {
        console.complain(failure.path1().string() + ": " + failure.code().message());
        return ExitStatus::failures;
    } catch (const std::bad_alloc&) {
        console.complain("there is not enough memory");
        return ExitStatus::failures;
    } catch (const std::exception& failure) {
        console.complain(failure.what());
        return ExitStatus::failures;
    }
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, const Console& console) {
    const int status = tellingFailures(arguments, console);
    console.out.flush();
    if (console.out || status != ExitStatus::done) return status;
    console.complain("standard output cannot be written");
    return ExitStatus::failures;
}

}  // namespace quillo::app
