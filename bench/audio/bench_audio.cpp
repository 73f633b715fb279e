// Times the sound through the platform's own calls, as the program makes them:
//  - an effect's latency: from the call of sndPlaySoundA until the device's
//    callback hands the effect's first audible sample over, the first time
//    (which also opens the device) and the times after, alone and while a
//    tune plays;
//  - the open of a tune the first time (the sound font is loaded) and later
//    reopens (close, then open);
//  - the processor time of the whole process while a tune plays, and while
//    the device is open with nothing to play;
//  - the resident size before the first open of a tune and while it plays.
// Run it with SDL_AUDIODRIVER=dummy (or disk with SDL_DISKAUDIOFILE), whose
// callbacks come at about the pace of a real device; a little ahead of it, by
// as much as the tune's position against the wall clock shows.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/audio/audio_device.h"
#include "platform/audio/multimedia.h"

namespace {

using Clock = std::chrono::steady_clock;

double Ms(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

double CpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// VmRSS in kilobytes, 0 when it can't be read.
long ResidentKb() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0) return std::strtol(line.c_str() + 6, nullptr, 10);
    return 0;
}

struct Summary {
    double median, worst;
};

Summary Summarise(std::vector<double> ms) {
    std::sort(ms.begin(), ms.end());
    return {ms[ms.size() / 2], ms.back()};
}

// One effect: the milliseconds from the call to its onset; negative when it
// was never heard (no device, or an image the device doesn't play).
double EffectLatency(const std::vector<std::uint8_t>& image) {
    auto& device = platform::audio::AudioDevice::Instance();
    const auto call = Clock::now();
    if (platform::sndPlaySoundA(image.data(), platform::SND_MEMORY) == 0) return -1;
    const auto onset = device.LastEffectOnset();
    return onset < call ? -1 : Ms(onset - call);
}

// Calls one after another would meet the callback at the same point of its
// period each time; a pause of a random length before each call spreads them
// over it.
bool EffectLatencies(const std::vector<std::uint8_t>& image, int calls, std::vector<double>& ms) {
    static std::mt19937 random(4711);
    std::uniform_int_distribution<int> pause(0, 20000);
    for (int i = 0; i < calls; ++i) {
        std::this_thread::sleep_for(std::chrono::microseconds(pause(random)));
        const double latency = EffectLatency(image);
        if (latency < 0) return false;
        ms.push_back(latency);
    }
    return true;
}

std::uint32_t Send(const std::string& command, std::string* answer = nullptr) {
    char buffer[64] = {};
    const std::uint32_t error = platform::mciSendStringA(command.c_str(), buffer, sizeof buffer, nullptr);
    if (answer != nullptr) *answer = buffer;
    return error;
}

double TimedOpen(const std::string& open, std::uint32_t& error) {
    const auto start = Clock::now();
    error = Send(open);
    return Ms(Clock::now() - start);
}

// The share of one core the process used over the given wall time.
double CoreShare(double seconds) {
    const double cpu = CpuSeconds();
    const auto start = Clock::now();
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    return 100 * (CpuSeconds() - cpu) / std::chrono::duration<double>(Clock::now() - start).count();
}

