#include <gtest/gtest.h>

#include "framework/engine/rich_layout.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

const std::string logo = std::string(QUILLO_SOURCE) + "/host/letters/logo.png";

// What each control of the letter shows: names, and the words of a text.
std::string shownBy(const ReportResult& result) {
    std::string text;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            for (const PlacedControl& control : section.controls) {
                const std::string words = control.text.empty() ? wordsOf(control) : std::string(control.text);
                text += control.info->name + (control.picture.empty() ? "" : " [picture]") + ": " + words + "\n";
            }
    return text;
}

class CollectionLetters : public testing::Test {
protected:
    const TestCompany company{
        "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrName, AddrLine1) VALUES (1, NULL, 0, 'Quay Ltd', '9 "
        "Quay')"};

    ReportResult letter(const std::map<std::string, std::string>& properties) const {
        return runReport({.member = "CollectionLetter", .company = company.path(), .properties = properties});
    }
};

TEST_F(CollectionLetters, PrintsTheBodyBelowWhatTheHostAsksFor) {
    const std::string body = "{\\rtf1 {\\b Dear} Bo\\par Pay}";
    EXPECT_EQ(shownBy(letter({{"TextLetter", body}})), "rtbCollLetter: Dear Bo\nPay\n");
    const auto whole = letter({{"TextLetter", body}, {"DisplayCieAddress", "True"}, {"CieLogoFullPath", logo}});
    EXPECT_EQ(shownBy(whole), "lblCieAddress: Quay Ltd\n9 Quay\nimgLogo [picture]: \nrtbCollLetter: Dear Bo\nPay\n");
    EXPECT_TRUE(whole.boxes.empty());
    EXPECT_TRUE(whole.sql.empty());
    const auto& sections = whole.kept.pages.at(0)->sections;
    ASSERT_EQ(sections.size(), 2U);
    const PlacedControl &address = sections[0].controls[0], &picture = sections[0].controls[1];
    EXPECT_LE(address.left + address.width, picture.left);
    EXPECT_GE(sections[1].top, sections[0].top + picture.top + picture.height) << "the letter begins below the logo";
}

TEST_F(CollectionLetters, AnEmptyBodyIsNoFailure) {
    const auto result = letter({{"TextLetter", ""}});
    EXPECT_TRUE(result.boxes.empty());
    EXPECT_EQ(result.pageCount(), 1U);
}

TEST_F(CollectionLetters, NoLetterPrintsPastALogoThatCannotBeLoaded) {
    for (const std::string& path : {std::string("/nowhere/logo.png"), company.path()}) {
        const auto result =
            letter({{"TextLetter", "{\\rtf1 Dear}"}, {"DisplayCieAddress", "True"}, {"CieLogoFullPath", path}});
        ASSERT_EQ(result.boxes.size(), 1U);
        EXPECT_EQ(result.boxes[0].find(path), 0U) << result.boxes[0];
        EXPECT_NE(result.boxes[0].find("\r\nin Quillo.dsrCollectionLetters.ActiveReport_ReportStart at line "),
                  std::string::npos);
        EXPECT_EQ(shownBy(result).find("Dear"), std::string::npos);
        EXPECT_EQ(shownBy(result).find("Quay"), std::string::npos);
    }
}

TEST_F(CollectionLetters, TheFactoryGivesTheBodyOnlyWhereThereIsOne) {
    TestSession session;
    clsReport factory(*session);
    const auto printed = [](const clsReport::Object& report) {
        ReportResult result;
        FixedMeasure measure;
        quillo::runReport(*report, result.kept, measure);
        return shownBy(result);
    };
    EXPECT_EQ(printed(factory.CollectionLetter("{\\rtf1 Body}", &*session)), "rtbCollLetter: Body\n");
    EXPECT_EQ(printed(factory.CollectionLetter("plain")), "rtbCollLetter: plain\n");
    for (const auto& text : {std::optional<std::string>(), std::optional<std::string>("")})
        EXPECT_EQ(printed(factory.CollectionLetter(text)).find("Body"), std::string::npos);
    EXPECT_TRUE(session.messages.texts.empty());
    const auto report = factory.CollectionLetter();
    auto& contract = dynamic_cast<IReport&>(*report);
    contract.IReport_DateFrom(Date::fromCivil(2024, 1, 1));
    contract.IReport_DateTo(Date::fromCivil(2024, 1, 1));
    EXPECT_EQ(contract.IReport_DateFrom(), noDate);
    EXPECT_EQ(contract.IReport_DateTo(), noDate);
}

}  // namespace
}  // namespace quillo::test
