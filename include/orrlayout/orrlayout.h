/* Finished drawings of graphs, from bytes to bytes. The drawings are those of the program
 * orrlayout.
 *
 * A call hands its input to a process of the library's own that draws, a worker, and waits. Nothing
 * of the toolkit that draws comes into the calling process: its environment, locale, handlers of
 * signals, standard streams, fonts and application objects stay as they are and change no drawing.
 * The first call starts a worker, which takes some 20 milliseconds; it then waits for further calls
 * until this process ends.
 *
 * Threads: every function may be called from any thread at any time. Calls run side by side, up to
 * as many as there are processors; further ones wait for their turn.
 *
 * fork: a child may call the library like its parent, and has workers of its own.
 * dlclose: ends the workers and leaves nothing behind. No call may be running then.
 * exit: ends the workers, also when the process is killed.
 *
 * Nothing is thrown. Functions that may fail return an orrlayout_status. */

#ifndef ORRLAYOUT_ORRLAYOUT_H
#define ORRLAYOUT_ORRLAYOUT_H

#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__)
#define ORRLAYOUT_API __attribute__((visibility("default")))
#else
#define ORRLAYOUT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What became of a call. The numbers never change; a later version may have more. */
typedef enum orrlayout_status {
    ORRLAYOUT_OK = 0,
    ORRLAYOUT_BAD_ARGUMENT = 1, /* a pointer is missing, or the options are of another version */
    ORRLAYOUT_UNKNOWN_ENGINE = 2, /* the graph needs an engine, and there is none of that name */
    ORRLAYOUT_UNKNOWN_FORMAT = 3,
    ORRLAYOUT_BAD_INPUT = 4, /* it is no graph; orrlayout_check says where */
    ORRLAYOUT_NO_DRAWING = 5, /* the engine can't lay the graph out */
    ORRLAYOUT_TOO_LARGE = 6, /* the input has more than 2147483647 bytes */
    ORRLAYOUT_OUT_OF_MEMORY = 7, /* here or in the worker */
    ORRLAYOUT_TIMED_OUT = 8,
    ORRLAYOUT_CRASHED = 9, /* the worker ended, or was ended, before its time */
    ORRLAYOUT_NOT_STARTED = 10 /* there is no worker: not installed, no fonts, no descriptors */
} orrlayout_status;

/* How to draw. Begin with ORRLAYOUT_OPTIONS, which sets the size and leaves the rest at its
 * default, so that a program keeps its meaning when later versions add fields. The texts are UTF-8,
 * are read during the call only, and stay the caller's. */
typedef struct orrlayout_options
{
    size_t size; /* sizeof(orrlayout_options), as the caller was compiled */
    const char *engine; /* by its name, in any case; null or empty is none, which is enough for an
                           input that brings its layout (xdot) */
    const char *format; /* by its name, in any case; null or empty is "svg" */
    const char *home; /* the folder that holds "conf", with the templates of VSDX; null or empty
                         is that of the installation that the library lies in */
    int32_t html_labels; /* not 0: all labels are HTML, whatever the input says */
    uint32_t timeout_ms; /* milliseconds that the call may take, the wait for its turn and the start
                            of a worker included; 0 is any time */
} orrlayout_options;

#define ORRLAYOUT_OPTIONS                                                                          \
    {                                                                                              \
        sizeof(orrlayout_options), 0, 0, 0, 0, 0                                                   \
    }

/* Draws one graph.
 *
 * dot, size: the graph as DOT. It needs no NUL at its end; null stands for no bytes.
 * options: null is all defaults.
 * drawing, drawing_size: get the whole drawing and its number of bytes, with a NUL behind them that
 *   is not counted; null and 0 if it fails. Neither pointer may be null.
 * message: gets null for success, otherwise a line for a user in UTF-8, without a line feed and
 *   without control characters; or null where memory ran out. The pointer may be null.
 *
 * What drawing and message get is the caller's, to be given to orrlayout_free. */
ORRLAYOUT_API orrlayout_status orrlayout_draw(const char *dot, size_t size,
                                              const orrlayout_options *options, char **drawing,
                                              size_t *drawing_size, char **message);

/* Frees a drawing or a message. Null is fine. */
ORRLAYOUT_API void orrlayout_free(void *memory);

typedef enum orrlayout_severity {
    ORRLAYOUT_WARNING = 0, /* the drawing is made, and something about it is hardly meant */
    ORRLAYOUT_ERROR = 1 /* there is no drawing, or it is not what the text says */
} orrlayout_severity;

/* One thing that is wrong with an input. Later versions may add fields behind the last one. Texts
 * are UTF-8, live as long as the list, and are never null. They may hold any character of the
 * input, also a control character. */
typedef struct orrlayout_finding
{
    orrlayout_severity severity;
    const char *rule; /* an id: words of small letters with dashes between */
    const char *sentence; /* what is wrong, without a full stop */
    const char *suggestion; /* what to do; may be empty */
    /* The place. Lines and columns count from 1, columns in characters (Unicode code points); the
     * end is behind the last one. 0 for none: the finding is about the text as a whole. */
    size_t line;
    size_t column;
    size_t end_line;
    size_t end_column;
    size_t more; /* stands for so many more findings of its rule; 0 for a finding of its own */
} orrlayout_finding;

/* The findings of one text. */
typedef struct orrlayout_findings orrlayout_findings;

/* Looks for what is wrong with an input, as `orr check` does, and draws nothing.
 *
 * dot, size, message: as for orrlayout_draw.
 * options: the engine that is to draw the text and the time count; the rest is not looked at.
 * findings: gets the list, which is empty where all is well; it is the caller's, to be given to
 *   orrlayout_findings_free. Null if it fails. The pointer may not be null.
 *
 * A text that is no graph is a finding and no failure. */
ORRLAYOUT_API orrlayout_status orrlayout_check(const char *dot, size_t size,
                                               const orrlayout_options *options,
                                               orrlayout_findings **findings, char **message);

/* How many there are; 0 for null. */
ORRLAYOUT_API size_t orrlayout_findings_count(const orrlayout_findings *findings);

/* The finding at a position, from 0, in the order of the places in the text. Lives as long as the
 * list. Null where there is none. */
ORRLAYOUT_API const orrlayout_finding *orrlayout_findings_at(const orrlayout_findings *findings,
                                                             size_t index);

/* Frees the list and all its texts. Null is fine. */
ORRLAYOUT_API void orrlayout_findings_free(orrlayout_findings *findings);

/* The name of an engine, or of a format, at a position from 0 on; null behind the last one. Never
 * freed. */
ORRLAYOUT_API const char *orrlayout_engine_name(size_t index);
ORRLAYOUT_API const char *orrlayout_format_name(size_t index);

/* What a status means, in a few words; also for a number that is none. Never null, never freed. */
ORRLAYOUT_API const char *orrlayout_status_text(orrlayout_status status);

/* The version of the library that runs, such as "1.0". Never freed. */
ORRLAYOUT_API const char *orrlayout_version(void);

#ifdef __cplusplus
}
#endif

#endif