int Fail(const std::string& what) {
    std::fprintf(stderr, "bench_audio: %s\n", what.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    // --tune-first opens the tune before any effect, so that its first open
    // also opens the device, as when the music is on and the first thing heard
    // is a tune.
    std::vector<std::string> args;
    bool tuneFirst = false;
    for (int i = 1; i < argc; ++i) {
        if (std::string(argv[i]) == "--tune-first")
            tuneFirst = true;
        else
            args.emplace_back(argv[i]);
    }
    const std::string waveDir = args.size() > 0 ? args[0] : DOVRIN_WAVE_DIR;
    const std::string tune = args.size() > 1 ? args[1] : DOVRIN_TUNE;
    const double playSeconds = args.size() > 2 ? std::atof(args[2].c_str()) : 10.0;
    constexpr int kCalls = 20;
    constexpr int kReopens = 10;

    const char* driver = std::getenv("SDL_AUDIODRIVER");
    std::printf("audio driver: %s%s\n", driver ? driver : "(SDL's choice)", tuneFirst ? ", tune first" : "");
    std::ifstream file(waveDir + "/116.wav", std::ios::binary);
    if (!file) return Fail("no " + waveDir + "/116.wav");
    const std::vector<std::uint8_t> image{std::istreambuf_iterator<char>(file), {}};
    const long startKb = ResidentKb();

    if (!tuneFirst) {
        const double first = EffectLatency(image);
        if (first < 0) return Fail("the first effect was not heard: no audio device?");
        std::vector<double> later;
        if (!EffectLatencies(image, kCalls, later)) return Fail("a later effect was not heard");
        const Summary summary = Summarise(later);
        std::printf("effect latency, first call (opens the device):   %7.2f ms\n", first);
        std::printf("effect latency, %d later calls:                  median %6.2f ms   max %6.2f ms\n", kCalls,
                    summary.median, summary.worst);
        const double idleShare = CoreShare(std::min(playSeconds, 3.0));
        std::printf("processor, device open and silent:               %7.2f %% of one core\n", idleShare);
    }

    const long beforeKb = ResidentKb();
    const std::string open = "Open \"" + tune + "\" Alias MIDIfile";
    std::uint32_t error = 0;
    const double firstOpen = TimedOpen(open, error);
    if (error != 0) return Fail("the first open answered " + std::to_string(error) + " for " + tune);
    std::string length;
    Send("Status MIDIfile Length", &length);
    if (Send("Play MIDIfile") != 0) return Fail("play failed");
    const std::string what = tuneFirst ? "(sound font + device):" : "(sound font loaded):";
    std::printf("first open of the tune %-26s%7.2f ms   (tune %s ms long)\n", what.c_str(), firstOpen,
                length.c_str());

    // The tune's position against the wall clock shows how fast the driver
    // really asks for sound: the dummy and disk drivers run a little ahead.
    std::string position;
    Send("Status MIDIfile Position", &position);
    const double startPosition = std::atof(position.c_str());
    const auto playStart = Clock::now();
    const double playShare = CoreShare(playSeconds);
    Send("Status MIDIfile Position", &position);
    const double played = std::atof(position.c_str()) - startPosition;
    const long playingKb = ResidentKb();
    std::printf("processor, tune playing for %.0f s:                %7.2f %% of one core\n", playSeconds,
                playShare);
    std::printf("tune played meanwhile:                           %7.0f ms in %.0f ms of wall time\n", played,
                Ms(Clock::now() - playStart));

    if (tuneFirst) {
        const double first = EffectLatency(image);
        if (first < 0) return Fail("the first effect was not heard");
        std::printf("effect latency, first call over the tune:        %7.2f ms\n", first);
    }
    std::vector<double> duringTune;
    if (!EffectLatencies(image, kCalls, duringTune)) return Fail("an effect over the tune was not heard");
    const Summary tuneSummary = Summarise(duringTune);
    std::printf("effect latency, %d calls while the tune plays:   median %6.2f ms   max %6.2f ms\n", kCalls,
                tuneSummary.median, tuneSummary.worst);

    std::vector<double> reopens;
    for (int i = 0; i < kReopens; ++i) {
        const auto start = Clock::now();
        error = Send("Close MIDIfile");
        if (error == 0) error = Send(open);
        reopens.push_back(Ms(Clock::now() - start));
        if (error != 0) return Fail("a reopen answered " + std::to_string(error));
    }
    Send("Close MIDIfile");
    const Summary reopenSummary = Summarise(reopens);
    std::printf("reopen of the tune (close + open), %d times:     median %6.2f ms   max %6.2f ms\n", kReopens,
                reopenSummary.median, reopenSummary.worst);

    std::printf("resident size at start:                          %7.1f MB\n", startKb / 1024.0);
    std::printf("resident size before the first open of a tune:   %7.1f MB\n", beforeKb / 1024.0);
    std::printf("resident size, tune playing:                     %7.1f MB   (%+.1f MB)\n", playingKb / 1024.0,
                (playingKb - beforeKb) / 1024.0);
    return 0;
}
