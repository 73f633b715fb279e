// Writes the program's two tunes as MIDI files: dovrin-maketunes [--print-lengths] [<directory>].
// The program plays each in a loop and keeps its length in milliseconds in a
// signed 16-bit count, so a tune that would last less than 20 s or more than
// 32.7 s, or that ends in a long silence, is refused and nothing is written.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "midi_file.h"
#include "tunes.h"

namespace {

constexpr long kShortestMs = 20000;
constexpr long kLongestMs = 32700;

struct Written {
    tunes::Tune tune;
    std::vector<std::uint8_t> bytes;
    long ms;
};

}  // namespace

int main(int argc, char** argv) {
    bool print = false;
    std::string directory;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--print-lengths") {
            print = true;
        } else if (directory.empty() && !arg.empty() && arg[0] != '-') {
            directory = arg;
        } else {
            directory.clear();
            print = false;
            break;
        }
    }
    if (!print && directory.empty()) {
        std::fprintf(stderr, "usage: %s [--print-lengths] [<directory>]\n", argv[0]);
        return 2;
    }

    std::vector<Written> all;
    bool refused = false;
    for (const tunes::Tune& tune : tunes::AllTunes()) {
        try {
            const tunes::Performance performance = tunes::Perform(tune);
            const long ms = tunes::LengthMs(tune, performance);
            const long bar = tune.meter.BarTicks();
            std::printf("%-13s %6ld ms  %ld bars of %d/%d, quarter = %g\n", tune.fileName.c_str(), ms,
                        performance.endTick / bar, tune.meter.beats, tune.meter.unit, tune.tempo[0].quarterBpm);
            if (ms < kShortestMs || ms > kLongestMs) {
                std::fprintf(stderr, "dovrin-maketunes: %s would last %ld ms; a tune lasts %ld to %ld ms\n",
                             tune.fileName.c_str(), ms, kShortestMs, kLongestMs);
                refused = true;
                continue;
            }
            if (performance.endTick - tunes::LastRelease(performance) > tunes::kTicksPerQuarter / 2) {
                std::fprintf(stderr, "dovrin-maketunes: %s ends in silence; its last notes should reach the end\n",
                             tune.fileName.c_str());
                refused = true;
                continue;
            }
            all.push_back({tune, tunes::MidiFile(tune, performance), ms});
        } catch (const std::exception& error) {
            std::fprintf(stderr, "dovrin-maketunes: %s: %s\n", tune.fileName.c_str(), error.what());
            refused = true;
        }
    }
    if (refused) return 1;
    if (directory.empty()) return 0;

    for (const Written& written : all) {
        const std::string path = directory + "/" + written.tune.fileName;
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(written.bytes.data()), static_cast<std::streamsize>(written.bytes.size()));
        file.close();
        if (!file) {
            std::fprintf(stderr, "dovrin-maketunes: cannot write %s\n", path.c_str());
            std::remove(path.c_str());
            return 1;
        }
    }
    return 0;
}
