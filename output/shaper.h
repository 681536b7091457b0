#pragma once

#include <functional>
#include <memory>
#include <string>

namespace quillo {

class TextShaper;

// Hears once of each character that no installed font has, such as "No installed font has U+4E2D ...";
// a hollow box then stands for it.
using MissingCharacter = std::function<void(const std::string& failure)>;

// The fonts and shaped words of one run, which its measure and its sinks share while they work on one thread: a sink
// behind a QueuedSink needs one of its own. Without a listener a
// character that no installed font has throws FontError.
std::shared_ptr<TextShaper> makeTextShaper(MissingCharacter missing = {});

}  // namespace quillo
