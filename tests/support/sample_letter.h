#pragma once

#include <string>

// A letter with most of what the RTF reader knows, for tests that need a body.
namespace quillo::test {

inline std::string sampleLetter() {
    return R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\froman Times New Roman;}{\f1\fswiss{\*\falt X}Arial;}}
{\colortbl;\red200\green16\blue0;}{\stylesheet{\s1 heading 1;}}{\info{\title Not printed}}
\pard\sa240\f1\fs24 {\b Dear} {\i\cf1 Bo}, caf\'e9 \u8364?\par
\pard\qj\f0\fs20 this letter is long enough to be broken into several lines of the page, each of them as wide as the {\ul others}, and says so.\par
\pard\li600\fi-600 {\pntext\bullet\tab}a list's first item that goes on below its own beginning and not below its mark\par
{\*\unknown skipped}\pard\tx2000\tqr\tx4000 left\tab middle\tab right\line next\par
\trowd\trgaph100\trhdr\clbrdrb\brdrs\cellx3000\cellx6000\pard\intbl Number\cell\qr Balance\cell\row
\trowd\trgaph100\cellx3000\cellx6000\pard\intbl F1\cell\qr 10.00\cell\row
\trowd\trgaph100\cellx3000\cellx6000\pard\intbl F2\cell\qr 20.00\cell\row
\pard\qc The end\par})";
}

}  // namespace quillo::test
