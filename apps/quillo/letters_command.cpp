#include "apps/quillo/letters_command.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <set>

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
        for (const OverdueCustomer& customer : customers) {
            if (!write(customer, at)) {
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

    // False when the user stopped it.
    bool write(const OverdueCustomer& customer, Date at) {
        ReportJob job(*session_, member_, wish(customer, at));
        if (!job.made()) return true;  // its box told why
        std::vector<std::string> missing;
        const OutputRequest output = outputRequest(customer, job, missing);
        {
            const auto sink = openOutput(output, console_, measure_);
            RunOptions options;
            options.proceed = [](const Progress&) { return !interruptFlag(); };
            if (job.run(*sink, measure_, options) == RunEnd::stopped || interruptFlag()) return false;
        }
        for (const std::string& failure : missing) messages_.Show(customer.name + ": " + failure);
        console_.print(output.path);
        return true;
    }

    OutputRequest outputRequest(const OverdueCustomer& customer, const ReportJob& job,
                                std::vector<std::string>& missing) {
        OutputRequest output;
        output.format = "pdf";
        output.path = (fs::path(request_.folder) / names_.nameOf(customer)).string();
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
    FileNames names_;
};

}  // namespace

int writeLetters(const LettersRequest& request, const Console& console) {
    return onCompany(request.company, [&] { return Letters(request, console).go(); });
}

}  // namespace quillo::app
