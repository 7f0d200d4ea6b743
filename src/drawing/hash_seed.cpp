// A part of programs alone: a library can't have it.
namespace {

// The toolkit reads the seed of its hashes when it is loaded, and says so if it does not like it.
// This runs before, as the executable format (ELF) provides for; not even the C library has been
// started, nor may a sanitizer have been, so it does with the list of the environment alone.
[[gnu::no_sanitize("address", "undefined")]] void takeSeedAway(int /*argc*/, char ** /*argv*/,
                                                               char **environment)
{
    static constexpr char seed[] = "QT_HASH_SEED=";
    char **kept = environment;
    for (char **entry = environment; *entry; ++entry) {
        int i = 0;
        while (seed[i] && (*entry)[i] == seed[i])
            ++i;
        if (seed[i])
            *kept++ = *entry;
    }
    *kept = nullptr;
}

using BeforeLibraries = void (*)(int, char **, char **);
[[gnu::section(".preinit_array"), gnu::used]] const BeforeLibraries seedTaker = takeSeedAway;

} // namespace
