#pragma once

#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/engine/expression.h"

namespace quillo {

// What the walk keeps beside a control: its name and style among the run's.
struct ControlNotes {
    const ControlInfo* info = nullptr;
    const TextStyle* style = nullptr;
    unsigned styleVersion = 0;
};

// What a field is bound to, and what it shows.
struct FieldNotes {
    Field* field = nullptr;
    std::string source;  // the DataField that was compiled
    Expression expression;
    Variant shown;  // of headers and footers: the value that they print
    struct Sum {
        Money money;
        double real = 0;
        bool exact = true;  // all values were money or integers
    } sum;
};

struct SectionNotes {
    const SectionInfo* info = nullptr;
    std::vector<ControlNotes> controls;  // beside the section's controls
    std::deque<FieldNotes> fields;
};

// The walk's notes on one report: kept with it, so that a sub-report that runs on every row is looked at once.
class RunNotes {
public:
    // Notes for a run that uses these names.
    explicit RunNotes(std::shared_ptr<RunNames> names) : names_(std::move(names)) {}
    bool isFor(const std::shared_ptr<RunNames>& names) const { return names_ == names; }

    // level: depth of the section's group, 0 for other sections. The notes stay where they are, also when an event adds
    // a control. Throws EngineError when one has gone.
    SectionNotes& of(const Section& section, int level);
    SectionNotes& of(const Section& section);
    // The style of a text control as it is now.
    const TextStyle* style(const TextControl& control, ControlNotes& notes);
    RunNames& names() { return *names_; }
    // Columns are to be looked up anew.
    void forgetColumns();

private:
    std::shared_ptr<RunNames> names_;
    std::unordered_map<const Section*, SectionNotes> sections_;
};

}  // namespace quillo
