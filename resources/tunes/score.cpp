// The notation, one token after another, separated by blanks:
//
//   c5/8    a pitch (a-g, then # or b as often as needed, then the octave;
//           c4 is middle C) and its length: /1 /2 /4 /8 /16 /32, dots after
//           the number lengthen it by half as much again. Without a length a
//           token keeps the one before.
//   r/4     a rest.
//   1 3 5 7 the root, third, fifth or seventh of the chord sounding at that
//           moment, placed at the foot of the voice's register.
//   x       the whole chord, voiced in the voice's register as close to the
//           chord before as it goes.
//   bd sn   a drum by name (see kDrums).
//   a+b     several of the above at once: c4+e4+g4/2, bd+cr/8.
//   ^       before a token: accented.   '  after it: short.   _ after it:
//           held for its whole length.  ~ after it: tied into the next token,
//           which must sound the same pitches.
//   v72     the velocity from here on.  o-1, o0, o1 shift written pitches
//           by octaves from here on.
//   |       a bar line; the reader checks that the bar is full.
//   ( ... )*3  the notes between played three times.
//
// The chord line uses the same bar lines and repeats, with chord symbols:
// F, Gm, D7, Gm7, Bbmaj7, Bdim, C6, and an optional length (D7/4). Chords
// without a length share what their bar leaves over.

#include "score.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>
#include <stdexcept>

namespace tunes {
namespace {

const std::map<std::string, int> kDrums = {
    {"bd", 36},  {"rim", 37}, {"sn", 38},  {"clap", 39}, {"hh", 42},  {"ph", 44},   {"oh", 46},
    {"cr", 49},  {"rd", 51},  {"tam", 54}, {"cb", 56},   {"cr2", 57}, {"cla", 75},  {"wbh", 76},
    {"wbl", 77}, {"mtri", 80}, {"tri", 81}, {"shk", 82},  {"mar", 70},
};

std::vector<std::string> Split(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> tokens;
    for (std::string token; in >> token;) tokens.push_back(token);
    return tokens;
}

// Plays out every ( ... )*n, innermost first, so the readers see a flat line.
std::vector<std::string> Unroll(const std::vector<std::string>& tokens, size_t& at, bool nested) {
    std::vector<std::string> out;
    while (at < tokens.size()) {
        const std::string& token = tokens[at++];
        if (token == "(") {
            const std::vector<std::string> inner = Unroll(tokens, at, true);
            const std::string& close = tokens[at - 1];
            const int times = close.size() > 2 ? std::atoi(close.c_str() + 2) : 1;
            if (times < 1) throw std::runtime_error("a repeat needs )*n with n of 1 or more, not '" + close + "'");
            for (int i = 0; i < times; ++i) out.insert(out.end(), inner.begin(), inner.end());
        } else if (token.rfind(")", 0) == 0) {
            if (!nested || (token != ")" && token.rfind(")*", 0) != 0))
                throw std::runtime_error("a ')' without its '(' or with a strange count: '" + token + "'");
            return out;
        } else {
            out.push_back(token);
        }
    }
    if (nested) throw std::runtime_error("a '(' is never closed");
    return out;
}

std::vector<std::string> Tokens(const std::string& text) {
    size_t at = 0;
    return Unroll(Split(text), at, false);
}

// The length of "/8.", read from text[at]; advances at past it.
long ReadLength(const std::string& text, size_t& at) {
    size_t end = at;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end]))) ++end;
    const int divisor = std::atoi(text.substr(at, end - at).c_str());
    if (divisor <= 0 || divisor > 32 || (divisor & (divisor - 1)) != 0)
        throw std::runtime_error("a length must be /1, /2, /4, /8, /16 or /32");
    long length = kTicksPerQuarter * 4L / divisor;
    long extra = length;
    while (end < text.size() && text[end] == '.') {
        extra /= 2;
        length += extra;
        ++end;
    }
    at = end;
    return length;
}

