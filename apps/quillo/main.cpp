#include <unistd.h>

#include <cerrno>
#include <iostream>
#include <system_error>

#include "apps/quillo/patient_stream.h"
#include "apps/quillo/program.h"

int main(int count, char** values) {
    using namespace quillo::app;
    catchInterrupts();
    PatientBuffer toReader(STDOUT_FILENO, {interruptFlag(), false}), toUser(STDERR_FILENO, {interruptFlag(), true});
    std::ostream out(&toReader), err(&toUser);
    err << std::unitbuf;
    const Console console{out, err, isatty(STDERR_FILENO) != 0};
    const int status = runProgram({values + 1, values + count}, console);
    out.flush();
    if (toReader.failure() == 0) return status;
    console.complain(toReader.failure() == EINTR
                         ? "stopped; standard output broke off"
                         : "standard output broke off: " + std::generic_category().message(toReader.failure()));
    return status == ExitStatus::done ? ExitStatus::failures : status;
}
