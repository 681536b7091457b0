#include <iostream>

#include "framework/engine/engine.h"
#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "host/session/host_session.h"
#include "output/font_measure.h"
#include "output/json/json_sink.h"
#include "output/queued_sink.h"

// A host with a report of its own over the library's frame and a design of the library's: the terms of net days, as
// JSON to standard output.   own_report COMPANY.db
class NetTerms final : public quillo::ReportFrame {
public:
    explicit NetTerms(quillo::HostContext& context) : ReportFrame("dsrTermList", context, {.endTextId = 7629}) {
        onFormat("Detail", &NetTerms::Detail_Format);
    }

private:
    void ActiveReport_ReportStart() override {
        STEP(dataControl()->Recordset = execute("SELECT * FROM Term WHERE TermMode = ?", {quillo::Variant(1)}));
    }
    void Detail_Format() {
        ++m_lngRecordCount;
        STEP(field("txtTermMode").Text = "net");
    }
};

int main(int count, char** arguments) {
    if (count != 2) return 2;
    struct : quillo::Messages {
        void Show(std::string_view text) override { std::cerr << text << '\n'; }
    } messages;
    try {
        quillo::SessionOptions options;
        options.company = arguments[1];
        quillo::HostSession session(options, messages);
        NetTerms report(session);
        report.IReport_Application(session);
        quillo::FontMeasure measure;
        quillo::QueuedSink sink(std::make_unique<quillo::JsonSink>(std::make_unique<quillo::OutputStream>(std::cout),
                                                                   report.name(), "", "Net terms",
                                                                   quillo::JsonSink::Failures()));
        return runReport(report, sink, measure) == quillo::RunEnd::done ? 0 : 1;
    } catch (const quillo::InputError& refusal) {
        std::cerr << "refused: " << refusal.what() << '\n';
        return 3;
    }
}
