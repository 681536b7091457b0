#include "framework/engine/band_run.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

constexpr int unknownColumn = -2;
constexpr int missingColumn = -1;
// Indexes from here on are hand-fed fields.
constexpr int firstUnbound = 1 << 20;

bool isFooterKind(SectionKind kind) {
    return kind == SectionKind::groupFooter || kind == SectionKind::reportFooter || kind == SectionKind::pageFooter;
}

// What fails outside of a report's own steps must not end the run, nor pass unseen. The procedure's name is made only
// when it is told.
template <class Event, class Procedure>
void guarded(const Report& report, const Procedure& procedure, const Event& event) {
    try {
        event();
    } catch (const EngineError&) {
        throw;
    } catch (const std::exception& error) {
        report.showFailure(error.what(), procedure(), 0);
    }
}

template <class Event>
void guardedEvent(const Report& report, std::string_view object, std::string_view event, const Event& run) {
    guarded(
        report, [&] { return std::string(object).append("_").append(event); }, run);
}

template <class Action>
void guardedField(const Report& report, const Section& section, const Control& field, const Action& action) {
    guarded(
        report, [&] { return section.Name() + "_Format, field " + field.Name(); }, action);
}

// A sub-report has no pages of its own.
void refusePages(const Report& report) {
    for (const auto& section : report.sections()) {
        const bool breaks = std::any_of(section->controls.begin(), section->controls.end(),
                                        [](const auto& control) { return control->kind() == ControlKind::pageBreak; });
        if (breaks || section->NewPage != NewPage::none || section->GrpKeepTogether != GroupKeep::none)
            throw EngineError("Report " + report.name() + ", section " + section->Name() +
                              ": a sub-report cannot break pages or keep groups together");
        if (std::any_of(section->controls.begin(), section->controls.end(),
                        [](const auto& control) { return control->OnlyInRepeats; }))
            throw EngineError("Report " + report.name() + ", section " + section->Name() +
                              ": a sub-report has no controls for its repeats");
    }
}

}  // namespace

BandRun::BandRun(Report& report, RunState& state, SectionTarget& target)
    : report_(report), state_(state), target_(target) {}

Section* BandRun::single(SectionKind kind) const {
    for (const auto& section : report_.sections())
        if (section->kind() == kind) return section.get();
    return nullptr;
}

void BandRun::run() {
    if (target_.isNested()) refusePages(report_);
    guardedEvent(report_, "ActiveReport", "ReportStart", [&] { report_.ActiveReport_ReportStart(); });
    if (report_.fetchData)
        guardedEvent(report_, "ActiveReport", "DataInitialize", [&] { report_.ActiveReport_DataInitialize(); });
    prepare();
    live_ = firstRow();
    if (live_) checkGroupKeys();
    bool more = live_;
    target_.begin(*this);
    for (; more; more = nextRow()) row();
    live_ = false;
    close(0);
    print(single(SectionKind::reportFooter));
}

void BandRun::end() {
    guardedEvent(report_, "ActiveReport", "ReportEnd", [&] { report_.ActiveReport_ReportEnd(); });
}

void BandRun::prepare() {
    if (!report_.notes || !report_.notes->isFor(state_.names)) report_.notes = std::make_shared<RunNotes>(state_.names);
    notes_ = report_.notes.get();
    prepareGroups();
    prepareFields();
    takeRecordset();
}

void BandRun::prepareGroups() {
    for (const auto& section : report_.sections()) {
        if (section->kind() == SectionKind::groupHeader) groups_.push_back({section.get(), nullptr, {}, {}});
    }
    std::size_t next = groups_.size();
    for (const auto& section : report_.sections()) {
        if (section->kind() != SectionKind::groupFooter) continue;
        if (next == 0)
            throw EngineError("Report " + report_.name() + ": section " + section->Name() + " has no group header");
        groups_[--next].footer = section.get();
    }
    if (next != 0)
        throw EngineError("Report " + report_.name() + ": section " + groups_[next - 1].header->Name() +
                          " has no group footer");
}

