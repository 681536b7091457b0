#pragma once

#include "framework/services/services.h"
#include "host/company/company_file.h"

namespace quillo {

// The receivables as one query over documents, payments and corrections. A payment of a document that is dated after
// the day is money on account until then.
class SqliteCustomerService final : public CustomerService {
public:
    // Both must outlive it. language: the code of the user's language, for the names of currencies.
    SqliteCustomerService(CompanyFile& file, const CurrencyInfo& currencies, std::string_view language)
        : file_(file), currencies_(currencies), language_(language) {}

    std::unique_ptr<HostRecordset> GetCustAgingList(bool includePaid, int customerId, Date day, std::string_view where,
                                                    std::string_view order, std::string_view argumentA,
                                                    std::string_view argumentB, bool flag, int option) override;
    std::string AgingFilterFields(std::string_view without) override;
    std::string CurrencyFilterFields() override { return "WorldCurrency"; }

private:
    CompanyFile& file_;
    const CurrencyInfo& currencies_;
    std::string language_;
};

}  // namespace quillo
