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

// The texts of the design stand until the form is loaded.
template <class Visit>
void FSalesStatsFilter::visitCaptions(const Visit& visit) {
    visit(Caption, 1711, "");
    visit(cmdOk.Caption, 1542, "OK");
    visit(cmdCancel.Caption, 6886, "Cancel");
    visit(KorvaFrame1.Caption, 9486, "");
    visit(lblSortType.Caption, 9486, "Types de tri");
    visit(sortTypes_.Caption, 9486, "Types de tri");
    visit(sortTypes_.Options[0].Caption, 2733, "Aucun");
    visit(sortTypes_.Options[1].Caption, 9488, "Montant des ventes");
    visit(sortTypes_.Options[2].Caption, 9489, "Quantités vendues");
    visit(sortTypes_.Options[3].Caption, 9490, "Montant de profits");
    visit(sortTypes_.Options[4].Caption, 9491, "Pourcentage de profits");
    visit(lblSortValue.Caption, 9487, "Méthodes de tri");
    visit(sortOptions_.Caption, 9487, "Méthodes de tri");
    visit(sortOptions_.Options[0].Caption, 2733, "Aucun");
    visit(sortOptions_.Options[1].Caption, 4335, "Ascendant");
    visit(sortOptions_.Options[2].Caption, 4336, "Descendant");
    visit(KorvaFrame2.Caption, 4149, "");
    visit(filterTypes_.Caption, 4149, "");
    visit(filterTypes_.Options[0].Caption, 2733, "Aucun");
    visit(filterTypes_.Options[1].Caption, 9492, "Seulement les factures");
    visit(filterTypes_.Options[2].Caption, 9493, "Seulement les notes de crédit");
    visit(filterTypes_.Options[3].Caption, 9494, "Seulement les factures et les notes de crédit");
    visit(chkLastYear.Caption, 9495, "Cacher les statistiques de l'année précédente");
}

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
    visitCaptions([](std::string& caption, int, const char* design) { caption = design; });
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

// The measure comes behind the direction, which it takes back where there is none.
void FSalesStatsFilter::Form_Load() {
    visitCaptions(
        [this](std::string& caption, int id, const char*) { STEP_OF(Form_Load, caption = context_.GetText(id)); });
    choose(sortOptions_, SortOption);
    choose(sortTypes_, SortType);
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
