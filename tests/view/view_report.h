/*
 * Prints what a view reaches, in the words of the tool's own report.
 */
#ifndef MORVANE_TESTS_VIEW_REPORT_H
#define MORVANE_TESTS_VIEW_REPORT_H

#include <morvane/package_view.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Returns MORVANE_VIEW_OK, or the status of the first record that is not reached. */
int print_view_report(FILE* out, const struct morvane_view* view);

#ifdef __cplusplus
}
#endif

#endif
