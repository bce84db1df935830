#pragma once

#include <cstddef>
#include <cstdint>

// What every fuzz target defines. A fuzzing engine links against these names, and so does
// replay_main.cpp, which runs the target without one. An input that is handled well returns 0;
// anything else ends the process.

extern "C" {
int LLVMFuzzerInitialize(int *argc, char ***argv);
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
}
