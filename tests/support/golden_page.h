#pragma once

#include <string>

#include "tests/support/report_runner.h"

namespace quillo::test {

// Pages as text to be read by people and compared by lines, a group of lines a section and a line a control:
//
//     -- page 1
//     Detail 1800+270                                         top on the page and height
//       txtDue 6420,30 960x240 right 9 | 30 -> 5              place in the section, size, look | text -> link
//
// Measures are whole twips. Sections of a sub-report stand below its control, a step further in.
std::string goldenText(const ReportResult& result);

// The lines by which two texts differ, "-" of the expected one and "+" of the other, each group under the section that
// it stands in; empty when they are the same.
std::string lineDifference(const std::string& expected, const std::string& actual);

}  // namespace quillo::test
