#include "host/letters/letter_writer.h"

namespace quillo {

std::string_view embeddedLetter(std::string_view stem);

namespace {

constexpr int onAccount = 20321;

// Amounts in home currency carry its sign, others their code.
std::string amountText(HostSession& session, int currencyId, Money amount) {
    const CurrencyInfo& info = session.currencyInfo();
    if (currencyId == info.CieHomeCurrencyId()) return session.locale().currency(amount);
    return session.locale().number(amount) + "\u00A0" + info.currencies().Item(std::to_string(currencyId)).CurrencyCode;
}

// Currencies are never added up.
std::string sumText(HostSession& session, const std::map<int, Money>& amounts) {
    std::string text;
    for (const auto& [currency, amount] : amounts) {
        if (amount == Money() && amounts.size() > 1) continue;
        text += (text.empty() ? "" : " + ") + amountText(session, currency, amount);
    }
    return text;
}

// What is in the customer's favour was never due.
FieldValues documentFields(HostSession& session, const OpenDocument& document, Date at) {
    const auto date = [&](Date day) { return session.locale().shortDate(day); };
    FieldValues values = {
        {"Document.Number", document.number},
        {"Document.Kind",
         document.kind.empty() ? session.GetText(onAccount) : session.company().dictionary().Translate(document.kind)},
        {"Document.Date", date(document.date)},
        {"Document.Balance", amountText(session, document.currencyId, document.balance)}};
    if (document.balance < Money()) return values;
    values["Document.DueDate"] = date(document.dueDate);
    if (const int days = daysPastDue(document, at); days > 0) values["Document.Days"] = std::to_string(days);
    return values;
}

}  // namespace

std::string_view builtInLetter(std::string_view language) {
    const std::string_view own = embeddedLetter("letter-" + std::string(language));
    return own.empty() ? embeddedLetter("letter-en") : own;
}

LetterFields letterFields(HostSession& session, const OverdueCustomer& customer, Date at) {
    LetterFields fields;
    fields.values = {{"Name", customer.name},
                     {"Address", session.company().addressBook().AddressOf(customer.id)},
                     {"Balance", sumText(session, customer.balances)},
                     {"Overdue", sumText(session, customer.overdue)},
                     {"OldestDays", std::to_string(customer.oldestDays)},
                     {"Date", session.locale().shortDate(at)},
                     {"Company", session.companyName()}};
    for (const OpenDocument& document : customer.documents)
        fields.documents.push_back(documentFields(session, document, at));
    return fields;
}

}  // namespace quillo
