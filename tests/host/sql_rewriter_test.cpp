#include "host/database/sql_rewriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/values/errors.h"
#include "host/database/sqlite_functions.h"
#include "host/database/sqlite_handle.h"

namespace quillo {
namespace {

struct Rewriting {
    const char* written;
    const char* rewritten;  // nullptr: unchanged
};

void expectRewritten(std::initializer_list<Rewriting> rewritings) {
    for (const auto& [written, rewritten] : rewritings)
        EXPECT_EQ(rewriteSql(written), rewritten == nullptr ? written : rewritten);
}

TEST(Rewriter, JoinsTextsAndLeavesSumsAlone) {
    expectRewritten(
        {Rewriting{"SELECT A + ' - ' + B AS X FROM T", "SELECT A || ' - ' || B AS X FROM T"},
         Rewriting{"SELECT (C.Code + ' - ' + C.Descr) as X, A + B FROM T",
                   "SELECT (C.Code || ' - ' || C.Descr) as X, quillo_number(A) + quillo_number(B) FROM T"},
         Rewriting{"SELECT (A + 'x') + B FROM T", "SELECT (A || 'x') || B FROM T"},
         Rewriting{"SELECT Id + ': ' + CAST(D AS varchar) FROM T", "SELECT Id || ': ' || CAST(D AS varchar) FROM T"},
         Rewriting{"SELECT Id + CAST(D AS varchar(30)) FROM T", "SELECT Id || CAST(D AS varchar(30)) FROM T"},
         Rewriting{"SELECT Id + CAST(D AS int), COALESCE(A, 0) + T.B FROM T",
                   "SELECT quillo_number(Id) + quillo_number(CAST(D AS int)), quillo_number(COALESCE(A, 0)) + "
                   "quillo_number(T.B) FROM T"},
         Rewriting{"SELECT COALESCE(A, '') + B, CASE WHEN A = 'x' THEN 1 ELSE 2 END + 3 FROM T",
                   "SELECT COALESCE(A, '') || B, quillo_number(CASE WHEN A = 'x' THEN 1 ELSE 2 END) + 3 FROM T"},
         Rewriting{"SELECT CASE WHEN A = 1 THEN 'x' ELSE B END + C FROM T",
                   "SELECT CASE WHEN A = 1 THEN 'x' ELSE B END || C FROM T"},
         Rewriting{"SELECT A FROM T WHERE A = 'x' AND B + C > 1 OR D IN ('y', 'z')",
                   "SELECT A FROM T WHERE A = 'x' AND quillo_number(B) + quillo_number(C) > 1 OR D IN ('y', 'z')"},
         Rewriting{"SELECT -A + B, A - +B FROM T",
                   "SELECT -quillo_number(A) + quillo_number(B), quillo_number(A) - +quillo_number(B) FROM T"},
         Rewriting{"SELECT A & ' - ' & B AS X FROM T", "SELECT quillo_join(A , ' - ' , B) AS X FROM T"},
         Rewriting{"SELECT (A & B + 'x' & C) FROM T", "SELECT (quillo_join(A , B || 'x' , C)) FROM T"},
         Rewriting{"SELECT T.A&T.B, (F(A & B) & C) FROM T",
                   "SELECT quillo_join(T.A,T.B), (quillo_join(F(quillo_join(A , B)) , C)) FROM T"},
         Rewriting{"SELECT 'a + b & c', \"a + 'b'\", [x & y], `p + 'q'` -- A & B\n FROM T /* + 'x' */", nullptr}});
}

TEST(Rewriter, TakesTheFunctionsOfBothDialects) {
    expectRewritten({Rewriting{"SELECT IIF(IsNull(A), '', A), NOT ISNULL(B) FROM T",
                               "SELECT IIF(quillo_isnull(A), '', A), NOT quillo_isnull(B) FROM T"},
                     Rewriting{"SELECT LEFT(A,3) FROM T LEFT JOIN (U LEFT JOIN V ON U.I = V.I) ON T.I = U.I",
                               "SELECT quillo_left(A,3) FROM T LEFT JOIN (U LEFT JOIN V ON U.I = V.I) ON T.I = U.I"},
                     Rewriting{"SELECT A FROM T ORDER BY (Name + LEFT(ExCustId,1000)), L.D",
                               "SELECT A FROM T ORDER BY (Name || quillo_left(ExCustId,1000)) COLLATE QUILLO, L.D"}});
}

TEST(Rewriter, TakesTheBracketsOfUnionsAway) {
    expectRewritten(
        {Rewriting{"(SELECT A FROM T ) UNION ALL (SELECT B FROM U) ORDER BY A",
                   "SELECT A FROM T  UNION ALL SELECT B FROM U ORDER BY A COLLATE QUILLO"},
         Rewriting{"(SELECT A FROM T)", "SELECT A FROM T"},
         Rewriting{"SELECT X FROM ((SELECT A FROM T) UNION (SELECT B FROM U)) AS D",
                   "SELECT X FROM (SELECT A FROM T UNION SELECT B FROM U) AS D"},
         Rewriting{"SELECT A FROM T UNION (SELECT B FROM U UNION ALL SELECT C FROM V)",
                   "SELECT A FROM T UNION SELECT * FROM (SELECT B FROM U UNION ALL SELECT C FROM V)"},
         Rewriting{"SELECT ABS((SELECT MAX(A) FROM T)), ((SELECT 1)) FROM T WHERE A IN (SELECT B FROM U)", nullptr}});
}

TEST(Rewriter, SortsWhatIsNoPlainColumnByTheCollationOfTexts) {
    expectRewritten(
        {Rewriting{"SELECT A FROM T ORDER BY T.A, T.B DESC", nullptr},
         Rewriting{"SELECT A FROM T ORDER BY A DESC, COALESCE(B, '') ",
                   "SELECT A FROM T ORDER BY A COLLATE QUILLO DESC, COALESCE(B, '') COLLATE QUILLO "},
         Rewriting{"SELECT D.X, T.A FROM T, (SELECT MIN(X) AS X FROM U) AS D ORDER BY D.X, T.A",
                   "SELECT D.X, T.A FROM T, (SELECT MIN(X) AS X FROM U) AS D ORDER BY D.X COLLATE QUILLO, T.A"},
         Rewriting{"SELECT W.Code FROM W UNION ALL SELECT B FROM U ORDER BY W.Code, B asc LIMIT 3",
                   "SELECT W.Code FROM W UNION ALL SELECT B FROM U ORDER BY Code COLLATE QUILLO, B COLLATE "
                   "QUILLO asc LIMIT 3"},
         Rewriting{"SELECT A FROM (SELECT A FROM T ORDER BY A)", nullptr},
         Rewriting{"SELECT A FROM T ORDER BY A COLLATE BINARY", nullptr},
         Rewriting{"SELECT A FROM T ORDER BY ,A", "SELECT A FROM T ORDER BY ,A COLLATE QUILLO"},
         Rewriting{"SELECT ((A FROM T ORDER BY A", nullptr}, Rewriting{"SELECT 'open", nullptr}});
}

TEST(Rewriter, RefusesAListWithoutValues) {
    for (const char* text : {"SELECT 1 WHERE 1 IN()", "SELECT 1 FROM (SELECT 1 WHERE 2 IN ( /* none */ ))"}) {
        try {
            rewriteSql(text);
            ADD_FAILURE() << text;
        } catch (const DatabaseError& failure) {
            EXPECT_STREQ(failure.what(), "Incorrect syntax near ')'.");
        }
    }
    EXPECT_EQ(rewriteSql("SELECT 'IN()'"), "SELECT 'IN()'");
}

TEST(Rewriter, RefusesASecondStatement) {
    EXPECT_THROW(rewriteSql("SELECT 1; SELECT 2"), DatabaseError);
    EXPECT_EQ(rewriteSql("SELECT 1 ; -- end"), "SELECT 1 ; -- end");
}

TEST(Rewriter, RemembersTexts) {
    SqlRewriter rewriter;
    for (int i = 0; i < 1000; ++i) {
        const std::string key = std::to_string(i);
        ASSERT_EQ(rewriter.rewrite("SELECT A & " + key), "SELECT quillo_join(A , " + key + ")");
    }
    EXPECT_EQ(rewriter.rewrite("SELECT A & 0"), "SELECT quillo_join(A , 0)");
}

// The texts as SQLite runs them: one column, rows joined by "|", NULL as "~".
std::string run(const std::string& text) {
    sqlite::Database database(":memory:", sqlite::Open::create);
    sqlite::registerFunctions(database.get(), database.watch());
    database.execute(
        "CREATE TABLE C (Id INTEGER PRIMARY KEY, Code TEXT COLLATE QUILLO, Name TEXT COLLATE QUILLO, Amount MONEY "
        "REAL, Rate INTEGER);"
        "INSERT INTO C VALUES (1, 'b', 'Élan', -0.1, 5), (2, 'A', NULL, -0.2, 10), (3, 'a', 'zoe', 0.3, NULL), (4, "
        "NULL, 'Abe', 1000000.1, 3)");
    sqlite::Statement statement(database, rewriteSql(text));
    std::string rows;
    int count = 0;
    while (statement.step())
        rows += (count++ == 0 ? "" : "|") + (statement.isNull(0) ? "~" : std::string(statement.text(0)));
    return rows;
}

TEST(Rewriter, TextsRunAsOnTheServers) {
    struct Case {
        const char* text;
        const char* rows;
    };
    const Case cases[] = {
        {"SELECT Code + ' - ' + Name FROM C ORDER BY Id", "b - Élan|~|a - zoe|~"},
        {"SELECT Code & ' - ' & Name FROM C ORDER BY Id", "b - Élan|A - |a - zoe| - Abe"},
        {"SELECT IIF(IsNull(Name), 'none', Name) FROM C ORDER BY C.Id", "Élan|none|zoe|Abe"},
        {"SELECT IsNull(Name, 'none') FROM C ORDER BY C.Id", "Élan|none|zoe|Abe"},
        {"SELECT IIF(Rate <> 5 AND Rate <> Null, Rate, 1) FROM C ORDER BY C.Id", "1|10|1|3"},
        {"SELECT Id FROM C WHERE Name<>NULL AND 'a <> Null' <> Name ORDER BY Id", "1|3|4"},
        {"SELECT Id FROM C WHERE Code + '/' <> NULL AND Name & Code <> Null ORDER BY Id", "1|2|3"},
        {"SELECT LEFT(Name, 2) FROM C WHERE NOT ISNULL(Name) ORDER BY Name", "Ab|Él|zo"},
        {"SELECT COALESCE(Code, '') FROM C ORDER BY COALESCE(Code, ''), Id", "|A|a|b"},
        {"SELECT Code AS X FROM C ORDER BY X DESC, Id", "b|A|a|~"},
        {"SELECT MIN(Name) FROM C GROUP BY Id ORDER BY MIN(Name)", "~|Abe|Élan|zoe"},
        {"(SELECT C.Name FROM C WHERE Id < 3) UNION ALL (SELECT Name FROM C WHERE Id > 2) ORDER BY C.Name",
         "~|Abe|Élan|zoe"},
        {"SELECT SUM(Amount) >= 0 FROM C WHERE Id < 4", "1"},
        {"SELECT SUM(Amount) FROM C WHERE Id = 99", "~"},
        {"SELECT SUM(Rate) FROM C", "18"},
        {"SELECT SUM(X) FROM (SELECT 1000000.1 AS X UNION ALL SELECT 0.2 UNION ALL SELECT -1000000.3)", "0.0"},
        {"SELECT ROUND(2.675, 2) UNION ALL SELECT ROUND(-1.005, 2) UNION ALL SELECT ROUND(2.5) UNION ALL SELECT "
         "ROUND(12345.678, -2)",
         "2.68|-1.01|3.0|12300.0"},
        {"SELECT ROUND(0.123456785, 8)", "0.12345679"},
        {"SELECT CCur(1.00005) UNION ALL SELECT CCur(1.00015) UNION ALL SELECT CCur(NULL)", "1.0|1.0002|~"},
        {"SELECT CStr(Id) + '/' FROM C WHERE Name LIKE 'é%'", "1/"},
        {"SELECT Id FROM C WHERE Name LIKE '_O%' OR Code LIKE 'B'", "1|3"},
        {"SELECT 'a%c' LIKE 'A!%_' ESCAPE '!' UNION ALL SELECT 'abc' LIKE 'A!%_' ESCAPE '!' UNION ALL SELECT 'aXbXc' "
         "LIKE '%x_'",
         "1|0|1"},
        {"SELECT CAST(Id AS VARCHAR(8000)) + 'x' FROM C WHERE Code = 'A ' ORDER BY Id", "2x|3x"},
    };
    for (const Case& one : cases) EXPECT_EQ(run(one.text), one.rows) << one.text << "\n" << rewriteSql(one.text);
}

// SQLite counts each of them as 0.
TEST(Rewriter, WhatIsNoNumberIsNotReckonedWith) {
    for (const char* sum : {"SUM(V)", "SUM(1 - V)", "SUM(Round(D.V * 2, 2))", "-V", "Round(V, 2)", "CCur(V)",
                            "1 / D . V", "IIF(V = 1, 0, V) + 1", "2 * CASE WHEN 1 THEN V END", "(V) * (2 - V)"}) {
        for (const char* value : {"'abc'", "x'3132'"})
            EXPECT_THROW(run(std::string("SELECT ") + sum + " FROM (SELECT " + value + " AS V) AS D"), sqlite::Error)
                << sum << " of " << value;
        EXPECT_NO_THROW(run(std::string("SELECT ") + sum + " FROM (SELECT 2 AS V UNION ALL SELECT NULL) AS D")) << sum;
    }
    EXPECT_EQ(run("SELECT COUNT(*), D.* FROM (SELECT 'abc' AS V) AS D"), "1");
}

TEST(Rewriter, ASumThatOverflowsIsAnError) {
    EXPECT_THROW(run("SELECT SUM(X) FROM (SELECT 9223372036854775807 AS X UNION ALL SELECT 1)"), sqlite::Error);
    EXPECT_THROW(run("SELECT SUM(X) FROM (SELECT 1e308 AS X UNION ALL SELECT 1e308)"), sqlite::Error);
    EXPECT_THROW(run("SELECT CCur(1e300)"), sqlite::Error);
    EXPECT_THROW(run("SELECT LEFT('a', -1)"), sqlite::Error);
}

}  // namespace
}  // namespace quillo
