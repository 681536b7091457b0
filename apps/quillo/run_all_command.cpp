#include "apps/quillo/run_all_command.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <mutex>
#include <ostream>
#include <sstream>
#include <thread>

#include "apps/quillo/output_guard.h"
#include "framework/report_factory.h"
#include "framework/values/errors.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

// What belongs to one report alone.
void refuseOwnWishes(const RunRequest& request) {
    const std::pair<const char*, bool> given[] = {
        {"a report's name", !request.member.empty()}, {"--where", !request.where.empty()},
        {"--order", !request.order.empty()},          {"--cancel-filter", request.cancelFilter},
        {"--segments", !request.segments.empty()},    {"--no-segment", request.noSegment},
        {"--set", !request.properties.empty()},       {"--option", !request.options.empty()},
        {"--reevaluate", request.reevaluate},         {"--rates-date", !request.ratesDate.empty()},
        {"--rate", !request.rates.empty()},           {"--trace-sql", !request.traceSql.empty()},
        {"--comparable", !request.comparable.empty()}};
    for (const auto& [name, is] : given)
        if (is) throw UsageError("--all prints every report and takes no " + std::string(name));
    if (request.output.empty()) throw UsageError("--all needs the folder that takes the reports: -o FOLDER");
}

class AllRuns {
public:
    AllRuns(const RunRequest& request, const Console& console) : request_(request), console_(console) {
        for (const auto& member : clsReport::members())
            if (member.written) members_.emplace_back(member.name);
        results_.resize(members_.size());
    }

    int go() {
        guard();
        makeFolder();
        {
            const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
            std::vector<std::jthread> threads;
            for (unsigned i = 0; i < count; ++i) threads.emplace_back([this] { work(); });
        }
        return tellEnd();
    }

private:
    struct Result {
        int status = ExitStatus::done;
        std::string messages;
        bool ran = false;
    };

    std::string pathOf(const std::string& member) const {
        return (fs::path(request_.output) / (member + "." + (request_.format.empty() ? "pdf" : request_.format)))
            .string();
    }

    // All of them before the first is printed.
    void guard() const {
        std::vector<std::string> paths;
        for (const std::string& member : members_) paths.push_back(pathOf(member));
        guardOutputs(inputsOf(request_.company, request_.language), paths);
        for (const std::string& path : paths) guardPages(request_.format, path, {request_.company});
    }

    void makeFolder() const {
        std::error_code failure;
        fs::create_directories(request_.output, failure);
        std::error_code ignored;
        if (!fs::is_directory(request_.output, ignored))
            throw UsageError(request_.output + " cannot be made a folder" +
                             (failure ? ": " + failure.message() : std::string()));
    }

    void work() {
        for (std::size_t next = next_++; next < members_.size() && !interruptFlag(); next = next_++) run(next);
    }

    void run(std::size_t index) {
        RunRequest one = request_;
        one.member = members_[index];
        one.output = pathOf(one.member);
        one.datesAreCommon = true;
        std::ostringstream out, err;
        Result& result = results_[index];
        try {
            result.status = runReportCommand(one, Console{out, err});
        } catch (const UsageError& failure) {
            result.status = ExitStatus::wrongArguments;
            Console{out, err}.complain(failure.what());
        } catch (const CompanyError& failure) {
            result.status = ExitStatus::noCompany;
            Console{out, err}.complain(failure.what());
        } catch (const RunStopped&) {
            return;
        } catch (const std::exception& failure) {
            result.status = ExitStatus::failures;
            Console{out, err}.complain(failure.what());
        }
        result.messages = err.str();
        result.ran = true;
        tellProgress(one.output, result);
    }

    void tellProgress(const std::string& file, const Result& result) {
        const std::lock_guard lock(mutex_);
        ++done_;
        console_.print(std::to_string(done_) + "/" + std::to_string(members_.size()) + " " + file +
                       (result.status == ExitStatus::done ? "" : " (failures)"));
        console_.out.flush();
    }

    int tellEnd() const {
        int worst = ExitStatus::done;
        std::size_t failed = 0;
        for (std::size_t i = 0; i < results_.size(); ++i) {
            const Result& result = results_[i];
            if (result.status == ExitStatus::done) continue;
            worst = std::max(worst, result.status);
            ++failed;
            console_.err << members_[i] << ":\n" << result.messages;
        }
        if (done_ < members_.size()) {
            console_.complain("stopped after " + std::to_string(done_) + " of " + std::to_string(members_.size()) +
                              " reports");
            return std::max(worst, ExitStatus::failures);
        }
        if (failed > 0)
            console_.complain(std::to_string(failed) + " of " + std::to_string(members_.size()) +
                              " reports had failures");
        return worst;
    }

    static constexpr unsigned mostThreads = 2;  // each has one that paints besides

    const RunRequest& request_;
    const Console& console_;
    std::vector<std::string> members_;
    std::vector<Result> results_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::size_t done_ = 0;
};

}  // namespace

int runAllCommand(const RunRequest& request, const Console& console) {
    refuseOwnWishes(request);
    return AllRuns(request, console).go();
}

}  // namespace quillo::app
