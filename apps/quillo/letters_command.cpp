#include "apps/quillo/letters_command.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <set>

#include "apps/quillo/output_guard.h"
#include "apps/quillo/outputs.h"
#include "apps/quillo/session_arguments.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/picture_file.h"
#include "framework/values/text.h"
#include "host/letters/letter_writer.h"
#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/shaper.h"

namespace quillo::app {
namespace {

namespace fs = std::filesystem;

std::string fileText(const std::string& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) throw UsageError("the template " + path + " does not exist");
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw UsageError("the template " + path + " cannot be read");
    return text;
}

LetterTemplate readTemplate(const LettersRequest& request, const HostSession& session) {
    try {
        return request.letter.empty() ? LetterTemplate(builtInLetter(session.language().code()))
                                      : LetterTemplate(fileText(request.letter));
    } catch (const InputError& failure) {
        throw UsageError("the template " + request.letter + ": " + failure.what());
    }
}

SessionOptions sessionOptions(const LettersRequest& request) {
    SessionOptions options;
    options.company = request.company;
    options.stop = &interruptFlag();
    options.language = request.language;
    options.locale = request.locale;
    if (!request.to.empty()) options.sessionDate = readDate("--to", request.to);
    return options;
}

// Names of files from customers' codes: each once, of letters and digits alone.
class FileNames {
public:
    std::string nameOf(const OverdueCustomer& customer) {
        std::string name;
        for (const char letter : customer.code.empty() ? std::to_string(customer.id) : customer.code)
            name += isLetter(letter) || isDigit(letter) || letter == '-' ? letter : '_';
        if (!given_.insert(foldedName(name)).second) {
            name += "-" + std::to_string(customer.id);
            given_.insert(foldedName(name));
        }
        return name + ".pdf";
    }

private:
    std::set<std::string> given_;
};

class Letters {
public:
    Letters(const LettersRequest& request, const Console& console)
        : request_(request),
          console_(console),
          messages_(console),
          session_(openSession(sessionOptions(request), messages_)),
          template_(readTemplate(request, *session_)) {}

    int go() {
        refuse();
        const Date at = session_->SessionDate();
        const auto customers = overdueCustomers(session_->file(), at, request_.minDays);
        if (customers.empty()) {
            console_.complain("no customer has a balance that is past due by " + std::to_string(request_.minDays) +
                              " days on " + at.isoText() + "; nothing was written");
            return ExitStatus::failures;
        }
        const auto paths = pathsOf(customers);
        for (std::size_t i = 0; i < customers.size(); ++i) {
            if (!write(customers[i], paths[i], at)) {
                console_.complain("stopped; the letters named above are written");
                return ExitStatus::failures;
            }
        }
        return messages_.shown().empty() ? ExitStatus::done : ExitStatus::failures;
    }

private:
    // Before anything is written.
    void refuse() const {
        std::error_code ignored;
        if (!fs::is_directory(request_.folder, ignored))
            throw UsageError("the folder " + request_.folder + " does not exist");
        if (request_.logo.empty()) return;
        try {
            loadPicture(request_.logo);
        } catch (const InputError& failure) {
            throw UsageError(std::string("--logo ") + failure.what());
        }
    }

    ReportWish wish(const OverdueCustomer& customer, Date at) {
        ReportWish wish;
        wish.properties = {{"TextLetter", template_.compose(letterFields(*session_, customer, at))},
                           {"DisplayCieAddress", request_.noAddress ? "False" : "True"},
                           {"CieLogoFullPath", request_.logo}};
        return wish;
    }

    // All of them before the first is written.
    std::vector<std::string> pathsOf(const std::vector<OverdueCustomer>& customers) const {
        std::vector<std::string> paths;
        FileNames names;
        for (const OverdueCustomer& customer : customers)
            paths.push_back((fs::path(request_.folder) / names.nameOf(customer)).string());
        auto inputs = inputsOf(request_.company, request_.language);
        inputs.insert(inputs.end(), {request_.letter, request_.logo});
        guardOutputs(inputs, paths);
        return paths;
    }

    // False when the user stopped it.
    bool write(const OverdueCustomer& customer, const std::string& path, Date at) {
        std::vector<std::string> missing;
        Outlet outlet(console_);
        const auto end = print(customer, path, at, outlet, missing);
        session_->file().handle().rest();
        outlet.deliver();
        for (const std::string& failure : missing) messages_.Show(customer.name + ": " + failure);
        messages_.tell();
        if (!end) return true;  // its box told why
        if (end == RunEnd::stopped || interruptFlag()) return false;
        console_.print(path);
        console_.out.flush();
        return true;
    }

    std::optional<RunEnd> print(const OverdueCustomer& customer, const std::string& path, Date at, Outlet& outlet,
                                std::vector<std::string>& missing) {
        ReportJob job(*session_, member_, wish(customer, at));
        if (!job.made()) return std::nullopt;
        const OutputRequest output = outputRequest(customer, path, job, missing);
        const auto sink = openOutput(output, outlet, measure_);
        RunOptions options;
        options.proceed = [](const Progress&) { return !interruptFlag(); };
        return job.run(*sink, measure_, options);
    }

    OutputRequest outputRequest(const OverdueCustomer& customer, const std::string& path, const ReportJob& job,
                                std::vector<std::string>& missing) {
        OutputRequest output;
        output.format = "pdf";
        output.path = path;
        output.report = member_.report;
        output.member = member_.name;
        output.frame = job.pageTexts();
        output.title = customer.name;
        output.language = session_->language().code();
        output.sessionDate = session_->SessionDate();
        output.missing = [&missing](const std::string& failure) { missing.push_back(failure); };
        return output;
    }

    const LettersRequest& request_;
    const Console& console_;
    const clsReport::Member& member_ = *clsReport::findMember("CollectionLetter");
    ConsoleMessages messages_;
    std::unique_ptr<HostSession> session_;
    const LetterTemplate template_;
    FontMeasure measure_{makeTextShaper([](const std::string&) {})};
};

}  // namespace

int writeLetters(const LettersRequest& request, const Console& console) {
    return onCompany(request.company, [&] { return Letters(request, console).go(); });
}

}  // namespace quillo::app
