#pragma once

#include <cstddef>
#include <cstdint>

#include <QByteArray>

// What libFuzzer and `replay_corpus.cpp` call, by the names that libFuzzer gives it.

// Once, ahead of the first input: no display, the pinned fonts and the resolution of all drawings.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

// One input, of any bytes. Ends the process if the program breaks a promise. Always gives 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

// The input as the program reads one: a copy of exactly its size, so that the sanitizers see who
// reads on.
QByteArray inputText(const std::uint8_t *data, std::size_t size);

// Ends the process, with the promise as the last word, unless it holds.
void require(bool holds, const char *promise);
