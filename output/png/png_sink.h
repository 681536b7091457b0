#pragma once

#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "output/shaper.h"

namespace quillo {

// Pages as PNG files: FILE.png when there is one page, else FILE-1.png, FILE-2.png, ... All of them
// appear by finish(), none without. Throws OutputError when one cannot be written.
class PngSink final : public PageSink {
public:
    static constexpr double defaultResolution = 110;  // dots to the inch

    explicit PngSink(std::string path, double resolution = defaultResolution,
                     std::shared_ptr<TextShaper> shaper = makeTextShaper());
    ~PngSink() override;

    void page(const Page& page) override;
    void finish() override;

private:
    class Album;
    std::unique_ptr<Album> album_;
};

}  // namespace quillo
