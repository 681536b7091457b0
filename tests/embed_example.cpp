#include <iostream>

#include "framework/engine/engine.h"
#include "framework/report_factory.h"
#include "host/filter/filter_tool.h"
#include "host/session/host_session.h"
#include "output/output_file.h"
#include "output/pdf/pdf_sink.h"
#include "output/shaper.h"
#include "output/text_measure.h"

// Prints the customer list of a company file: embed_example COMPANY.db CUSTOMERS.pdf
int main(int, char** paths) {
    struct : quillo::Messages {
        void Show(std::string_view text) override { std::cerr << text << '\n'; }
    } messages;
    quillo::SessionOptions options;
    options.company = paths[1];
    quillo::HostSession session(options, messages);

    quillo::clsReport reports(session);
    const auto report = reports.CustList();
    auto& contract = dynamic_cast<quillo::IReport&>(*report);
    contract.IReport_Application(session);
    contract.IReport_Initialize();

    auto& filterable = dynamic_cast<quillo::IFilterableReport&>(*report);
    quillo::FilterChoice choice;
    choice.order = "Cust.Name";
    quillo::HeadlessFilterTool filter(choice, session.file().catalogue(), session,
                                      [&](const std::string& text) { filterable.IFilterableReport_Filter(text); });
    filterable.IFilterableReport_FilterTool(filter);

    const auto shaper = quillo::makeTextShaper();
    quillo::FontMeasure measure(shaper);
    quillo::PdfOptions pdf{contract.IReport_ReportTitle(), "en", session.companyName(), session.SessionDate()};
    quillo::PdfSink sink(std::make_unique<quillo::OutputFile>(paths[2]), pdf, shaper);
    return quillo::runReport(*report, sink, measure) == quillo::RunEnd::done ? 0 : 1;
}
