#pragma once

#include <array>

#include "framework/dialog_form.h"
#include "framework/services/services.h"

namespace quillo {

// The options that the form knows, each a bit of a report's mask.
namespace Option {
inline constexpr int showZeroCommission = 1, showZeroTransaction = 2, includeZeroOrders = 4, includePaymentReceipt = 8,
                     includeKit = 16, includeKitComponent = 32;
}

// The one form of yes-or-no options: a report says which boxes it wants, and the form shows those, one under the
// other, and fits its height to them. There is no cancel: whatever the boxes hold when the form goes is kept.
class frmAdvFilters final : public DialogForm {
public:
    explicit frmAdvFilters(HostContext& context);

    // The state of the box with that bit. An unknown id reads False and does nothing on writing.
    bool Properties(int Id) const;
    void Properties(int Id, bool value);
    // Sets the dialog up, after its properties were set. Mask: the sum of the bits to show; CaptionId: text of the
    // box includeZeroOrders, 0 where it is not shown.
    void PrepareInvConfigDialog(Application& application, int Mask, int CaptionId);
    static bool IsPropInList(int Mask, int Id) { return (Mask & Id) != 0; }

    std::vector<CheckBox*> checkBoxes() override;
    bool queryClose(int mode) override { return Form_QueryUnload(mode); }

protected:
    void clicked(const FormControl& control) override;

private:
    void Form_Load();
    // The ways of leaving: both hide the form and keep the boxes.
    void cmdOk_Click() { Hide(); }
    // True refuses the close: by the window's own box the form hides instead.
    bool Form_QueryUnload(int UnloadMode);
    void SetProperties(int Mask);
    void SetCheckBox(CheckBox& box, bool shown);
    void TranslateForm(int CaptionId);
    CheckBox* boxOf(int Id);
    void showFailure(std::string_view description, std::string_view procedure, int line) const;

    HostContext& context_;
    Application* m_objApplication = nullptr;
    std::array<CheckBox, 6> boxes_;
    int m_lngTop = 0;       // the next free top, twips
    float m_sngBorder = 0;  // outer height less inner height
};

}  // namespace quillo
