#include "framework/engine/run_notes.h"

#include "framework/values/errors.h"

namespace quillo {

SectionNotes& RunNotes::of(const Section& section, int level) {
    const SectionInfo* known = sections_[&section].info;
    if (known == nullptr || known->level != level || known->repeat != section.Repeat ||
        known->fill != section.info.fill) {
        SectionInfo info = section.info;
        info.level = level;
        info.repeat = section.Repeat;
        sections_[&section].info = names_->section(info);
    }
    return of(section);
}

SectionNotes& RunNotes::of(const Section& section) {
    SectionNotes& notes = sections_[&section];
    if (notes.controls.size() > section.controls.size())
        throw EngineError("Section " + section.Name() + " has lost a control while its report runs");
    for (std::size_t i = notes.controls.size(); i < section.controls.size(); ++i) {
        Control& control = *section.controls[i];
        notes.controls.push_back({names_->control(control.info), nullptr, 0});
        if (control.kind() == ControlKind::field) notes.fields.emplace_back().field = static_cast<Field*>(&control);
    }
    return notes;
}

const TextStyle* RunNotes::style(const TextControl& control, ControlNotes& notes) {
    if (notes.styleVersion != control.Style.version()) {
        notes.style = names_->style(control.Style.value());
        notes.styleVersion = control.Style.version();
    }
    return notes.style;
}

void RunNotes::forgetColumns() {
    for (auto& [section, notes] : sections_)
        for (FieldNotes& field : notes.fields) field.source.clear();
}

}  // namespace quillo
