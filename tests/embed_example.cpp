#include <iostream>

#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/output_file.h"
#include "output/page_frame.h"
#include "output/pdf/pdf_sink.h"
#include "output/shaper.h"

// Prints the customer list of a company file: embed_example COMPANY.db CUSTOMERS.pdf
int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: " << arguments[0] << " COMPANY.db CUSTOMERS.pdf\n";
        return 2;
    }
    struct : quillo::Messages {
        void Show(std::string_view text) override { std::cerr << text << '\n'; }
    } messages;
    try {
        quillo::SessionOptions options;
        options.company = arguments[1];
        quillo::HostSession session(options, messages);

        quillo::ReportWish wish;
        wish.order = "Cust.Name";
        quillo::ReportJob job(session, *quillo::clsReport::findMember("CustList"), wish);

        const auto shaper = quillo::makeTextShaper();
        quillo::FontMeasure measure(shaper);
        const quillo::PageFrameTexts texts = job.pageTexts();
        const quillo::PdfOptions pdf{texts.title, session.language().code(), texts.company, session.SessionDate()};
        auto file = std::make_unique<quillo::PdfSink>(std::make_unique<quillo::OutputFile>(arguments[2]), pdf, shaper);
        quillo::PageFrame pages(std::move(file), texts, measure);
        return job.run(pages, measure) == quillo::RunEnd::done ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
