// What the audio device played, read back from the file that SDL's disk
// driver writes: 32-bit float stereo frames at the device's rate. Each test
// process writes a file of its own; the driver is chosen before the device
// opens.
#pragma once

#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <QTest>

class DiskOutput {
public:
    static DiskOutput& Instance() {
        static DiskOutput output;
        return output;
    }
    ~DiskOutput() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    // Frames written so far.
    std::size_t Frames() const {
        std::error_code error;
        const auto size = std::filesystem::file_size(path_, error);
        return error ? 0 : static_cast<std::size_t>(size / kFrameBytes);
    }

    // The left channel from a frame on, once at least count frames follow
    // it; the device writes on all the time, silence when nothing plays.
    std::vector<float> From(std::size_t frame, std::size_t count) const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Frames() >= frame + count; }, 20000));
        std::ifstream in(path_, std::ios::binary);
        in.seekg(static_cast<std::streamoff>(frame * kFrameBytes));
        std::vector<float> stereo(2 * count);
        in.read(reinterpret_cast<char*>(stereo.data()), static_cast<std::streamsize>(stereo.size() * 4));
        std::vector<float> left(count);
        for (std::size_t i = 0; i < count; ++i) left[i] = stereo[2 * i];
        return left;
    }

    static constexpr std::size_t kFrameBytes = 2 * sizeof(float);

private:
    DiskOutput()
        : path_((std::filesystem::temp_directory_path() /
                 ("dovrin-audio-" + std::to_string(::getpid()) + ".raw"))
                    .string()) {
        ::setenv("SDL_AUDIODRIVER", "disk", 1);
        ::setenv("SDL_DISKAUDIOFILE", path_.c_str(), 1);
        // 1 ms for each buffer of 5.8 ms: the recording runs ahead of the
        // clock, and a tune of half a minute ends in a few seconds.
        ::setenv("SDL_DISKAUDIODELAY", "1", 1);
    }
    std::string path_;
};

// The frames of a recording that aren't silence.
inline std::vector<std::size_t> AudibleFrames(const std::vector<float>& samples) {
    std::vector<std::size_t> audible;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (std::fabs(samples[i]) > 1e-4f) audible.push_back(i);
    return audible;
}
