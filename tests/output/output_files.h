#pragma once

#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "output/pdf/pdf_sink.h"
#include "tests/output/page_builder.h"

namespace quillo::test {

// A folder of a test's own, gone with it.
class TestFolder {
public:
    TestFolder() {
        static int made = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("quillo-output-" + std::to_string(getpid()) + "-" + std::to_string(++made));
        std::filesystem::create_directories(path_);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() { std::filesystem::remove_all(path_); }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
    }

private:
    std::filesystem::path path_;
};

inline std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// What a program says on standard output and standard error.
inline std::string run(const std::string& command) {
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return "cannot run " + command;
    std::string said;
    std::array<char, 4096> part;
    while (const std::size_t size = fread(part.data(), 1, part.size(), pipe)) said.append(part.data(), size);
    pclose(pipe);
    return said;
}

inline void printPdf(const Page& page, const std::string& path, const PdfOptions& options = {}) {
    PdfSink sink(std::make_unique<OutputFile>(path), options);
    sink.page(page);
    sink.finish();
}

// The text of a PDF that holds one text, as a reader finds it.
inline std::string printedText(const Page& page) {
    const TestFolder folder;
    printPdf(page, folder.file("text.pdf"));
    return run("pdftotext -layout " + folder.file("text.pdf") + " -");
}

inline bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace quillo::test
