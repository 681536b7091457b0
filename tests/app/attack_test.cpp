#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <random>

#include "host/database/sqlite_handle.h"
#include "tests/app/child.h"
#include "tests/output/output_files.h"
#include "tests/support/member_runs.h"

// The program is run in random ways and broken off in random ways; whatever happens, the company stays as it is, and a
// folder holds what it held and whole outputs. QUILLO_ATTACKS tells how many runs, QUILLO_ATTACK_SEED which.
namespace quillo::test {
namespace {

namespace fs = std::filesystem;
using std::string;
using namespace std::chrono_literals;

struct Entry {
    string bytes;
    mode_t mode = 0;
    bool operator==(const Entry&) const = default;
};
using Inventory = std::map<string, Entry>;

Inventory inventoryOf(const string& folder) {
    Inventory all;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        struct stat status {};
        if (stat(entry.path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
        all[fs::relative(entry.path(), folder).string()] = {read(entry.path().string()), status.st_mode};
    }
    return all;
}

bool isWhole(const string& name, const string& bytes) {
    const auto between = [&](const string& start, const string& end) {
        return bytes.starts_with(start) && bytes.substr(0, bytes.find_last_not_of('\n') + 1).ends_with(end);
    };
    const string ending = fs::path(name).extension().string();
    if (ending == ".pdf") return between("%PDF-", "%%EOF");
    if (ending == ".png") return between("\x89PNG", "IEND\xAE\x42\x60\x82");
    if (ending == ".json") return nlohmann::json::accept(bytes);
    if (ending == ".jsonl") return bytes.empty() || between("{", "}");
    if (ending == ".xml") return between("<?xml", ">");
    return ending == ".db" && bytes.starts_with("SQLite format 3");
}

class Attack : public testing::Test {
protected:
    Attack() {
        fs::create_directory(folder_.file("out"));
        fs::copy_file(company_.path(), folder_.file("plain.db"));
        fs::copy_file(company_.path(), folder_.file("wal.db"));
        sqlite::Database(folder_.file("wal.db"), sqlite::Open::readWrite).execute("PRAGMA journal_mode = WAL");
        // The one thing that a report writes to a company is written before.
        for (const char* name : {"plain.db", "wal.db"})
            Child({"run", "SalesStatistic", "--company", folder_.file(name)}, "/dev/null").waitFor(60s);
    }

    std::size_t below(std::size_t end) { return random_() % end; }
    template <class Choice>
    Choice one(std::vector<Choice> choices) {
        return choices[below(choices.size())];
    }
    string out(const string& name) const { return folder_.file("out/" + name); }

    // Sometimes hostile: the company, what lies beside it, a device.
    string target(const string& ending) {
        if (below(8) == 0)
            return one<string>({"/dev/full", "/dev/null", folder_.file("wal.db"), folder_.file("wal.db-shm"),
                                folder_.file("plain.db-journal"), out("dangling" + ending), "/nowhere/x" + ending});
        return out(one<string>({"a", "b", "b-1", string(250 - ending.size(), 'n')}) + ending);
    }

    std::vector<string> reportArguments() {
        std::vector<string> words{"run", one(writtenMembers())};
        for (const auto& [name, value] : neededBy(words[1])) words.insert(words.end(), {"--set", name + "=" + value});
        if (below(4) != 0) words.insert(words.end(), {"-o", target(one<string>({".pdf", ".png", ".json"}))});
        if (below(3) == 0) words.insert(words.end(), {"--from", "2024-01-01", "--to", "2024-01-31"});
        if (below(4) == 0) words.emplace_back("--foreign");
        if (below(4) == 0) words.insert(words.end(), {"--language", one<string>({"fr", "ids", "xx"})});
        if (below(4) == 0) words.insert(words.end(), {"--trace-sql", target(".jsonl")});
        if (below(6) == 0) words.insert(words.end(), {"--comparable", target(".xml")});
        if (below(6) == 0) words.insert(words.end(), {"--where", "Name LIKE '%a%b%'"});
        return words;
    }

    std::vector<string> arguments() {
        const string company = folder_.file(one<string>({"plain.db", "wal.db"}));
        const auto kind = below(20);
        if (kind == 0) return {"demo", target(".db")};
        if (kind == 1) return {"new", target(".db")};
        if (kind == 2) return {"check", company, "--books"};
        if (kind == 3) return {"list"};
        if (kind == 4) return {"letters", "--company", company, "--to", "2025-12-31", "-o", folder_.file("out")};
        if (kind == 5) return {"run", "--all", "--company", company, "-o", folder_.file("out")};
        auto words = kind == 6 ? std::vector<string>{"drill", one<string>({"CUS|1", "INV|1", "x"})} : reportArguments();
        words.insert(words.end(), {"--company", company});
        return words;
    }

    // Ends the run in some way, and tells how.
    string breakOff(Child& child) {
        const auto way = below(10);
        const auto moment = std::chrono::milliseconds(below(patience_));
        if (way < 2) {  // nothing happens to it, but that nobody reads
            if (!child.waitFor(moment)) child.closePipe();
            EXPECT_TRUE(child.waitFor(60s));
            return "left alone";
        }
        child.waitFor(moment);
        if (way == 2) child.closePipe();
        const int signal =
            one<int>({SIGINT, SIGTERM, SIGHUP, SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ, SIGKILL, SIGQUIT});
        const bool ignored = signal == SIGPIPE || signal == SIGXFSZ;
        const auto took = child.end(signal, ignored ? 500ms : 20s);
        if (ignored) child.closePipe();
        EXPECT_TRUE(child.waitFor(60s));
        if (signal == SIGINT || signal == SIGTERM || signal == SIGHUP) longest_ = std::max(longest_, took);
        return "signal " + std::to_string(signal) + " after " + std::to_string(moment.count()) + " ms, took " +
               std::to_string(took.count()) + " ms";
    }

    void check(const Inventory& before, const Inventory& after, bool mayLeaveOwn) const {
        for (const auto& [name, entry] : before) {
            const auto found = after.find(name);
            ASSERT_NE(found, after.end()) << name << " is gone";
            if (name.ends_with(".db")) {
                EXPECT_TRUE(found->second == entry) << name << " was changed";
            } else if (!(found->second == entry)) {
                EXPECT_TRUE(isWhole(name, found->second.bytes)) << name;
                EXPECT_EQ(found->second.mode, entry.mode) << name;
            }
        }
        for (const auto& [name, entry] : after) {
            if (before.contains(name)) continue;
            // A company of made-up figures that is killed half-made.
            if (mayLeaveOwn && fs::path(name).filename().string().starts_with(".quillo-")) continue;
            EXPECT_TRUE(name.starts_with("out/") && isWhole(name, entry.bytes)) << name << " was left";
        }
    }

    void attack() {
        std::ofstream(out("a.pdf")) << "of the user";
        chmod(out("a.pdf").c_str(), 0640);
        fs::create_symlink("led-to.pdf", out("dangling.pdf"));
        const Inventory before = inventoryOf(folder_.file(""));
        const auto words = arguments();
        string told;
        for (const string& word : words) told += word + ' ';
        const string console = one<string>({"", "", folder_.file("out/said.json"), "/dev/full"});
        Child child(words, console, below(5) == 0 ? 1 + below(300000) : 0);
        const string way = breakOff(child);
        SCOPED_TRACE(told + "> " + console + ": " + way + "\n" + child.complaints());
        const int signal = child.endingSignal();
        for (const int own : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL}) EXPECT_NE(signal, own);
        EXPECT_TRUE(signal != 0 || (child.exitStatus() >= 0 && child.exitStatus() <= 3)) << child.exitStatus();
        EXPECT_EQ(child.complaints().find("Sanitizer"), string::npos);
        EXPECT_EQ(child.complaints().find("damaged"), string::npos);
        fs::remove(out("said.json"));
        const bool demo = words[0] == "demo" || words[0] == "new";
        check(before, inventoryOf(folder_.file("")), demo && (signal == SIGKILL || signal == SIGQUIT));
        fs::remove_all(folder_.file("out"));
        fs::create_directory(folder_.file("out"));
    }

    static std::size_t fromEnvironment(const char* name, std::size_t otherwise) {
        const char* const value = std::getenv(name);
        return value == nullptr ? otherwise : std::strtoul(value, nullptr, 10);
    }

    const GoldenCompany company_;
    const TestFolder folder_;
    const std::size_t seed_ = fromEnvironment("QUILLO_ATTACK_SEED", 1);
    const std::size_t patience_ = fromEnvironment("QUILLO_ATTACK_MILLISECONDS", 700);
    std::mt19937_64 random_{seed_};
    std::chrono::milliseconds longest_{0};
};

TEST_F(Attack, HarmsNothing) {
    const std::size_t count = fromEnvironment("QUILLO_ATTACKS", 25);
    for (std::size_t i = 0; i < count && !HasFailure(); ++i) {
        SCOPED_TRACE("run " + std::to_string(i + 1) + " of seed " + std::to_string(seed_));
        attack();
    }
    EXPECT_LT(longest_, 5s) << "the sanitizers and a busy machine take their share";
    std::cout << count << " runs; the longest way from a signal to the end was " << longest_.count() << " ms\n";
}

// A reader of the output that sleeps keeps neither a writer from the company nor the program from ending.
TEST_F(Attack, ASleepingReaderKeepsNobodyWaiting) {
    for (const char* name : {"plain.db", "wal.db"}) {
        std::vector<string> words{"run", "CustList", "--company", folder_.file(name)};
        Child child(words);
        ASSERT_TRUE(child.speaks(20s)) << child.complaints();
        EXPECT_FALSE(child.waitFor(50ms)) << "the pipe is full";
        sqlite::Database writer(folder_.file(name), sqlite::Open::readWrite);
        sqlite3_busy_timeout(writer.get(), 0);
        EXPECT_NO_THROW(writer.execute("UPDATE Term SET Descr = 'x'")) << name;
        EXPECT_LT(child.end(SIGTERM, 20s), 3s);
        EXPECT_EQ(child.exitStatus(), 1) << child.complaints();
    }
}

}  // namespace
}  // namespace quillo::test
