#pragma once

#include <string>

#include "apps/quillo/console.h"

namespace quillo::app {

// What a user asked of the collection letters, as it was written on the command line.
struct LettersRequest {
    std::string company;
    std::string letter;  // file of the template; empty: the one that comes with the program, by language
    std::string logo;    // a picture's file; empty: none
    std::string to;      // ISO date; empty: today
    int minDays = 30;
    bool noAddress = false;
    std::string language;
    std::string locale;
    std::string folder;
};

// Writes one letter as PDF for each customer whose balance is past due. Throws UsageError and CompanyError; gives the
// exit status otherwise.
int writeLetters(const LettersRequest& request, const Console& console);

}  // namespace quillo::app
