#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace quillo {

// Where an output's bytes go. write() throws OutputError; so does finish(), after which all is written.
class Output {
public:
    virtual ~Output() = default;
    virtual void write(std::string_view bytes) = 0;
    virtual void finish() = 0;
};

// A file that appears whole or not at all: the bytes go to a file beside it, which takes the path's
// place by finish() and is removed when this object goes without. A path that is no plain file (a
// device, a pipe) is written directly. Neither copied nor moved.
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
    [[noreturn]] void fail(int reason) const;

    std::string path_;       // as the caller gave it
    std::string target_;     // what it points to
    std::string temporary_;  // empty: the target is written directly, or all is done
    int file_ = -1;
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
