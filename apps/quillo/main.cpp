#include <unistd.h>

#include <iostream>

#include "apps/quillo/program.h"

int main(int count, char** values) {
    quillo::app::catchInterrupts();
    const quillo::app::Console console{std::cout, std::cerr, isatty(STDERR_FILENO) != 0};
    return quillo::app::runProgram({values + 1, values + count}, console);
}