void BandRun::prepareFields() {
    for (const auto& section : report_.sections()) {
        int level = 0;
        for (std::size_t i = 0; i < groups_.size(); ++i)
            if (groups_[i].header == section.get() || groups_[i].footer == section.get())
                level = static_cast<int>(i) + 1;
        for (FieldNotes& notes : notes_->of(*section, level).fields) {
            const Field& field = *notes.field;
            notes = FieldNotes();
            notes.field = const_cast<Field*>(&field);
            if (field.IsSum) {
                Sum sum{&notes, section.get(), -1, {}};
                for (std::size_t i = 0; i < groups_.size(); ++i)
                    if (equalNames(groups_[i].header->Name(), field.SumGroup)) sum.group = static_cast<int>(i);
                sums_.push_back(sum);
            } else if (section->kind() != SectionKind::detail && !field.DataField.empty()) {
                captured_.emplace_back(section.get(), &notes);
            }
        }
        if (section->kind() != SectionKind::detail && !notes_->of(*section).links.empty())
            linked_.push_back(section.get());
    }
}

// A group over a column that is not there would be one silent group.
void BandRun::checkGroupKeys() {
    for (Group& group : groups_) {
        for (const Expression::Part& part : group.expression.parts())
            if (part.isColumn && findColumn(part.text) == missingColumn)
                report_.showFailure("There is no column \"" + part.text + "\" to group by",
                                    group.header->Name() + "_Format", 0);
    }
}

void BandRun::takeRecordset() {
    const DataControl* data = report_.dataControl();
    rows_ = data != nullptr ? data->Recordset : nullptr;
    notes_->forgetColumns();
    for (Group& group : groups_) group.expression = Expression::compile(group.header->DataField);
}

void BandRun::compile(const Section& section, FieldNotes& notes) {
    const Field& field = *notes.field;
    if (notes.source == field.DataField) return;
    notes.expression = Expression::compile(field.DataField);
    notes.source = field.DataField;
    if (!field.OptionalColumn) tellMissing(section, field, notes.expression);
}

// A column that the rows lack prints empty, which a reader would take for its value: told once a run.
void BandRun::tellMissing(const Section& section, const Control& control, const Expression& bound) {
    if (rows_ == nullptr && !report_.fetchData) return;  // there is no result that could lack it
    for (const Expression::Part& part : bound.parts()) {
        if (!part.isColumn || findColumn(part.text) != missingColumn) continue;
        const std::string place = section.Name() + "_Format, field " + control.Name();
        if (state_.missingColumns.insert(report_.name() + '.' + place + ": " + part.text).second)
            report_.showFailure("There is no column \"" + part.text + "\" to show", place, 0);
    }
}

int BandRun::findColumn(std::string_view name) const {
    if (const int unbound = report_.Fields.find(name); unbound >= 0) return firstUnbound + unbound;
    return rows_ != nullptr ? rows_->find(name) : missingColumn;
}

// A column that the result does not have reads as Null: it prints empty.
ValueView BandRun::columnValue(const Expression::Part& part) const {
    if (part.index >= firstUnbound) return report_.Fields.at(part.index - firstUnbound).Value.view();
    if (part.index == missingColumn || rows_ == nullptr || rows_->atEnd()) return {};
    return rows_->value(part.index);
}

ValueView BandRun::valueOf(Expression& expression, std::string& joined) const {
    for (Expression::Part& part : expression.parts())
        if (part.isColumn && part.index == unknownColumn) part.index = findColumn(part.text);
    if (expression.isColumn()) return columnValue(expression.parts().front());
    joined.clear();
    for (const Expression::Part& part : expression.parts()) {
        if (part.isColumn) {
            report_.context().locale().appendGeneral(joined, columnValue(part));
        } else {
            joined += part.text;
        }
    }
    return ValueView::ofText(joined);
}

void BandRun::show(FieldNotes& notes) const {
    Field& field = *notes.field;
    field.Text.clear();
    field.Format.append(field.Text, notes.shown, report_.context().locale());
}

void BandRun::fill(const Section& section) {
    for (FieldNotes& notes : notes_->of(section).fields) {
        if (notes.field->DataField.empty()) continue;
        guardedField(report_, section, *notes.field, [&] { fillField(section, notes); });
    }
    for (LinkNotes& notes : notes_->of(section).links)
        guardedField(report_, section, *notes.control, [&] { fillLink(section, notes); });
}

