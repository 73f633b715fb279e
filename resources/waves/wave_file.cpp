#include "wave_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>

namespace waves {

namespace {

void put16(std::string& out, std::uint32_t v) {
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>((v >> 8) & 0xFF);
}

void put32(std::string& out, std::uint32_t v) {
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

}  // namespace

bool writeWave(const std::string& path, const Samples& samples) {
    const std::uint32_t rate = static_cast<std::uint32_t>(kRate), dataBytes = 2 * samples.size();
    std::string bytes = "RIFF";
    put32(bytes, 36 + dataBytes);
    bytes += "WAVEfmt ";
    put32(bytes, 16);  // size of the format chunk
    put16(bytes, 1);   // PCM
    put16(bytes, 1);   // mono
    put32(bytes, rate);
    put32(bytes, rate * 2);  // bytes a second
    put16(bytes, 2);         // bytes a frame
    put16(bytes, 16);        // bits a sample
    bytes += "data";
    put32(bytes, dataBytes);
    for (double x : samples) {
        const long v = std::lround(std::clamp(x, -1.0, 1.0) * 32767.0);
        put16(bytes, static_cast<std::uint32_t>(static_cast<std::int16_t>(v)) & 0xFFFF);
    }
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file);
}

}  // namespace waves
