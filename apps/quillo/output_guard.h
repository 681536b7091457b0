#pragma once

#include <string>
#include <vector>

namespace quillo::app {

// What a command reads: the company, and the file of texts where the language names one.
std::vector<std::string> inputsOf(const std::string& company, const std::string& language);

// Before anything is opened: no output may be a file that the command reads, nor one that a database keeps beside it,
// nor another output, nor any database; by whatever name, link or spelling. Empty names count for nothing. Throws
// UsageError.
void guardOutputs(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs);

// The same for the numbered pages of a picture: none of the others may have such a name. Throws UsageError.
void guardPages(const std::string& format, const std::string& path, const std::vector<std::string>& others);

// For a company that is to be made. Throws UsageError when it is there, or files that a database of its name would take
// for its own, or when its name is that of such a file.
void guardNewCompany(const std::string& path);

}  // namespace quillo::app