std::string BandRun::tagOf(const Section& section, LinkNotes& notes) {
    if (notes.source.empty()) {
        notes.expression = Expression::compile(notes.control->LinkField);
        notes.source = notes.control->LinkField;
        tellMissing(section, *notes.control, notes.expression);
    }
    return valueOf(notes.expression, joined_).textOrEmpty();
}

void BandRun::fillLink(const Section& section, LinkNotes& notes) {
    if (section.kind() == SectionKind::detail) {
        notes.control->Hyperlink = tagOf(section, notes);
    } else {
        if (!isFooterKind(section.kind()) && live_) notes.shown = tagOf(section, notes);
        notes.control->Hyperlink = notes.shown;
    }
}

void BandRun::fillField(const Section& section, FieldNotes& notes) {
    Field& field = *notes.field;
    field.Text.clear();  // a value that cannot be shown leaves no other row's text behind
    if (field.IsSum) {
        notes.shown = notes.sum.exact ? Variant(notes.sum.money) : Variant(notes.sum.real);
        return show(notes);
    }
    compile(section, notes);
    if (section.kind() == SectionKind::detail)
        return field.Format.append(field.Text, valueOf(notes.expression, joined_), report_.context().locale());
    if (!isFooterKind(section.kind()) && live_) notes.shown = valueOf(notes.expression, joined_);
    show(notes);
}

// Footers print when the recordset has moved on: what they show of a row is kept here.
void BandRun::capture() {
    for (const auto& [section, notes] : captured_) {
        guardedField(report_, *section, *notes->field, [&, section = section, kept = notes] {
            compile(*section, *kept);
            kept->shown = valueOf(kept->expression, joined_);
        });
    }
    for (const Section* section : linked_)
        for (LinkNotes& notes : notes_->of(*section).links)
            guardedField(report_, *section, *notes.control, [&] { notes.shown = tagOf(*section, notes); });
}

bool BandRun::formats(Section& section) {
    fill(section);
    report_.LayoutAction = LayoutActions::normal;
    if (section.Format) guardedEvent(report_, section.Name(), "Format", section.Format);
    return section.Visible && !report_.drops();
}

LaidOut BandRun::laidOut(const Section& section) {
    return layOut(section, {report_, *notes_, state_, target_.arena(), target_.width(), target_.takesFlow(section)});
}

std::optional<LaidOut> BandRun::format(Section& section) {
    if (!formats(section)) return std::nullopt;
    return laidOut(section);
}

void BandRun::print(Section* section) {
    if (section != nullptr && formats(*section)) printFormatted(*section);
}

void BandRun::printFormatted(Section& section) {
    target_.place(section, laidOut(section));
    printed(section);
}

void BandRun::printed(Section& section) {
    if (section.AfterPrint) guardedEvent(report_, section.Name(), "AfterPrint", section.AfterPrint);
}

bool BandRun::rowsAtEnd() const {
    return rows_ == nullptr || rows_->atEnd();
}

bool BandRun::firstRow() {
    if (report_.fetchData) return fetch();
    return report_.dataControl() == nullptr || !rowsAtEnd();
}

bool BandRun::nextRow() {
    if (report_.dataControl() != nullptr) advance();
    if (report_.fetchData) return fetch();
    return !rowsAtEnd();
}

// A row that is fed by hand, or that the recordset has moved to.
bool BandRun::fetch() {
    const bool beside = rows_ != nullptr;
    const bool end = report_.dataControl() != nullptr && rowsAtEnd();
    bool eof = true;  // a fetch that fails must not go on for ever
    guardedEvent(report_, "ActiveReport", "FetchData", [&] {
        bool told = end;
        report_.fetchData(told);
        eof = told;
    });
    return !eof && !(beside && end);
}

// To the next row, or to what an event has put in the recordset's place.
void BandRun::advance() {
    if (rows_ != report_.dataControl()->Recordset) return takeRecordset();
    if (rowsAtEnd()) return;
    try {
        rows_->moveNext();
    } catch (const std::exception& error) {
        report_.showFailure(error.what(), "ActiveReport_FetchData", 0);
        rows_ = report_.dataControl()->Recordset = nullptr;
    }
}

