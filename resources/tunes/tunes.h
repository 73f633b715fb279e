// The program's tunes: the circus march that celebrates a high score and the
// sweet tune of the penguins' scene.
#pragma once

#include <vector>

#include "score.h"

namespace tunes {

Tune Circus();
Tune Sweetone();

inline std::vector<Tune> AllTunes() { return {Circus(), Sweetone()}; }

}  // namespace tunes
