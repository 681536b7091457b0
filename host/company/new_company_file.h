#pragma once

#include <string>

namespace quillo {

// A company file while it is made: under a name that nobody has, in the folder where it is to be. Without publish() it
// goes with the object. Failures are std::system_error. Neither copied nor moved.
class NewCompanyFile {
public:
    explicit NewCompanyFile(std::string path);
    ~NewCompanyFile();
    NewCompanyFile(const NewCompanyFile&) = delete;
    NewCompanyFile& operator=(const NewCompanyFile&) = delete;

    // Where it is made; an empty file is there.
    const std::string& name() const { return name_; }
    // Gives it its path, never in the place of a file that is there.
    void publish();

private:
    std::string path_;
    std::string name_;  // empty: published
};

}  // namespace quillo
