#pragma once

#include <string>

#include "framework/run_frame.h"

namespace quillo {

// One collection letter, whose body the host has composed: the report adds the company's address and logo above it.
class dsrCollectionLetters final : public ReportFrame {
public:
    explicit dsrCollectionLetters(HostContext& context);

    Date IReport_DateTo() override { return noDate; }
    void IReport_DateTo(const Date&) override {}

    // The host's application, null for none, until the report's end. The letter asks nothing of it.
    void MainApp(Application* value) { m_objMainApp = value; }

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_ReportEnd() override { m_objMainApp = nullptr; }

    Label& lblCieAddress = label("lblCieAddress");
    Image& imgLogo = control<Image>("imgLogo");
    RichEdit& rtbCollLetter = control<RichEdit>("rtbCollLetter");

    std::string m_strTextLetter;
    Application* m_objMainApp = nullptr;
    bool m_bDisplayCieAddress = false;
    std::string m_strCieLogoFullPath;
};

}  // namespace quillo
