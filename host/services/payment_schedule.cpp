#include "host/services/payment_schedule.h"

#include <algorithm>

#include "framework/values/errors.h"

namespace quillo {
namespace {

// One execution of a kept statement; what stays open between two of them would hold the file.
class Asking {
public:
    Asking(const sqlite::Database& database, std::optional<sqlite::Statement>& kept, std::string_view sql, int key)
        : statement_(kept ? *kept : kept.emplace(database, sql)) {
        statement_.bind(1, key);
    }
    ~Asking() { statement_.reset(); }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

    sqlite::Statement* operator->() { return &statement_; }

private:
    sqlite::Statement& statement_;
};

Date dayBefore(Date day) {
    return {day.days - 1};
}

}  // namespace

SqlitePaymentSchedule::Document SqlitePaymentSchedule::document(int invoiceId) {
    Asking row(database_, document_, "SELECT InvoiDate, TotAmnt, RecAmnt FROM InvoiHdr WHERE InInvoiId = ?", invoiceId);
    if (!row->step()) throw NameError("There is no document with the key " + std::to_string(invoiceId));
    return {Date::parseIso(row->text(0)).value_or(noDate), Money::fromDouble(row->real(1)),
            Money::fromDouble(row->real(2))};
}

Money SqlitePaymentSchedule::paidBetween(const Document& document, int invoiceId, Date first, Date last) {
    const bool onTheSpot = first <= document.date && document.date <= last;
    Money paid = onTheSpot ? document.receivedOnTheSpot : Money();
    Asking row(database_, payments_,
               "SELECT PmtDet.PmtAmnt, PmtDet.PmtDisc FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId "
               "WHERE PmtDet.ExInvoiId = ? AND PmtHdr.PmtDate BETWEEN ? AND ?",
               invoiceId);
    row->bind(2, first.isoText()).bind(3, last.isoText());
    while (row->step()) paid += Money::fromDouble(row->real(0)) + Money::fromDouble(row->real(1));
    return paid;
}

Money SqlitePaymentSchedule::AmountPaidBetween(int invoiceId, Date first, Date last) {
    return paidBetween(document(invoiceId), invoiceId, first, last);
}

Money SqlitePaymentSchedule::OutstandingAtDate(int invoiceId, Date day) {
    const Document asked = document(invoiceId);
    if (day < asked.date) return asked.total;
    return asked.total - paidBetween(asked, invoiceId, noStartLimit, day);
}

Money SqlitePaymentSchedule::ExpectedBetweenByTerm(int termId, Money total, Date first, Date last) {
    Instalments instalments;
    Asking row(database_, dates_,
               "SELECT DueDate, Percent FROM PaymentSchedule WHERE ExTermId = ? AND DueDate IS NOT NULL", termId);
    while (row->step()) instalments.push_back({Date::parseIso(row->text(0)).value_or(noDate), row->real(1)});
    return dueBetween(instalments, total, first, last);
}

Money SqlitePaymentSchedule::ExpectedBetweenByTermAndDate(int termId, Date invoiceDate, Money total, Date first,
                                                          Date last) {
    Instalments instalments;
    Asking row(database_, days_, "SELECT Days, Percent FROM PaymentSchedule WHERE ExTermId = ? AND Days IS NOT NULL",
               termId);
    while (row->step())
        instalments.push_back({{invoiceDate.days + static_cast<double>(row->integer(0))}, row->real(1)});
    return dueBetween(instalments, total, first, last);
}

Money SqlitePaymentSchedule::dueBetween(const Instalments& instalments, Money total, Date first, Date last) {
    if (last < first) return {};
    return dueUpTo(instalments, total, last) - dueUpTo(instalments, total, dayBefore(first));
}

Money SqlitePaymentSchedule::dueUpTo(const Instalments& instalments, Money total, Date day) {
    double percent = 0;
    bool all = !instalments.empty();
    for (const Instalment& one : instalments) {
        if (one.due <= day) percent += one.percent;
        all = all && one.due <= day;
    }
    return all || percent >= 100 ? total : roundProduct(total, percent / 100, 2);
}

}  // namespace quillo
