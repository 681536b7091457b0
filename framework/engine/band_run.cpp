#include "framework/engine/band_run.h"

#include <exception>

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

template <class Visit>
void eachField(const Section& section, Visit visit) {
    for (const auto& control : section.controls)
        if (control->kind() == ControlKind::field) visit(static_cast<Field&>(*control));
}

// An event that fails outside of its own steps must not end the run, nor pass unseen. The procedure's name is made of
// its two parts only when it is told.
template <class Event>
void guarded(const Report& report, std::string_view object, std::string_view procedure, const Event& event) {
    try {
        event();
    } catch (const EngineError&) {
        throw;
    } catch (const std::exception& error) {
        report.showFailure(error.what(), std::string(object).append("_").append(procedure), 0);
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
    guarded(report_, "ActiveReport", "ReportStart", [&] { report_.ActiveReport_ReportStart(); });
    if (report_.fetchData)
        guarded(report_, "ActiveReport", "DataInitialize", [&] { report_.ActiveReport_DataInitialize(); });
    prepare();
    target_.begin(*this);
    walk();
    print(single(SectionKind::reportFooter));
}

void BandRun::prepare() {
    const DataControl* data = report_.dataControl();
    rows_ = data != nullptr ? data->Recordset.get() : nullptr;
    groups_.clear();
    for (const auto& section : report_.sections()) {
        if (section->kind() != SectionKind::groupHeader) continue;
        groups_.push_back({section.get(), nullptr, Expression::compile(section->DataField), {}});
        section->info.level = static_cast<int>(groups_.size());
    }
    std::size_t next = groups_.size();
    for (const auto& section : report_.sections()) {
        if (section->kind() != SectionKind::groupFooter) continue;
        if (next == 0)
            throw EngineError("Report " + report_.name() + ": section " + section->Name() + " has no group header");
        groups_[--next].footer = section.get();
        section->info.level = static_cast<int>(next + 1);
    }
    if (next != 0)
        throw EngineError("Report " + report_.name() + ": section " + groups_[next - 1].header->Name() +
                          " has no group footer");
    prepareFields();
}

void BandRun::prepareFields() {
    for (const auto& section : report_.sections()) {
        eachField(*section, [&](Field& field) {
            field.binding = Field::Binding();
            if (field.IsSum) {
                Sum sum{&field, -1};
                for (std::size_t i = 0; i < groups_.size(); ++i)
                    if (equalNames(groups_[i].header->Name(), field.SumGroup)) sum.group = static_cast<int>(i);
                sums_.push_back(sum);
            } else if (section->kind() != SectionKind::detail && !field.DataField.empty()) {
                captured_.push_back(&field);
            }
        });
    }
}

void BandRun::bindColumns(Field& field) const {
    if (field.binding.source == field.DataField) return;
    field.binding.expression = Expression::compile(field.DataField);
    field.binding.source = field.DataField;
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

void BandRun::show(Field& field) const {
    field.Text.clear();
    field.Format.append(field.Text, field.binding.shown, report_.context().locale());
}

void BandRun::fill(Section& section) {
    eachField(section, [&](Field& field) {
        if (field.DataField.empty()) return;
        if (field.IsSum) {
            field.binding.shown =
                field.binding.exact ? Variant(field.binding.moneySum) : Variant(field.binding.realSum);
            return show(field);
        }
        if (section.kind() == SectionKind::detail) {
            bindColumns(field);
            const ValueView value = valueOf(field.binding.expression, joined_);
            field.Text.clear();
            return field.Format.append(field.Text, value, report_.context().locale());
        }
        if (!isFooterKind(section.kind()) && live_) {
            bindColumns(field);
            field.binding.shown = valueOf(field.binding.expression, joined_);
        }
        show(field);
    });
}

// Footers print when the recordset has moved on: what they show of a row is kept here.
void BandRun::capture() {
    for (Field* field : captured_) {
        bindColumns(*field);
        field->binding.shown = valueOf(field->binding.expression, joined_);
    }
}

std::optional<PlacedSection> BandRun::format(Section& section) {
    fill(section);
    report_.LayoutAction = LayoutActions::normal;
    if (section.Format) guarded(report_, section.Name(), "Format", section.Format);
    if (!section.Visible || report_.LayoutAction == LayoutActions::dropRow) return std::nullopt;
    return layOut(section, target_.width(), target_.arena(), state_);
}

void BandRun::print(Section* section) {
    if (section == nullptr) return;
    target_.beforeFormat();
    if (const auto placed = format(*section)) target_.place(*section, *placed);
}

std::vector<Section*> BandRun::repeatedHeaders() const {
    std::vector<Section*> headers;
    for (std::size_t i = 0; i < openGroups_; ++i)
        if (groups_[i].header->Repeat) headers.push_back(groups_[i].header);
    return headers;
}

bool BandRun::advance() {
    try {
        rows_->moveNext();
        return !rows_->atEnd();
    } catch (const std::exception& error) {
        if (state_.options.proceed && !state_.options.proceed(state_.progress)) throw RunStopped();
        report_.showFailure(error.what(), "ActiveReport_FetchData", 0);
        return false;
    }
}

void BandRun::walk() {
    if (report_.fetchData) {
        for (bool eof = false;;) {
            guarded(report_, "ActiveReport", "FetchData", [&] {
                eof = true;  // a fetch that fails must not go on for ever
                bool end = false;
                report_.fetchData(end);
                eof = end;
            });
            if (eof) break;
            row();
        }
    } else if (report_.dataControl() == nullptr) {
        row();
    } else if (rows_ != nullptr && !rows_->atEnd()) {
        do {
            row();
        } while (advance());
    }
    live_ = false;
    close(0);
}

std::size_t BandRun::firstChanged() {
    for (std::size_t i = 0; i < groups_.size(); ++i)
        if (!groups_[i].expression.empty() && !sameValue(valueOf(groups_[i].expression, joined_), groups_[i].value))
            return i;
    return groups_.size();
}

void BandRun::row() {
    live_ = false;
    if (openGroups_ > 0 || groups_.empty()) {
        const std::size_t changed = firstChanged();
        close(changed);
        live_ = true;
        open(changed);
    } else {
        live_ = true;
        open(0);
    }
    printDetail();
    capture();
    if (++state_.progress.rows % 256 == 0 && state_.options.proceed && !state_.options.proceed(state_.progress))
        throw RunStopped();
}

void BandRun::open(std::size_t from) {
    for (std::size_t i = from; i < groups_.size(); ++i) {
        Group& group = groups_[i];
        if (!group.expression.empty()) group.value = valueOf(group.expression, joined_);
        for (const Sum& sum : sums_) {
            if (sum.group != static_cast<int>(i) || sum.field->SumRunning == Running::all) continue;
            sum.field->binding.moneySum = Money();
            sum.field->binding.realSum = 0;
            sum.field->binding.exact = true;
        }
        target_.openGroup(*group.header);
        print(group.header);
        openGroups_ = i + 1;
    }
}

void BandRun::close(std::size_t from) {
    while (openGroups_ > from) {
        Group& group = groups_[--openGroups_];
        print(group.footer);
        target_.closeGroup(*group.header);
    }
}

void BandRun::addToSums(int sign) {
    for (const Sum& sum : sums_) {
        Field::Binding& binding = sum.field->binding;
        bindColumns(*sum.field);
        const ValueView value = valueOf(binding.expression, joined_);
        if (value.isNull()) continue;  // adds nothing
        binding.exact = binding.exact && value.kind() != ValueKind::real;
        const Money amount = value.toMoney();
        binding.moneySum += sign < 0 ? -amount : amount;
        binding.realSum += sign * value.toDouble();
    }
}

void BandRun::printDetail() {
    Section* detail = single(SectionKind::detail);
    if (detail == nullptr) return;
    target_.beforeFormat();
    // A running sum in the row shows the row itself; a row that is dropped takes its share back.
    guarded(report_, detail->Name(), "Format", [&] { addToSums(1); });
    const auto placed = format(*detail);
    if (report_.LayoutAction == LayoutActions::dropRow) {
        guarded(report_, detail->Name(), "Format", [&] { addToSums(-1); });
    } else if (placed) {
        target_.place(*detail, *placed);
    }
    target_.detailDone();
}

namespace {

// Stacks the sections of a sub-report; it has no page header or footer.
class SubReportTarget final : public SectionTarget {
public:
    SubReportTarget(float width, Arena& arena) : width_(width), arena_(arena) {}

    Arena& arena() override { return arena_; }
    float width() const override { return width_; }
    void begin(BandRun& run) override { run.print(run.single(SectionKind::reportHeader)); }

    void place(Section& section, const PlacedSection& placed) override {
        if (placed.height > 0 || !placed.controls.empty()) {
            sections_.push_back(placed);
            sections_.back().top = height_;
            height_ += placed.height;
        }
        if (section.AfterPrint) section.AfterPrint();
    }

    std::span<const PlacedSection> take() {
        const auto kept = arena_.array<PlacedSection>(sections_.size());
        std::uninitialized_copy(sections_.begin(), sections_.end(), kept.begin());
        return kept;
    }

private:
    float width_;
    Arena& arena_;
    float height_ = 0;
    std::vector<PlacedSection> sections_;
};

}  // namespace

std::span<const PlacedSection> runSubReport(Report& report, float width, Arena& arena, RunState& state) {
    SubReportTarget target(width, arena);
    BandRun run(report, state, target);
    run.run();
    guarded(report, "ActiveReport", "ReportEnd", [&] { report.ActiveReport_ReportEnd(); });
    return target.take();
}

}  // namespace quillo
