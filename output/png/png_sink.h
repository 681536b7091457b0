#pragma once

#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "output/shaper.h"

namespace quillo {

// Pages as PNG files: FILE.png when there is one page, else FILE-1.png, FILE-2.png, ... All of them
// appear by finish(), none without. Pages that an older run of other length left under these names go then; they bear a
// mark, so that a picture of the user's own is never one of them. Throws OutputError when one cannot be written.
class PngSink final : public PageSink {
public:
    static constexpr double defaultResolution = 110;  // dots to the inch

    explicit PngSink(std::string path, double resolution = defaultResolution,
                     std::shared_ptr<TextShaper> shaper = makeTextShaper());
    ~PngSink() override;

    // The N of a file beside path that is named as its page N is; 0 for any other name.
    static int pageNumber(const std::string& path, const std::string& other);

    void page(const Page& page) override;
    void finish() override;

private:
    class Album;
    std::unique_ptr<Album> album_;
};

}  // namespace quillo
