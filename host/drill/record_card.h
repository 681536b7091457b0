#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/engine/report.h"
#include "host/company/company_file.h"
#include "host/drill/drill_target.h"

namespace quillo {

// One record of the company as a page shows it: its facts, and tables of what belongs to it. All texts are in the
// user's language and formats.
struct RecordCard {
    struct Column {
        std::string caption;
        bool right = false;  // a figure
    };
    struct Table {
        std::string title;
        std::vector<Column> columns{};
        std::vector<std::vector<std::string>> rows{};
    };
    struct Fact {
        std::string caption, value;
    };
    std::string title;
    std::vector<Fact> facts{};    // those that the record has
    std::vector<Table> tables{};  // those that have rows
};

// The records that a tag leads to. Throws InputError for a key that the company does not have.
std::vector<RecordCard> readRecordCards(const RecordTarget& target, const CompanyFile& company,
                                        const HostContext& context);

// A report that prints each card on a page of its own.
std::shared_ptr<Report> makeCardReport(HostContext& context, std::vector<RecordCard> cards);

}  // namespace quillo
