#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// Asks the file anew at each question, by statements that it compiles once.
class SqlitePaymentSchedule final : public PaymentSchedule {
public:
    explicit SqlitePaymentSchedule(const sqlite::Database& database) : database_(database) {}

    Money AmountPaidBetween(int invoiceId, Date first, Date last) override;
    Money ExpectedBetweenByTerm(int termId, Money total, Date first, Date last) override;
    Money ExpectedBetweenByTermAndDate(int termId, Date invoiceDate, Money total, Date first, Date last) override;
    Money OutstandingAtDate(int invoiceId, Date day) override;

private:
    struct Document {
        Date date;
        Money total, receivedOnTheSpot;
    };
    struct Instalment {
        Date due;
        double percent;
    };
    using Instalments = std::vector<Instalment>;

    Document document(int invoiceId);
    Money paidBetween(const Document& document, int invoiceId, Date first, Date last);
    static Money dueUpTo(const Instalments& instalments, Money total, Date day);
    static Money dueBetween(const Instalments& instalments, Money total, Date first, Date last);

    const sqlite::Database& database_;
    std::optional<sqlite::Statement> document_, payments_, dates_, days_;
};

}  // namespace quillo
