#include "midi_file.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace tunes {
namespace {

struct Event {
    long tick;
    int order;  // at one tick: set-up first, then releases, then new notes
    std::vector<std::uint8_t> bytes;
};

void PutNumber(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

void PutVariable(std::vector<std::uint8_t>& out, std::uint32_t value) {
    std::uint8_t groups[5];
    int count = 0;
    do {
        groups[count++] = value & 0x7F;
        value >>= 7;
    } while (value != 0);
    while (count > 1) out.push_back(groups[--count] | 0x80);
    out.push_back(groups[0]);
}

Event Meta(long tick, std::uint8_t type, const std::vector<std::uint8_t>& data) {
    Event event{tick, 0, {0xFF, type}};
    PutVariable(event.bytes, static_cast<std::uint32_t>(data.size()));
    event.bytes.insert(event.bytes.end(), data.begin(), data.end());
    return event;
}

Event Text(std::uint8_t type, const std::string& text) {
    return Meta(0, type, std::vector<std::uint8_t>(text.begin(), text.end()));
}

std::uint32_t MicrosecondsPerQuarter(double bpm) { return static_cast<std::uint32_t>(std::lround(60e6 / bpm)); }

void PutTrack(std::vector<std::uint8_t>& out, std::vector<Event> events, long end) {
    std::stable_sort(events.begin(), events.end(),
                     [](const Event& a, const Event& b) { return a.tick != b.tick ? a.tick < b.tick : a.order < b.order; });
    events.push_back(Meta(end, 0x2F, {}));
    std::vector<std::uint8_t> body;
    long tick = 0;
    for (const Event& event : events) {
        PutVariable(body, static_cast<std::uint32_t>(event.tick - tick));
        body.insert(body.end(), event.bytes.begin(), event.bytes.end());
        tick = event.tick;
    }
    out.insert(out.end(), {'M', 'T', 'r', 'k'});
    PutNumber(out, static_cast<std::uint32_t>(body.size()), 4);
    out.insert(out.end(), body.begin(), body.end());
}

}  // namespace

long LastRelease(const Performance& performance) {
    long last = 0;
    for (const auto& notes : performance.voices)
        for (const Note& note : notes) last = std::max(last, note.start + note.length);
    return last;
}

long LengthMs(const Tune& tune, const Performance& performance) {
    // Microseconds times ticks, summed piece by piece between tempo changes.
    long long total = 0;
    for (size_t i = 0; i < tune.tempo.size(); ++i) {
        const long from = tune.tempo[i].bar * tune.meter.BarTicks();
        const long to = i + 1 < tune.tempo.size() ? tune.tempo[i + 1].bar * tune.meter.BarTicks() : performance.endTick;
        total += static_cast<long long>(std::min(to, performance.endTick) - from) *
                 MicrosecondsPerQuarter(tune.tempo[i].quarterBpm);
    }
    return static_cast<long>((total / kTicksPerQuarter + 500) / 1000);
}

std::vector<std::uint8_t> MidiFile(const Tune& tune, const Performance& performance) {
    if (tune.tempo.empty() || tune.tempo[0].bar != 0) throw std::runtime_error("the tempo must be set at bar 1");
    const long end = performance.endTick;
    std::vector<std::uint8_t> out = {'M', 'T', 'h', 'd'};
    PutNumber(out, 6, 4);
    PutNumber(out, 1, 2);  // format 1
    PutNumber(out, static_cast<std::uint32_t>(tune.voices.size() + 1), 2);
    PutNumber(out, kTicksPerQuarter, 2);

    std::vector<Event> conductor = {Text(0x03, tune.title)};
    int unitPower = 0;
    while ((1 << unitPower) < tune.meter.unit) ++unitPower;
    const int clocksPerBeat = 96 / tune.meter.unit;
    conductor.push_back(Meta(0, 0x58, {static_cast<std::uint8_t>(tune.meter.beats), static_cast<std::uint8_t>(unitPower),
                                       static_cast<std::uint8_t>(clocksPerBeat), 8}));
    conductor.push_back(Meta(0, 0x59, {static_cast<std::uint8_t>(static_cast<std::int8_t>(tune.keySharps)), 0}));
    for (const TempoMark& mark : tune.tempo) {
        std::vector<std::uint8_t> data;
        PutNumber(data, MicrosecondsPerQuarter(mark.quarterBpm), 3);
        conductor.push_back(Meta(mark.bar * tune.meter.BarTicks(), 0x51, data));
    }
    PutTrack(out, conductor, end);

    for (size_t v = 0; v < tune.voices.size(); ++v) {
        const Voice& voice = tune.voices[v];
        const auto channel = static_cast<std::uint8_t>(voice.channel);
        std::vector<Event> events = {Text(0x03, voice.name)};
        const auto control = [&](int number, int value) {
            events.push_back({0, 0, {static_cast<std::uint8_t>(0xB0 | channel), static_cast<std::uint8_t>(number),
                                     static_cast<std::uint8_t>(std::clamp(value, 0, 127))}});
        };
        events.push_back({0, 0, {static_cast<std::uint8_t>(0xC0 | channel), static_cast<std::uint8_t>(voice.program)}});
        control(7, voice.volume);
        control(10, voice.pan);
        control(91, voice.reverb);
        control(93, 0);
        for (const Note& note : performance.voices[v]) {
            const auto pitch = static_cast<std::uint8_t>(note.pitch);
            events.push_back({note.start, 2,
                              {static_cast<std::uint8_t>(0x90 | channel), pitch, static_cast<std::uint8_t>(note.velocity)}});
            events.push_back({note.start + note.length, 1, {static_cast<std::uint8_t>(0x80 | channel), pitch, 64}});
        }
        PutTrack(out, events, end);
    }
    return out;
}

}  // namespace tunes
