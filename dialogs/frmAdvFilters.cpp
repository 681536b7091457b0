#include "dialogs/frmAdvFilters.h"

#include "framework/step.h"

namespace quillo {
namespace {

CheckBox boxFor(const char* name, int id) {
    CheckBox box;
    box.Name = name;
    box.Id = id;
    return box;
}

}  // namespace

frmAdvFilters::frmAdvFilters(HostContext& context)
    : context_(context),
      boxes_{boxFor("chkShowZeroCommission", Option::showZeroCommission),
             boxFor("chkShowZeroTransaction", Option::showZeroTransaction),
             boxFor("chkIncludeZeroOrders", Option::includeZeroOrders),
             boxFor("chkIncludePaiementReceipt", Option::includePaymentReceipt),
             boxFor("chkIncludeKit", Option::includeKit),
             boxFor("chkIncludeKitComponent", Option::includeKitComponent)} {
    Form_Load();
}

// What the window adds around its inside.
void frmAdvFilters::Form_Load() {
    m_sngBorder = Height - ScaleHeight;
}

void frmAdvFilters::showFailure(std::string_view description, std::string_view procedure, int line) const {
    context_.messages().Show(std::string(description) + "\r\nin Quillo.frmAdvFilters." + std::string(procedure) +
                             " at line " + std::to_string(line));
}

CheckBox* frmAdvFilters::boxOf(int Id) {
    for (CheckBox& box : boxes_)
        if (box.Id == Id) return &box;
    return nullptr;
}

bool frmAdvFilters::Properties(int Id) const {
    const CheckBox* box = const_cast<frmAdvFilters*>(this)->boxOf(Id);
    return box != nullptr && box->Value;
}

void frmAdvFilters::Properties(int Id, bool value) {
    if (CheckBox* box = boxOf(Id)) box->Value = value;
}

void frmAdvFilters::PrepareInvConfigDialog(Application& application, int Mask, int CaptionId) {
    STEP(m_objApplication = &application);
    STEP(SetProperties(Mask));
    STEP(TranslateForm(CaptionId));
}

void frmAdvFilters::SetProperties(int Mask) {
    m_lngTop = 90;
    for (CheckBox& box : boxes_) STEP(SetCheckBox(box, IsPropInList(Mask, box.Id)));
    cmdOk.Left = ScaleWidth - cmdOk.Width - 90 - 90;
    cmdOk.Top = static_cast<float>(m_lngTop);
    ScaleHeight = cmdOk.Top + cmdOk.Height + 90;
    Height = ScaleHeight + m_sngBorder;
}

void frmAdvFilters::SetCheckBox(CheckBox& box, bool shown) {
    box.Visible = shown;
    if (!shown) return;
    box.Top = static_cast<float>(m_lngTop);
    m_lngTop += static_cast<int>(box.Height) + 60;
}

void frmAdvFilters::TranslateForm(int CaptionId) {
    constexpr std::array<int, 6> captions = {5905, 6615, 0, 9207, 11964, 11965};
    STEP(Caption = m_objApplication->GetText(1449));
    STEP(cmdOk.Caption = m_objApplication->GetText(1323));
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const int id = captions[i] != 0 ? captions[i] : CaptionId;
        if (boxes_[i].Visible && id != 0) STEP(boxes_[i].Caption = m_objApplication->GetText(id));
    }
}

bool frmAdvFilters::Form_QueryUnload(int UnloadMode) {
    if (UnloadMode != CloseMode::windowBox) return false;
    Hide();
    return true;
}

void frmAdvFilters::clicked(const FormControl& control) {
    if (&control == &cmdOk) cmdOk_Click();
}

std::vector<CheckBox*> frmAdvFilters::checkBoxes() {
    std::vector<CheckBox*> boxes;
    for (CheckBox& box : boxes_) boxes.push_back(&box);
    return boxes;
}

}  // namespace quillo
