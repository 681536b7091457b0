#include "reports/ageing/dsrCollectionLetters.h"

#include "framework/values/picture_file.h"

namespace quillo {

dsrCollectionLetters::dsrCollectionLetters(HostContext& context)
    : ReportFrame("dsrCollectionLetters", context, {.keepsDateFrom = false}) {
    property("TextLetter", m_strTextLetter);
    property("DisplayCieAddress", m_bDisplayCieAddress);
    property("CieLogoFullPath", m_strCieLogoFullPath);
}

void dsrCollectionLetters::ActiveReport_ReportStart() {
    imgLogo.Visible = !m_strCieLogoFullPath.empty();
    if (imgLogo.Visible) {
        STEP(imgLogo.Picture = loadPicture(m_strCieLogoFullPath));
        if (imgLogo.Picture.empty()) return;  // no letter goes out below a letterhead that could not be loaded
    }
    lblCieAddress.Visible = m_bDisplayCieAddress;
    if (m_bDisplayCieAddress) STEP(lblCieAddress.Caption = context().company().AddressText(0, 0, 0));
    rtbCollLetter.RTF = m_strTextLetter;
}

}  // namespace quillo
