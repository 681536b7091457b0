#include "framework/engine/report.h"

#include <cmath>

#include "framework/engine/design_reader.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/nearest_name.h"

namespace quillo {

std::string_view embeddedDesign(std::string_view stem);

namespace {

std::string_view designOf(const std::string& name) {
    const std::string_view design = embeddedDesign(name);
    if (design.empty()) throw NameError("There is no design \"" + name + "\"");
    return design;
}

}  // namespace

UnboundFields::UnboundField& UnboundFields::Add(std::string name) {
    const int known = find(name);
    if (known < 0) return fields_.emplace_back(UnboundField{std::move(name), {}});
    UnboundField& field = fields_[static_cast<std::size_t>(known)];
    field.Value = Variant();
    return field;
}

int UnboundFields::find(std::string_view name) const {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (equalNames(fields_[i].name, name)) return static_cast<int>(i);
    return -1;
}

UnboundFields::UnboundField& UnboundFields::Item(std::string_view name) {
    const int index = find(name);
    if (index < 0) throw NameError("There is no field \"" + std::string(name) + "\"");
    return fields_[static_cast<std::size_t>(index)];
}

Report::Report(std::string name, HostContext& context) : Report(name, context, designOf(name)) {}

Report::Report(std::string name, HostContext& context, std::string_view design)
    : name_(std::move(name)), context_(context) {
    Design read = readDesign(name_, design, embeddedDesign("styles"));
    setup = read.setup;
    sections_ = std::move(read.sections);
}

Report::~Report() = default;

Section& Report::section(std::string_view name) const {
    for (const auto& candidate : sections_)
        if (equalNames(candidate->Name(), name)) return *candidate;
    throw NameError("The design " + name_ + " has no section \"" + std::string(name) + "\"");
}

Section& Report::addSection(std::string name, SectionKind type, int index, float height) {
    if (type != SectionKind::groupHeader && type != SectionKind::groupFooter)
        throw EngineError("Only group headers and footers are added to " + name_ + " at run time");
    auto made = std::make_unique<Section>();
    made->info.name = std::move(name);
    made->info.kind = type;
    made->Height = height;
    const auto place = std::min(static_cast<std::size_t>(index < 0 ? 0 : index), sections_.size());
    return **sections_.insert(sections_.begin() + static_cast<std::ptrdiff_t>(place), std::move(made));
}

Control& Report::controlOf(std::string_view name, ControlKind kind) const {
    for (const auto& candidate : sections_) {
        Control* found = candidate->find(name);
        if (found == nullptr) continue;
        if (found->kind() != kind)
            throw NameError("The control " + found->Name() + " of the design " + name_ + " is a " +
                            std::string(nameOf(found->kind())) + ", not a " + std::string(nameOf(kind)));
        return *found;
    }
    throw NameError("The design " + name_ + " has no control \"" + std::string(name) + "\"");
}

DataControl* Report::dataControl() const {
    for (const auto& candidate : sections_)
        for (const auto& found : candidate->controls)
            if (found->kind() == ControlKind::dataControl) return static_cast<DataControl*>(found.get());
    return nullptr;
}

void Report::property(std::string name, std::function<void(const Variant&)> set) {
    properties_.push_back({std::move(name), std::move(set)});
}

std::vector<std::string> Report::propertyNames() const {
    std::vector<std::string> names;
    for (const auto& known : properties_) names.push_back(known.name);
    return names;
}

int Report::wholeNumber(const Variant& value) {
    if (value.toDouble() != std::floor(value.toDouble()))
        throw ConversionError("Type mismatch: \"" + value.toText() + "\" is not a whole number");
    return value.toInt32();
}

void Report::setProperty(std::string_view property, const Variant& value) {
    std::string names;
    for (const auto& known : properties_) {
        if (equalNames(known.name, property)) return known.set(value);
        names += (names.empty() ? "" : ", ") + known.name;
    }
    throw NameError(name_ + " has no property \"" + std::string(property) + "\"; " +
                    (names.empty() ? "it has none" : "it has " + names) + didYouMean(property, propertyNames()));
}

void Report::showFailure(std::string_view description, std::string_view procedure, int line) const {
    const std::string place = line == 0 ? "" : " at line " + std::to_string(line);
    context_.messages().Show(std::string(description) + "\r\nin Quillo." + name_ + "." + std::string(procedure) +
                             place);
}

}  // namespace quillo