int PitchClass(char letter) {
    static const int kClasses[] = {9, 11, 0, 2, 4, 5, 7};  // a b c d e f g
    return kClasses[letter - 'a'];
}

// "c#5", "bb1": a written pitch, or -1 when the text is not one.
int ReadPitch(const std::string& text) {
    if (text.size() < 2 || text[0] < 'a' || text[0] > 'g') return -1;
    int pitch = PitchClass(text[0]);
    size_t at = 1;
    for (; at < text.size() && (text[at] == '#' || text[at] == 'b'); ++at) pitch += text[at] == '#' ? 1 : -1;
    if (at == text.size()) return -1;
    size_t digits = at;
    while (digits < text.size() && std::isdigit(static_cast<unsigned char>(text[digits]))) ++digits;
    if (digits != text.size() || digits == at) return -1;
    pitch += (std::atoi(text.c_str() + at) + 1) * 12;
    return pitch >= 0 && pitch <= 127 ? pitch : -1;
}

struct Chord {
    long start = 0;
    std::vector<int> tones;  // pitch classes: root, third, fifth, then the seventh or sixth if any
};

Chord ReadChordSymbol(const std::string& symbol) {
    if (symbol.empty() || symbol[0] < 'A' || symbol[0] > 'G') throw std::runtime_error("not a chord: '" + symbol + "'");
    int root = PitchClass(static_cast<char>(symbol[0] - 'A' + 'a'));
    size_t at = 1;
    for (; at < symbol.size() && (symbol[at] == '#' || symbol[at] == 'b'); ++at) root += symbol[at] == '#' ? 1 : -1;
    static const std::map<std::string, std::vector<int>> kQualities = {
        {"", {0, 4, 7}},        {"m", {0, 3, 7}},        {"7", {0, 4, 7, 10}},   {"m7", {0, 3, 7, 10}},
        {"maj7", {0, 4, 7, 11}}, {"dim", {0, 3, 6}},      {"dim7", {0, 3, 6, 9}}, {"6", {0, 4, 7, 9}},
        {"aug", {0, 4, 8}},
    };
    const auto quality = kQualities.find(symbol.substr(at));
    if (quality == kQualities.end()) throw std::runtime_error("unknown chord: '" + symbol + "'");
    Chord chord;
    for (int interval : quality->second) chord.tones.push_back(((root + interval) % 12 + 12) % 12);
    return chord;
}

std::vector<Chord> ReadChordLine(const Tune& tune, long& end) {
    const long bar = tune.meter.BarTicks();
    std::vector<Chord> chords;
    std::vector<std::pair<Chord, long>> inBar;  // chord and its written length, 0 for a share of the rest
    long tick = 0;
    auto closeBar = [&]() {
        if (inBar.empty()) throw std::runtime_error("chord line: bar " + std::to_string(tick / bar + 1) + " is empty");
        long written = 0;
        long shared = 0;
        for (const auto& [chord, length] : inBar) {
            written += length;
            shared += length == 0 ? 1 : 0;
        }
        const long rest = bar - written;
        if (rest < 0 || (shared == 0 && rest != 0) || (shared > 0 && (rest == 0 || rest % shared != 0)))
            throw std::runtime_error("chord line: bar " + std::to_string(tick / bar + 1) + " doesn't add up");
        for (auto& [chord, length] : inBar) {
            chord.start = tick;
            tick += length == 0 ? rest / shared : length;
            chords.push_back(chord);
        }
        inBar.clear();
    };
    for (const std::string& token : Tokens(tune.chords)) {
        if (token == "|") {
            closeBar();
            continue;
        }
        const size_t slash = token.find('/');
        long length = 0;
        if (slash != std::string::npos) {
            size_t at = slash + 1;
            length = ReadLength(token, at);
            if (at != token.size()) throw std::runtime_error("chord line: stray text in '" + token + "'");
        }
        inBar.emplace_back(ReadChordSymbol(token.substr(0, slash)), length);
    }
    if (!inBar.empty()) closeBar();
    end = tick;
    return chords;
}

