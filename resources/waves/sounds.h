// The game's wave effects, each made by one function of sounds.cpp.
#pragma once

#include <vector>

#include "synth.h"

namespace waves {

struct Effect {
    const char* file;  // the name it is written under
    Samples (*make)();
};

// Every effect the game ships, finished and ready to write.
const std::vector<Effect>& effects();

}  // namespace waves
