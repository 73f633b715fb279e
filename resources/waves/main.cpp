// dovrin-makewaves: synthesises the game's wave effects into a directory.
#include <filesystem>
#include <iostream>
#include <system_error>

#include "sounds.h"
#include "wave_file.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: dovrin-makewaves OUTPUT_DIRECTORY\n";
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    std::error_code error;
    std::filesystem::create_directories(dir, error);
    if (error) {
        std::cerr << "dovrin-makewaves: can't create " << dir << ": " << error.message() << '\n';
        return 1;
    }
    for (const waves::Effect& effect : waves::effects()) {
        const std::filesystem::path file = dir / effect.file;
        if (!waves::writeWave(file.string(), effect.make())) {
            std::cerr << "dovrin-makewaves: can't write " << file << '\n';
            return 1;
        }
    }
    return 0;
}