const Chord& ChordAt(const std::vector<Chord>& chords, long tick) {
    auto after = std::upper_bound(chords.begin(), chords.end(), tick,
                                  [](long t, const Chord& chord) { return t < chord.start; });
    return *(after - 1);
}

// The lowest pitch of a pitch class at or above low.
int Lift(int pitchClass, int low) { return low + ((pitchClass - low) % 12 + 12) % 12; }

// Close voicings of the chord inside the register; the one that moves least
// from the chord before, or the one nearest the register's middle.
std::vector<int> Voicing(const Chord& chord, const Voice& voice, const std::vector<int>& before) {
    std::vector<int> tones = chord.tones;
    if (voice.chordSize == 3 && tones.size() == 4) tones.erase(tones.begin() + 2);  // the fifth can go
    if (voice.chordSize == 4 && tones.size() == 3) tones.push_back(tones[0]);       // double the root
    if (static_cast<int>(tones.size()) != voice.chordSize)
        throw std::runtime_error("can't voice this chord in " + std::to_string(voice.chordSize) + " notes");
    std::vector<int> best;
    double bestCost = 1e9;
    for (size_t inversion = 0; inversion < tones.size(); ++inversion) {
        for (int octave = 0; octave < 2; ++octave) {
            std::vector<int> pitches;
            for (size_t i = 0; i < tones.size(); ++i) {
                const int pitchClass = tones[(inversion + i) % tones.size()];
                pitches.push_back(pitches.empty() ? Lift(pitchClass, voice.low) + 12 * octave
                                                  : Lift(pitchClass, pitches.back() + 1));
            }
            if (pitches.back() > voice.high) continue;
            double cost = 0;
            if (before.size() == pitches.size()) {
                for (size_t i = 0; i < pitches.size(); ++i) cost += std::abs(pitches[i] - before[i]);
            } else {
                double mean = 0;
                for (int pitch : pitches) mean += pitch;
                cost = std::abs(mean / pitches.size() - (voice.low + voice.high) / 2.0);
            }
            if (cost < bestCost) {
                bestCost = cost;
                best = pitches;
            }
        }
    }
    if (best.empty()) throw std::runtime_error("the chord doesn't fit the voice's register");
    return best;
}

struct Held {
    size_t note;        // index into the voice's notes
    long heldBefore;    // written length of the tied parts before the last
    long lastWritten;
    double lastGate;
};