std::size_t BandRun::firstChanged() {
    for (std::size_t i = 0; i < groups_.size(); ++i)
        if (!groups_[i].expression.empty() && !sameValue(valueOf(groups_[i].expression, joined_), groups_[i].value))
            return i;
    return groups_.size();
}

void BandRun::row() {
    live_ = false;
    const std::size_t from = openGroups_ > 0 || groups_.empty() ? firstChanged() : 0;
    close(from);
    live_ = true;
    open(from);
    printDetail();
    capture();
    if (++state_.progress.rows % 256 == 0) state_.askToProceed();
}

void BandRun::open(std::size_t from) {
    for (std::size_t i = from; i < groups_.size(); ++i) {
        Group& group = groups_[i];
        if (!group.expression.empty()) group.value = valueOf(group.expression, joined_);
        for (const Sum& sum : sums_) {
            if (sum.group != static_cast<int>(i) || sum.field->field->SumRunning == Running::all) continue;
            sum.field->sum = {};
        }
        group.waits = group.header->OnlyWithRows || (i > 0 && groups_[i - 1].waits);
        if (group.waits) {
            group.shows = formats(*group.header);
        } else {
            target_.openGroup(*group.header);
            print(group.header);
        }
        openGroups_ = i + 1;
    }
}

// A row prints: the groups that waited for it print before it.
void BandRun::openWaiting() {
    for (std::size_t i = 0; i < openGroups_; ++i) {
        Group& group = groups_[i];
        if (!std::exchange(group.waits, false)) continue;
        target_.openGroup(*group.header);
        if (group.shows) printFormatted(*group.header);
    }
}

void BandRun::close(std::size_t from) {
    while (openGroups_ > from) {
        Group& group = groups_[--openGroups_];
        if (group.waits) continue;
        print(group.footer);
        target_.closeGroup(*group.header);
    }
}

void BandRun::addToSums() {
    for (Sum& sum : sums_) {
        sum.before = sum.field->sum;
        guardedField(report_, *sum.section, *sum.field->field, [&] { addToSum(*sum.section, *sum.field); });
    }
}

void BandRun::addToSum(const Section& section, FieldNotes& notes) {
    compile(section, notes);
    const ValueView value = valueOf(notes.expression, joined_);
    if (value.isNull()) return;  // adds nothing
    FieldNotes::Sum sum = notes.sum;
    sum.money += value.toMoney();
    sum.real += value.toDouble();
    sum.exact = sum.exact && value.kind() != ValueKind::real;
    notes.sum = sum;
}

void BandRun::printDetail() {
    Section* detail = single(SectionKind::detail);
    if (detail == nullptr) return openWaiting();
    // A running sum in the row shows the row itself; a row that is dropped takes its share back.
    addToSums();
    const bool shows = formats(*detail);
    if (report_.drops()) {
        for (const Sum& sum : sums_) sum.field->sum = sum.before;
        return;
    }
    openWaiting();
    if (shows) printFormatted(*detail);
}

namespace {

// Stacks the sections of a sub-report; it has no page header or footer.
class StackTarget final : public SectionTarget {
public:
    StackTarget(float width, Arena& arena) : width_(width), arena_(arena) {}

    Arena& arena() override { return arena_; }
    float width() const override { return width_; }
    bool isNested() const override { return true; }
    void begin(BandRun& run) override { run.print(run.single(SectionKind::reportHeader)); }

    void place(Section&, const LaidOut& laid) override {
        if (laid.placed.height <= 0 && laid.placed.controls.empty()) return;
        sections_.push_back(laid.placed);
        sections_.back().top = height_;
        height_ += laid.placed.height;
    }

    std::span<const PlacedSection> take() const { return arena_.keep(sections_); }

private:
    float width_;
    Arena& arena_;
    float height_ = 0;
    std::vector<PlacedSection> sections_;
};

}  // namespace

std::span<const PlacedSection> StackedRuns::run(Report& report, float width, Arena& arena) {
    StackTarget target(width, arena);
    BandRun run(report, state_, target);
    run.run();
    run.end();
    return target.take();
}

}  // namespace quillo
