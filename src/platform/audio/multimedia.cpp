#include "platform/audio/multimedia.h"

#include <fstream>
#include <iterator>
#include <vector>

#include "platform/audio/audio_device.h"
#include "platform/audio/wave_image.h"

namespace platform {

using audio::AudioDevice;

int sndPlaySoundA(const void* data, std::uint32_t flags) {
    const auto* image = static_cast<const std::uint8_t*>(data);
    if (!(flags & SND_MEMORY) || image == nullptr) return 0;
    const std::size_t size = audio::WaveImageSize(image);
    AudioDevice& device = AudioDevice::Instance();
    if (size == 0 || !device.Open()) return 0;
    auto samples = audio::DecodeWave(image, size, audio::kDeviceRate);
    if (!samples) return 0;
    device.PlayEffectAndWait(std::move(*samples));
    return 1;
}

int PlaySoundA(const char* name, const void*, std::uint32_t flags) {
    AudioDevice& device = AudioDevice::Instance();
    if (flags & SND_PURGE) {
        device.StopFileSound();
        return 1;
    }
    if (name == nullptr || *name == '\0') return 0;
    std::ifstream file(name, std::ios::binary);
    if (!file) return 0;
    const std::vector<std::uint8_t> image{std::istreambuf_iterator<char>(file), {}};
    if (!device.Open()) return 0;
    auto samples = audio::DecodeWave(image.data(), image.size(), audio::kDeviceRate);
    if (!samples) return 0;
    device.PlayFileSound(std::move(*samples), (flags & SND_ASYNC) && (flags & SND_LOOP));
    if (!(flags & SND_ASYNC)) device.WaitForFileSound();
    return 1;
}

}  // namespace platform
