#pragma once

#include <string>
#include <string_view>

namespace quillo {

// A file that has no name while it is written, so that nothing of it stays behind whatever ends the program. Where the
// file system knows no such files it has a hidden name of its own, which goes with the object. Failures are
// std::system_error. Neither copied nor moved.
class UnlinkedFile {
public:
    explicit UnlinkedFile(std::string folder);
    ~UnlinkedFile();
    UnlinkedFile(const UnlinkedFile&) = delete;
    UnlinkedFile& operator=(const UnlinkedFile&) = delete;

    void write(std::string_view bytes);
    // Gives the handle back, for outputs of many files; the file then has its hidden name. No write() may follow.
    void park();
    // Makes it the file of that name in its own folder, with mode and owner of the one that it replaces. False when
    // that one would change its owner or leave another name that it has: then nothing is done.
    bool takePlaceOf(const std::string& target);
    // Calls take(bytes) for all that was written, piece by piece.
    template <class Take>
    void read(Take take) {
        std::string piece;
        for (long long at = 0; fill(piece, at); at += static_cast<long long>(piece.size())) take(piece);
    }
    // Writes all over a file that is there, which keeps mode, owner and names. When there is no room for it, the file
    // stays as it is.
    void copyOver(const std::string& target);

private:
    bool fill(std::string& piece, long long at);
    void open();
    void reopen();
    void nameIt();

    std::string folder_;
    std::string name_;  // empty: it has none
    int file_ = -1;
};

// The folder for files that nobody asked for.
std::string temporaryFolder();

}  // namespace quillo
