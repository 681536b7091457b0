#include "dialogs/FSalesStatsFilter.h"

#include "framework/step.h"

namespace quillo {
namespace {

// The options of a group have the values 0, 1, 2 in their order.
OptionGroup groupOf(const char* name, std::initializer_list<const char*> options) {
    OptionGroup group;
    group.Name = name;
    for (const char* option : options) {
        OptionButton button;
        button.Name = option;
        button.Value = static_cast<int>(group.Options.size());
        group.Options.push_back(button);
    }
    return group;
}

void place(FormControl& control, float left, float top) {
    control.Left = left;
    control.Top = top;
}

void place(OptionGroup& group, float left, float top) {
    for (OptionButton& option : group.Options) {
        place(option, left, top);
        top += option.Height + 60;
    }
}

}  // namespace

FSalesStatsFilter::FSalesStatsFilter(HostContext& context)
    : context_(context),
      sortTypes_(groupOf("SortType", {"optNoSort", "optSaleAmount", "optSaleUnits", "optProfit", "optPercentage"})),
      sortOptions_(groupOf("SortOption", {"optNone", "optAsc", "optDesc"})),
      filterTypes_(groupOf("FilterType", {"optNoFilter", "optInvoices", "optCredit", "optInvCredit"})) {
    FontName = "Tahoma";
    lblSortType.Name = "lblSortType";
    lblSortValue.Name = "lblSortValue";
    KorvaFrame1.Name = "KorvaFrame1";
    KorvaFrame2.Name = "KorvaFrame2";
    chkLastYear.Name = "chkLastYear";
    layOut();
}

void FSalesStatsFilter::showFailure(std::string_view description, std::string_view procedure, int line) const {
    context_.messages().Show(std::string(description) + "\r\nin Quillo.FSalesStatsFilter." + std::string(procedure) +
                             " at line " + std::to_string(line));
}

// Two columns of sorting, below them the documents, below these the year before and the buttons.
void FSalesStatsFilter::layOut() {
    ScaleWidth = 8760, ScaleHeight = 4875, Height = 5235;
    KorvaFrame1.Width = KorvaFrame2.Width = ScaleWidth - 180;
    KorvaFrame1.Height = 2100, KorvaFrame2.Height = 1605;
    place(KorvaFrame1, 90, 90);
    place(lblSortType, 180, 300);
    place(sortTypes_, 180, 600);
    place(lblSortValue, 4440, 300);
    place(sortOptions_, 4440, 600);
    place(KorvaFrame2, 90, 2280);
    place(filterTypes_, 180, 2580);
    place(chkLastYear, 90, 3975);
    place(cmdOk, ScaleWidth - 90 - cmdOk.Width - 90 - cmdCancel.Width, 4410);
    place(cmdCancel, ScaleWidth - 90 - cmdCancel.Width, 4410);
}

void FSalesStatsFilter::setCaptions() {
    const auto caption = [this](std::string& target, int id) { STEP_OF(Form_Load, target = context_.GetText(id)); };
    const auto captions = [&](OptionGroup& group, const std::vector<int>& ids) {
        for (std::size_t i = 0; i < ids.size(); ++i) caption(group.Options[i].Caption, ids[i]);
    };
    caption(Caption, 1711);
    caption(cmdOk.Caption, 1542);
    caption(cmdCancel.Caption, 6886);
    caption(KorvaFrame1.Caption, 9486);
    caption(lblSortType.Caption, 9486);
    caption(sortTypes_.Caption, 9486);
    caption(lblSortValue.Caption, 9487);
    caption(sortOptions_.Caption, 9487);
    caption(KorvaFrame2.Caption, 4149);
    caption(filterTypes_.Caption, 4149);
    captions(sortTypes_, {2733, 9488, 9489, 9490, 9491});
    captions(sortOptions_, {2733, 4335, 4336});
    captions(filterTypes_, {2733, 9492, 9493, 9494});
    caption(chkLastYear.Caption, 9495);
}

void FSalesStatsFilter::Form_Load() {
    setCaptions();
    choose(sortTypes_, SortType);
    choose(sortOptions_, SortOption);
    choose(filterTypes_, FilterType);
    chkLastYear.Value = HideLastYearInfo;
}

// Without a measure to sort by there is no direction.
void FSalesStatsFilter::enableDirections(bool enabled) {
    for (OptionButton& option : sortOptions_.Options) option.Enabled = enabled;
    if (!enabled) choose(sortOptions_, 0);
}

void FSalesStatsFilter::clicked(const FormControl& control) {
    for (const OptionButton& option : sortTypes_.Options)
        if (&option == &control) enableDirections(option.Value != 0);
    if (&control == &cmdOk) cmdOk_Click();
    if (&control == &cmdCancel) cmdCancel_Click();
}

void FSalesStatsFilter::cmdOk_Click() {
    const auto take = [](const OptionGroup& group, int& property) {
        if (const OptionButton* option = group.chosen()) property = option->Value;
    };
    take(sortTypes_, SortType);
    take(sortOptions_, SortOption);
    take(filterTypes_, FilterType);
    HideLastYearInfo = chkLastYear.Value;
    hasCancel_ = false;
    Hide();
}

void FSalesStatsFilter::cmdCancel_Click() {
    hasCancel_ = true;
    Hide();
}

bool FSalesStatsFilter::queryClose(int) {
    Hide();
    return false;
}

}  // namespace quillo
