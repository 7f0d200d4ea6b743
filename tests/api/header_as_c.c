/* The header in C11 under strict warnings: compiled, not run. */
#include <orrlayout/orrlayout.h>

#include <orrlayout/orrlayout.h> /* twice does not harm */

int uses_all_of_it(void);

int uses_all_of_it(void)
{
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    orrlayout_findings *findings = NULL;
    char *drawing = NULL;
    char *message = NULL;
    size_t size = 0;
    orrlayout_status status = orrlayout_draw("", 0, &options, &drawing, &size, &message);
    orrlayout_free(drawing);
    orrlayout_free(message);
    if (status == ORRLAYOUT_OK)
        status = orrlayout_check("", 0, &options, &findings, NULL);
    orrlayout_findings_free(findings);
    return orrlayout_status_text(status) == orrlayout_version()
        || orrlayout_engine_name(0) == orrlayout_format_name(0)
        || orrlayout_findings_at(findings, orrlayout_findings_count(findings)) != NULL;
}
