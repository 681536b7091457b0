#pragma once

#include "framework/dialog_form.h"
#include "framework/services/services.h"

namespace quillo {

// The options of the sales statistics: by what the items are sorted and in which direction, which documents count, and
// whether last year is left out. Its properties are what the report holds; OK takes over what is chosen, every other
// way of leaving keeps them as they were loaded.
class FSalesStatsFilter final : public DialogForm {
public:
    explicit FSalesStatsFilter(HostContext& context);

    int SortOption = 0;             // 0 none, 1 ascending, 2 descending
    int SortType = 0;               // 0 none, 1 sales amount, 2 sales units, 3 profit, 4 profit percent
    int FilterType = 0;             // 0 all documents, 1 invoices, 2 credit notes, 3 both of them
    bool HideLastYearInfo = false;  // no comparison with the year before
    // True when the form was left by its Cancel button.
    bool HasCancel() const { return hasCancel_; }

    // Sets captions and controls from the properties; for use before the form is shown.
    void Form_Load();

    std::vector<CheckBox*> checkBoxes() override { return {&chkLastYear}; }
    std::vector<OptionGroup*> optionGroups() override { return {&sortTypes_, &sortOptions_, &filterTypes_}; }
    std::vector<CommandButton*> buttons() override { return {&cmdOk, &cmdCancel}; }
    std::vector<FormLabel*> labels() override { return {&lblSortType, &lblSortValue}; }
    std::vector<Frame*> frames() override { return {&KorvaFrame1, &KorvaFrame2}; }
    bool queryClose(int mode) override;

protected:
    void clicked(const FormControl& control) override;

private:
    // Calls visit(caption, id of its text, text of the design) for each caption.
    template <class Visit>
    void visitCaptions(const Visit& visit);
    void layOut();
    void enableDirections(bool enabled);
    void cmdOk_Click();
    void cmdCancel_Click();
    void showFailure(std::string_view description, std::string_view procedure, int line) const;

    HostContext& context_;
    OptionGroup sortTypes_, sortOptions_, filterTypes_;
    FormLabel lblSortType, lblSortValue;
    Frame KorvaFrame1, KorvaFrame2;
    CheckBox chkLastYear;
    CommandButton cmdCancel{"cmdCancel"};
    bool hasCancel_ = false;
};

}  // namespace quillo
