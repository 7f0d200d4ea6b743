// Part of every program of a sanitizer build.

extern "C" const char *__asan_default_options();

// The sanitizer guesses where the thread-local data of a library lie that is loaded at run time, a
// plugin for a picture format for one. Where the heap happens to put them at a certain offset in a
// page the guess is wrong, and the search for leaks ends in a crash of its own.
extern "C" const char *__asan_default_options()
{
    return "intercept_tls_get_addr=0";
}

extern "C" const char *__lsan_default_suppressions();

// What reads foreign DOT texts frees its dictionaries but not what they are made of, if a text is
// broken: some 24 bytes for each.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libcdt.so\n";
}
