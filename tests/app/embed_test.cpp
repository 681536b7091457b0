#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

std::string read(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

TEST(Embedding, TheProgramOfTheReadmeStandsThereAsItIsAndPrints) {
    const std::string program = read(QUILLO_SOURCE "/tests/embed_example.cpp");
    EXPECT_NE(read(QUILLO_SOURCE "/README.md").find(program), std::string::npos) << "README.md shows another program";

    const TestCompany company("INSERT INTO Cust (InCustId, CustId, Name) VALUES (1, 'A', 'Ash')");
    const TemporaryFile pdf(".pdf");
    EXPECT_EQ(std::system((std::string(QUILLO_EMBED_EXAMPLE) + " " + company.path() + " " + pdf.path()).c_str()), 0);
    EXPECT_EQ(read(pdf.path()).substr(0, 5), "%PDF-");
}

}  // namespace
}  // namespace quillo::test
