#pragma once

#include <string>
#include <vector>

#include "host/database/company_schema.h"
#include "host/database/sqlite_handle.h"
#include "host/session/host_session.h"
#include "tests/host/temporary_file.h"

namespace quillo::test {

// A company file that lives as long as the test, with rows added by SQL.
class TestCompany {
public:
    explicit TestCompany(const std::string& rows = "") {
        sqlite::Database database(file_.path(), sqlite::Open::create);
        database.execute("PRAGMA synchronous = OFF; BEGIN");
        database.execute(std::string(companySchema()));
        database.execute(rows);
        database.execute("COMMIT");
    }
    const std::string& path() const { return file_.path(); }

private:
    TemporaryFile file_;
};

struct ListedMessages final : Messages {
    void Show(std::string_view text) override { texts.emplace_back(text); }
    std::vector<std::string> texts;
};

// A session over a test company.
struct TestSession {
    explicit TestSession(const std::string& rows = "", SessionOptions options = {}) : company(rows) {
        options.company = company.path();
        session.emplace(options, messages);
    }
    HostSession* operator->() { return &*session; }
    HostSession& operator*() { return *session; }

    TestCompany company;
    ListedMessages messages;
    std::optional<HostSession> session;
};

}  // namespace quillo::test
