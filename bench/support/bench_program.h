// The benchmarks of the whole program run it from a program directory of
// delivered files, their first argument.
#pragma once

#include <cstdio>
#include <string>

#include "platform/runtime/runtime.h"

// Makes the directory the application path; false, after the usage, without it.
inline bool UseProgramDirectory(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s PROGRAM_DIR [OPTIONS]\n", argv[0]);
        return false;
    }
    platform::SetAppPath(std::string(argv[1]));
    return true;
}
