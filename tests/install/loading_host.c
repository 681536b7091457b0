/* A host in C that knows the library's header and loads it at run time: loading_host LIBRARY COMPANY.db MEMBER OUT.pdf */
#include <dlfcn.h>
#include <stdio.h>

#include "quillo.h"

static void tell(void* caller, const char* text) {
    (void)caller;
    fprintf(stderr, "%s\n", text);
}

int main(int count, char** arguments) {
    if (count != 5) return 64;
    void* library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (library == NULL) {
        fprintf(stderr, "%s\n", dlerror());
        return 65;
    }
    __typeof__(&quillo_open) open = (__typeof__(&quillo_open))dlsym(library, "quillo_open");
    __typeof__(&quillo_run) run = (__typeof__(&quillo_run))dlsym(library, "quillo_run");
    __typeof__(&quillo_last_error) last_error = (__typeof__(&quillo_last_error))dlsym(library, "quillo_last_error");
    __typeof__(&quillo_close) close = (__typeof__(&quillo_close))dlsym(library, "quillo_close");
    if (!open || !run || !last_error || !close || !dlsym(library, "quillo_clsReport")) return 66;

    quillo_session* session;
    quillo_status status = open(&session, arguments[2], NULL, tell, NULL);
    if (status == QUILLO_DONE) status = run(session, arguments[3], NULL, arguments[4]);
    if (status != QUILLO_DONE) fprintf(stderr, "%s\n", last_error(session));
    close(session);
    return (int)status;
}
