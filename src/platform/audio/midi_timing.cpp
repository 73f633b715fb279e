#include "platform/audio/midi_timing.h"

#include <algorithm>
#include <cstring>

namespace platform::audio {

namespace {

constexpr std::uint32_t kDefaultTempo = 500000;  // 120 quarter notes a minute

class Reader {
public:
    Reader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    bool AtEnd() const { return at_ >= size_; }
    bool Has(std::size_t count) const { return size_ - at_ >= count; }
    std::uint32_t Big(int bytes) {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i) value = (value << 8) | data_[at_++];
        return value;
    }
    std::uint8_t Byte() { return data_[at_++]; }
    void Skip(std::size_t count) { at_ += count; }
    // The next count bytes as a reader of their own, skipped here.
    Reader Take(std::size_t count) {
        Reader part(data_ + at_, count);
        at_ += count;
        return part;
    }
    // A variable-length quantity of at most four bytes; false when it runs
    // past the end or over four bytes.
    bool Quantity(std::uint32_t& value) {
        value = 0;
        for (int i = 0; i < 4; ++i) {
            if (AtEnd()) return false;
            const std::uint8_t byte = Byte();
            value = (value << 7) | (byte & 0x7f);
            if (!(byte & 0x80)) return true;
        }
        return false;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

// The data bytes that follow a channel message's status byte.
int ChannelDataBytes(std::uint8_t status) {
    const std::uint8_t kind = status & 0xf0;
    return kind == 0xc0 || kind == 0xd0 ? 1 : 2;
}

}  // namespace

std::optional<MidiTiming> MidiTiming::FromBytes(const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() < 14 || std::memcmp(bytes.data(), "MThd", 4) != 0) return std::nullopt;
    Reader header(bytes.data() + 4, bytes.size() - 4);
    const std::uint32_t headerLength = header.Big(4);
    const std::uint32_t format = header.Big(2);
    const std::uint32_t tracks = header.Big(2);
    const std::uint32_t division = header.Big(2);
    if (headerLength < 6 || format > 1 || tracks == 0 || division == 0 || (division & 0x8000) ||
        bytes.size() < 8 + headerLength)
        return std::nullopt;

    MidiTiming timing;
    timing.division_ = static_cast<int>(division);
    Reader file(bytes.data() + 8 + headerLength, bytes.size() - 8 - headerLength);
    for (std::uint32_t track = 0; track < tracks; ++track) {
        if (!file.Has(8)) return std::nullopt;
        const std::uint32_t id = file.Big(4);
        const std::uint32_t length = file.Big(4);
        if (!file.Has(length)) return std::nullopt;
        if (id != 0x4d54726b) {  // not "MTrk": a chunk of some other kind
            file.Skip(length);
            continue;
        }
        Reader events = file.Take(length);
        std::int64_t tick = 0;
        std::uint8_t running = 0;
        bool ended = false;
        while (!events.AtEnd() && !ended) {
            std::uint32_t delta = 0;
            if (!events.Quantity(delta) || events.AtEnd()) return std::nullopt;
            tick += delta;
            std::uint8_t status = events.Byte();
            if (status == 0xff) {
                if (!events.Has(1)) return std::nullopt;
                const std::uint8_t type = events.Byte();
                std::uint32_t size = 0;
                if (!events.Quantity(size) || !events.Has(size)) return std::nullopt;
                if (type == 0x51 && size == 3)
                    timing.tempi_.push_back({tick, events.Big(3)});
                else
                    events.Skip(size);
                ended = type == 0x2f;
            } else if (status == 0xf0 || status == 0xf7) {
                std::uint32_t size = 0;
                if (!events.Quantity(size) || !events.Has(size)) return std::nullopt;
                events.Skip(size);
            } else {
                int data = 0;
                if (status & 0x80) {
                    running = status;
                    data = ChannelDataBytes(status);
                } else {
                    if (!running) return std::nullopt;  // a data byte with no status before it
                    data = ChannelDataBytes(running) - 1;
                }
                if (!events.Has(static_cast<std::size_t>(data))) return std::nullopt;
                events.Skip(static_cast<std::size_t>(data));
            }
        }
        timing.lastTick_ = std::max(timing.lastTick_, tick);
    }
    std::stable_sort(timing.tempi_.begin(), timing.tempi_.end(),
                     [](const TempoChange& a, const TempoChange& b) { return a.tick < b.tick; });
    if (timing.tempi_.empty() || timing.tempi_.front().tick > 0)
        timing.tempi_.insert(timing.tempi_.begin(), {0, kDefaultTempo});
    return timing;
}

double MidiTiming::TickToMilliseconds(std::int64_t tick) const {
    double milliseconds = 0;
    for (std::size_t i = 0; i < tempi_.size() && tempi_[i].tick < tick; ++i) {
        const std::int64_t end = i + 1 < tempi_.size() ? std::min(tempi_[i + 1].tick, tick) : tick;
        milliseconds += static_cast<double>(end - tempi_[i].tick) * tempi_[i].microsecondsPerQuarter /
                        (1000.0 * division_);
    }
    return milliseconds;
}

}  // namespace platform::audio
