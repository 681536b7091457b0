#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace quillo {

class UnlinkedFile;

// Where an output's bytes go. write() throws OutputError; so does finish(), after which all is written.
class Output {
public:
    virtual ~Output() = default;
    virtual void write(std::string_view bytes) = 0;
    virtual void finish() = 0;
};

// What a path leads to, through links whose ends need not be there, and by its shortest spelling.
std::string writtenPath(const std::string& path);

// A file that appears whole or not at all: the bytes go to a file without a name, which takes the path's place by
// finish(), with mode and owner of what it replaces; a file that has another owner or several names is written over
// instead, once there is room. Without finish() nothing of it stays. A path that is no plain file (a device, a pipe)
// is written directly. Neither copied nor moved.
class OutputFile final : public Output {
public:
    // Throws OutputError with path and reason when the path cannot be written.
    explicit OutputFile(std::string path);
    ~OutputFile() override;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view bytes) override;
    // Gives the file handle back before finish(), for outputs of many files. No write() may follow.
    void close();
    void finish() override;

private:
    void openHidden(bool exists);
    // Runs a step whose failure is told with the path.
    template <class Step>
    void guarded(Step step) const;
    [[noreturn]] void fail(int reason) const;

    std::string path_;                      // as the caller gave it
    std::string target_;                    // what it leads to
    std::unique_ptr<UnlinkedFile> hidden_;  // empty: the target is written directly, or all is done
    bool beside_ = true;                    // the hidden file lies in the target's folder
    int device_ = -1;
};

// A stream that the caller keeps alive, such as standard output.
class OutputStream final : public Output {
public:
    explicit OutputStream(std::ostream& stream) : stream_(stream) {}
    void write(std::string_view bytes) override;
    void finish() override;

private:
    std::ostream& stream_;
};

}  // namespace quillo
