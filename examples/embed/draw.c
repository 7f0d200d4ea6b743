/* Draws the graph on standard input: draw_c ENGINE FORMAT < graph.dot > drawing */
#include <orrlayout/orrlayout.h>

#include <stdio.h>
#include <stdlib.h>

/* All of a stream; null if memory runs out. */
static char *read_all(FILE *stream, size_t *size)
{
    size_t room = 65536;
    char *bytes = malloc(room);
    *size = 0;
    while (bytes) {
        const size_t count = fread(bytes + *size, 1, room - *size, stream);
        if (count == 0)
            break;
        *size += count;
        if (*size == room) {
            char *more = realloc(bytes, room *= 2);
            if (!more)
                free(bytes);
            bytes = more;
        }
    }
    return bytes;
}

int main(int argc, char **argv)
{
    orrlayout_options options = ORRLAYOUT_OPTIONS;
    char *dot;
    size_t dot_size;
    char *drawing;
    size_t size;
    char *message;
    orrlayout_status status;
    int is_written;

    if (argc != 3) {
        fputs("draw_c ENGINE FORMAT < graph.dot > drawing\n", stderr);
        return 2;
    }
    dot = read_all(stdin, &dot_size);
    if (!dot)
        return EXIT_FAILURE;
    options.engine = argv[1];
    options.format = argv[2];
    options.timeout_ms = 60000;

    status = orrlayout_draw(dot, dot_size, &options, &drawing, &size, &message);
    free(dot);
    if (status != ORRLAYOUT_OK) {
        fprintf(stderr, "%s\n", message ? message : orrlayout_status_text(status));
        orrlayout_free(message);
        return EXIT_FAILURE;
    }
    is_written = fwrite(drawing, 1, size, stdout) == size && fflush(stdout) == 0;
    orrlayout_free(drawing);
    return is_written ? EXIT_SUCCESS : EXIT_FAILURE;
}
