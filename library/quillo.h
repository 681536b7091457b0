#ifndef QUILLO_H
#define QUILLO_H

/*
 * The library's door in C, for hosts that load it at run time (dlopen) or are written in another language: open a
 * session on a company file, run reports to PDF files, close it. Hosts in C++ link the library and take
 * host/session/report_job.h, which can do more.
 *
 * Texts are UTF-8. What is passed in is copied; what comes out belongs to the session. A session is used by one thread
 * at a time; sessions know nothing of each other and may run side by side. No C++ exception leaves a function.
 */

#if defined(__cplusplus)
extern "C" {
#endif

typedef struct quillo_session quillo_session;

typedef enum quillo_status {
    QUILLO_DONE = 0,
    QUILLO_FAILURES =
        1,              /* it ran and showed failures, and what it could print is there; or it broke off without file */
    QUILLO_REFUSED = 2, /* an option, wish, member or filter was refused; nothing was written */
    QUILLO_NO_COMPANY = 3 /* the company cannot be opened */
} quillo_status;

/* Hears each failure that a report shows, on the thread that runs it, while quillo_run runs. Must not throw, nor call
 * the session. The text is valid during the call. */
typedef void (*quillo_messages)(void* caller, const char* text);

/*
 * Opens a session on a company file. Always gives a session, so that quillo_last_error can tell what failed, and it
 * must be closed; NULL only without memory.
 *
 * options: NULL, or a list "name=value" that ends in NULL: language (a code, a file of texts), locale ("fr_CA"),
 * session-date ("2025-12-31"). What is left out comes from the company, the date from the clock.
 * messages: NULL hears nothing. caller: given to it as it is.
 */
quillo_status quillo_open(quillo_session** session, const char* company, const char* const* options,
                          quillo_messages messages, void* caller);

/*
 * Runs the report of a factory member ("CustList") to a PDF file, which appears whole or not at all. Each run reads the
 * company anew.
 *
 * wishes: NULL, or a list "name=value" that ends in NULL: from, to (days, "2025-12-31"), foreign, where, order,
 * segments (ids joined by commas), no-segment. Any other name is a public property of the report ("InvoiceType=51").
 * foreign and no-segment take true or false.
 */
quillo_status quillo_run(quillo_session* session, const char* member, const char* const* wishes, const char* pdf);

/* The factory over the session, a quillo::clsReport*, for hosts in C++ of the same compiler and version of the library.
 * NULL in a session that did not open. It, and what it made, must be gone before the session is closed. */
void* quillo_clsReport(quillo_session* session);

/* Why the last quillo_open or quillo_run of the session did not end in QUILLO_DONE; else empty. Valid until the next
 * call with the session. Of NULL: that there is no session. */
const char* quillo_last_error(const quillo_session* session);

/* Frees the session; NULL does nothing. */
void quillo_close(quillo_session* session);

#if defined(__cplusplus)
}
#endif

#endif
