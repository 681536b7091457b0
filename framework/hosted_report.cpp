#include "framework/hosted_report.h"

#include "framework/values/errors.h"

namespace quillo {

Application& HostedReport::application() const {
    if (m_objApplication == nullptr) throw NameError("The report has no application object");
    return *m_objApplication;
}

std::shared_ptr<Recordset> HostedReport::execute(const std::string& sql, const std::vector<Variant>& values) {
    return execute(m_command, sql, values);
}

std::shared_ptr<Recordset> HostedReport::execute(std::unique_ptr<Command>& command, const std::string& sql,
                                                 const std::vector<Variant>& values) {
    HostDatabase& database = context().company().Database();
    if (!command) command = database.newCommand();
    command->CommandTimeout = 0;
    command->ActiveConnection = database.ConnectionString();
    command->CommandText = sql;
    command->Parameters.clear();
    context().utils().SetCommandParameters(*command, values);
    return command->Execute();
}

bool HostedReport::ActiveReport_Initialize(int setting, std::initializer_list<CodePlace> places) {
    bool used = true;
    STEP(used = Setting(setting));
    if (used) return true;
    for (const auto& [code, follower] : places) {
        code.Visible = false;
        if (follower.Top == code.Top) follower.Width += follower.Left - code.Left;
        follower.Left = code.Left;
        follower.Top = code.Top;
    }
    return false;
}

}  // namespace quillo