std::vector<Note> ReadVoice(const Tune& tune, const Voice& voice, const std::vector<Chord>& chords, long end) {
    const long bar = tune.meter.BarTicks();
    const bool drums = voice.channel == kPercussionChannel;
    std::vector<Note> notes;
    std::vector<Held> held;     // one for each note, with what its sounding length is worked out from
    std::vector<size_t> tied;   // indices into held of the notes tied into the next token
    std::vector<int> lastChord;
    long tick = 0;
    long length = kTicksPerQuarter;
    int velocity = voice.velocity;
    int octave = 0;

    for (const std::string& token : Tokens(voice.notes)) {
        const auto fail = [&](const std::string& what) {
            throw std::runtime_error(voice.name + ", bar " + std::to_string(tick / bar + 1) + ", '" + token + "': " + what);
        };
        try {
            if (token == "|") {
                if (tick % bar != 0) fail("the bar before is not full");
                continue;
            }
            if (token[0] == 'v' && token.size() > 1 && std::isdigit(static_cast<unsigned char>(token[1]))) {
                velocity = std::atoi(token.c_str() + 1);
                if (velocity < 1 || velocity > 127) fail("a velocity is 1 to 127");
                continue;
            }
            if (token[0] == 'o' && token.find_first_not_of("-0123456789", 1) == std::string::npos && token.size() > 1) {
                octave = std::atoi(token.c_str() + 1);
                continue;
            }
            size_t at = 0;
            const bool accent = token[0] == '^';
            if (accent) ++at;
            const size_t bodyEnd = token.find_first_of("/'_~", at);
            const std::string body = token.substr(at, bodyEnd - at);
            at = bodyEnd == std::string::npos ? token.size() : bodyEnd;
            if (at < token.size() && token[at] == '/') {
                ++at;
                length = ReadLength(token, at);
            }
            double gate = voice.gate;
            bool tie = false;
            for (; at < token.size(); ++at) {
                if (token[at] == '\'') gate *= 0.5;
                else if (token[at] == '_') gate = 1.0;
                else if (token[at] == '~') tie = true;
                else fail("stray text");
            }
            if (tick >= end) fail("the voice runs past the chord line");

            std::vector<int> pitches;
            if (body != "r") {
                std::string rest = body;
                while (!rest.empty()) {
                    const size_t plus = rest.find('+');
                    const std::string part = rest.substr(0, plus);
                    rest = plus == std::string::npos ? "" : rest.substr(plus + 1);
                    const auto drum = kDrums.find(part);
                    if (drums) {
                        if (drum == kDrums.end()) fail("not a drum: '" + part + "'");
                        pitches.push_back(drum->second);
                    } else if (part == "x") {
                        lastChord = Voicing(ChordAt(chords, tick), voice, lastChord);
                        pitches.insert(pitches.end(), lastChord.begin(), lastChord.end());
                    } else if (part == "1" || part == "3" || part == "5" || part == "7") {
                        const Chord& chord = ChordAt(chords, tick);
                        const size_t index = (part[0] - '1') / 2;
                        if (index >= chord.tones.size()) fail("the chord has no seventh");
                        pitches.push_back(Lift(chord.tones[index], voice.low));
                    } else {
                        const int pitch = ReadPitch(part);
                        if (pitch < 0) fail("not a pitch: '" + part + "'");
                        pitches.push_back(pitch + 12 * octave);
                    }
                }
                if (pitches.empty()) fail("nothing to play");
            }

            // Ties first: the pitches tied into this token go on sounding.
            std::vector<size_t> nowTied;
            for (int pitch : pitches) {
                auto from = std::find_if(tied.begin(), tied.end(),
                                         [&](size_t h) { return notes[held[h].note].pitch == pitch; });
                if (from != tied.end()) {
                    Held& h = held[*from];
                    h.heldBefore += h.lastWritten;
                    h.lastWritten = length;
                    h.lastGate = gate;
                    if (tie) nowTied.push_back(*from);
                    tied.erase(from);
                    continue;
                }
                const int pitchVelocity = std::min(127, velocity + (accent ? 20 : 0));
                notes.push_back({tick, 0, std::clamp(pitch, 0, 127), pitchVelocity});
                held.push_back({notes.size() - 1, 0, length, gate});
                if (tie) nowTied.push_back(held.size() - 1);
            }
            if (!tied.empty()) fail("a tie leads into a different pitch");
            tied = nowTied;
            tick += length;
        } catch (const std::runtime_error& error) {
            const std::string what = error.what();
            if (what.rfind(voice.name + ", ", 0) == 0) throw;
            fail(what);
        }
    }
    if (!tied.empty()) throw std::runtime_error(voice.name + ": the last notes are tied into nothing");
    if (tick != end)
        throw std::runtime_error(voice.name + ": lasts " + std::to_string(tick) + " ticks, the chord line " +
                                 std::to_string(end));
    for (const Held& h : held) {
        const long sounding = std::max(1L, std::lround(h.lastWritten * h.lastGate));
        notes[h.note].length = h.heldBefore + std::min(h.lastWritten, sounding);
    }
    return notes;
}

}  // namespace

Performance Perform(const Tune& tune) {
    Performance performance;
    const std::vector<Chord> chords = ReadChordLine(tune, performance.endTick);
    if (chords.empty()) throw std::runtime_error("the chord line is empty");
    for (const Voice& voice : tune.voices)
        performance.voices.push_back(ReadVoice(tune, voice, chords, performance.endTick));
    return performance;
}

}  // namespace tunes
