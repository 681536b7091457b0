#include <gtest/gtest.h>

#include <fstream>

#include "framework/values/errors.h"
#include "host/comparable/comparable_tables.h"
#include "tests/app/program_run.h"
#include "tests/host/temporary_file.h"

namespace quillo::test {
namespace {

constexpr const char* mode = "PurgeIncl";

// What an ageing report tells of two customers.
ComparableTables ageing(const char* locale, const char* first, const char* second) {
    ComparableCollector collector;
    for (const auto& [key, balance] : {std::pair{"17", first}, {"18", second}}) {
        const auto table = collector.AddTable("fldCustId", mode);
        const auto row = collector.AddRow(table, "lblSubTotal", key, mode);
        collector.AddCell(row, "lblTotalCap", balance, mode);
    }
    return {"dsrCustAgingDetail", "Détail \"A\" & <B>", "Nordiques inc.", "2024-03-31", locale, "CAD",
            collector.tables()};
}

std::string save(const ComparableTables& tables, const TemporaryFile& file) {
    std::ofstream(file.path(), std::ios::binary) << comparableXml(tables);
    return file.path();
}

std::string bytesOf(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

TEST(ComparableTables, GoOnUnderTheSameTitleAndComeBackFromTheirFile) {
    const TemporaryFile file(".xml");
    const ComparableTables tables = readComparable(save(ageing("fr_CA", "1 234,50 $", "-7"), file));
    EXPECT_EQ(tables.report, "dsrCustAgingDetail");
    EXPECT_EQ(tables.title, "Détail \"A\" & <B>");
    EXPECT_EQ(tables.locale + tables.currency, "fr_CACAD");
    ASSERT_EQ(tables.tables.size(), 1U) << "the table was opened for each customer";
    ASSERT_EQ(tables.tables[0].rows.size(), 2U);
    EXPECT_EQ(tables.tables[0].rows[1].value, "18");
    ASSERT_EQ(tables.tables[0].rows[0].cells.size(), 1U);
    EXPECT_EQ(tables.tables[0].rows[0].cells[0].value, "1 234,50 $");
    EXPECT_NE(bytesOf(file.path()).find("mode=\"PurgeIncl\""), std::string::npos);
}

TEST(ComparableTables, RefuseAHandleThatTheyDidNotGive) {
    ComparableCollector collector;
    EXPECT_THROW(collector.AddRow(0, "row", "", mode), InputError);
    const auto table = collector.AddTable("table", mode);
    EXPECT_THROW(collector.AddCell(0, "cell", "1", mode), InputError);
    EXPECT_THROW(collector.AddRow(table - 1, "row", "", mode), InputError);
}

TEST(ComparableTables, CompareCellsOfOneNameInTheirOrder) {
    const auto project = [](std::vector<ComparableCell> cells) {
        ComparableTables tables = ageing("en_CA", "1", "2");
        tables.tables = {{"Totals", {{"P1-Quay", "", std::move(cells)}}}};
        return tables;
    };
    const auto cells = compareTables(project({{"Subtotal", "1"}, {"Subtotal", "2"}}),
                                     project({{"Subtotal", "1"}, {"Subtotal", "2"}, {"Subtotal", "3"}}));
    ASSERT_EQ(cells.size(), 3U);
    EXPECT_TRUE(cells[0].equal && cells[1].equal);
    EXPECT_EQ(cells[2].left + "|" + cells[2].right, "|3");
}

TEST(ComparableTables, AreComparedAsAmountsWhateverTheirLocale) {
    ComparableTables left = ageing("en_CA", "$1,234.50", "12.5"), right = ageing("fr_CA", "1 234,50 $", "13");
    right.tables[0].rows[1].cells.push_back({"lblPer1Cap", "(new)"});
    right.tables[0].rows.push_back({"lblSubTotal", "19", {{"lblTotalCap", "5"}}});
    const auto cells = compareTables(left, right);
    ASSERT_EQ(cells.size(), 4U);
    EXPECT_TRUE(cells[0].equal);
    EXPECT_EQ(cells[1].row, "lblSubTotal 18");
    EXPECT_EQ(cells[1].difference, Money::parse("0.5"));
    EXPECT_EQ(cells[2].cell, "lblPer1Cap");
    EXPECT_FALSE(cells[2].difference) << "a text is no amount";
    EXPECT_EQ(cells[3].row, "lblSubTotal 19");
    EXPECT_EQ(cells[3].left, "");
    EXPECT_EQ(cells[3].difference, Money::fromInteger(5));
    right.report = "dsrCustAgingSummary";
    EXPECT_THROW(compareTables(left, right), InputError);
}

Outcome compare(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "compare");
    return program(arguments);
}

TEST(CompareCommand, ShowsTwoRunsSideBySideOrWritesCsv) {
    const TemporaryFile first(".xml"), second(".xml"), csv(".csv");
    const std::string a = save(ageing("en_CA", "$1,234.50", "12.5"), first);
    ComparableTables later = ageing("en_CA", "$1,200.00", "12.50");
    later.period = "2024-04-30, end";
    const std::string b = save(later, second);
    const Outcome shown = compare({a, b});
    EXPECT_EQ(shown.status, 0) << shown.err;
    EXPECT_EQ(shown.out,
              "table      row             cell         Nordiques inc., 2024-03-31  Nordiques inc., 2024-04-30, end  "
              "difference\n"
              "fldCustId  lblSubTotal 17  lblTotalCap                   $1,234.50                        $1,200.00  "
              "     -34.5\n"
              "fldCustId  lblSubTotal 18  lblTotalCap                        12.5                            12.50\n");
    EXPECT_EQ(compare({a, b, "-o", csv.path()}).status, 0);
    EXPECT_EQ(bytesOf(csv.path()),
              "table,row,cell,\"Nordiques inc., 2024-03-31\",\"Nordiques inc., 2024-04-30, end\",difference\r\n"
              "fldCustId,lblSubTotal 17,lblTotalCap,\"$1,234.50\",\"$1,200.00\",-34.5\r\n"
              "fldCustId,lblSubTotal 18,lblTotalCap,12.5,12.50,\r\n");
}

TEST(CompareCommand, SaysWhatIsWrongWithAFile) {
    const TemporaryFile good(".xml"), broken(".xml"), foreign(".xml");
    save(ageing("en_CA", "1", "2"), good);
    std::ofstream(broken.path()) << "<comparable><table";
    std::ofstream(foreign.path()) << "<pages/>";
    for (const std::string& path : {broken.path(), foreign.path(), std::string("nowhere.xml")}) {
        const Outcome outcome = compare({good.path(), path});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_NE(outcome.err.find(path), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
}

}  // namespace
}  // namespace quillo::test
