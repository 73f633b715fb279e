// The program's resources that are data rather than pictures: the wave
// effects, type "WAVE", numbered 101 to 118.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// The bytes of a resource by number and type; empty when the program holds
// no such resource.
std::vector<std::uint8_t> LoadResData(int id, const std::string& type);

}  // namespace platform
