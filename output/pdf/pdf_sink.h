#pragma once

#include <memory>
#include <optional>
#include <string>

#include "framework/engine/page.h"
#include "framework/values/date.h"
#include "output/output_file.h"
#include "output/shaper.h"

namespace quillo {

// What the document says about itself. Texts are UTF-8; an empty one is left out.
struct PdfOptions {
    std::string title;
    std::string language;  // such as "en" or "fr-CA"
    std::string author;    // the company
    std::optional<Date>
        created;  // the session's date: the clock is never asked, so that the same pages give the same bytes
};

// Pages as a PDF 1.7 document, written while they come; memory does not grow with their number. Links
// carry the drill tag unchanged, as the action's URI. Throws OutputError when it cannot be written.
class PdfSink final : public PageSink {
public:
    PdfSink(std::unique_ptr<Output> output, PdfOptions options, std::shared_ptr<TextShaper> shaper = makeTextShaper());
    ~PdfSink() override;

    void page(const Page& page) override;
    void finish() override;

private:
    class Document;
    std::unique_ptr<Document> document_;
};

}  // namespace quillo
