// The building blocks every wave effect of the game is made of: a seeded
// random source, envelopes, oscillators, noise filters, an FM pair and a
// formant filter for the animals' voices. Plain doubles at kRate; the
// finished sound is scaled and written by wave_file.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace waves {

constexpr double kRate = 22050.0;
constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

using Samples = std::vector<double>;

std::size_t samplesFor(double seconds);
inline double timeOf(std::size_t i) { return static_cast<double>(i) / kRate; }
double noteHz(double midi);  // equal temperament, 69 = A at 440 Hz

// xorshift64*: small, fast, and the same bytes on every build.
class Random {
public:
    explicit Random(std::uint64_t seed);
    double uniform();  // [0, 1)
    double between(double low, double high) { return low + (high - low) * uniform(); }
    double noise() { return between(-1.0, 1.0); }

private:
    std::uint64_t state_;
};

// ---- envelopes ----
double decay(double t, double tau);                                   // exp(-t / tau) from t = 0, nothing before
double smoothStep(double u);                                          // 0 below 0, 1 above 1, an S between
double ramp(double t, double attack, double release, double length);  // rises, holds, falls to 0 at length

struct Adsr {
    double attack, decay, sustain, release;
    // Level at t of a note held for `held` seconds; it is silent by held + release.
    double at(double t, double held) const;
};

// ---- oscillators ----
// A running phase in radians that follows a changing frequency.
class Phase {
public:
    double next(double hz);

private:
    double phase_ = 0.0;
};

// A band-limited source at f0: every harmonic below Nyquist, the k-th at
// 1 / k^tilt (1 is a sawtooth, higher is rounder); oddOnly gives a hollow,
// square-like tone.
double harmonics(double phase, double f0, double tilt, bool oddOnly = false);

// A sine partial with its own decay; silent if it would fold over Nyquist.
double partial(double t, double hz, double tau);

// Two-operator FM: a sine carrier whose phase a modulator at ratio x the
// carrier pushes by index radians.
double fmPair(double t, double carrierHz, double ratio, double index);

// ---- filters ----
class OnePole {
public:
    explicit OnePole(double cutoffHz = 1000.0) { setCutoff(cutoffHz); }
    void setCutoff(double hz);
    double lowpass(double x);
    double highpass(double x) { return x - lowpass(x); }

private:
    double a_ = 0.0, y_ = 0.0;
};

class Biquad {
public:
    void lowpass(double hz, double q);
    void highpass(double hz, double q);
    void bandpass(double hz, double q);  // 0 dB at the centre
    double process(double x);

private:
    void set(double b0, double b1, double b2, double a0, double a1, double a2);
    double b0_ = 1, b1_ = 0, b2_ = 0, a1_ = 0, a2_ = 0;
    double x1_ = 0, x2_ = 0, y1_ = 0, y2_ = 0;
};

// ---- voices ----
struct Vowel {
    std::array<double, 3> hz;  // the first three formants
    std::array<double, 3> gain;
};
Vowel blend(const Vowel& a, const Vowel& b, double u);
Vowel scaled(const Vowel& v, double factor);  // a smaller throat moves every formant up

class FormantFilter {
public:
    void tune(const Vowel& v, double q);
    double process(double x);

private:
    std::array<Biquad, 3> bands_;
    std::array<double, 3> gains_{};
};

// One syllable of a voice: a source following a pitch arc (start, up or down
// to peak at peakAt of the way, then end), breath mixed in, through a vowel
// that glides start -> middle -> end.
struct Syllable {
    double seconds = 0.2;
    double startHz = 400, peakHz = 400, endHz = 400, peakAt = 0.5;
    Vowel start{}, middle{}, end{};
    double tilt = 1.0;    // source brightness
    double breath = 0.1;  // share of noise in the source
    double q = 6.0;       // sharpness of the formants
    double attack = 0.01, release = 0.03;
    double vibratoHz = 0.0, vibratoDepth = 0.0;  // depth as a share of pitch
    double tremoloHz = 0.0, tremoloDepth = 0.0;
};
Samples voice(const Syllable& s, Random& rng);

// ---- assembling ----
void mixInto(Samples& into, const Samples& sound, double atSeconds, double gain = 1.0);
void fadeEnds(Samples& s, double fadeIn, double fadeOut);
// Fades the ends and brings the peak to about -3 dBFS, a dense sound a little
// lower so that the set sounds evenly loud.
void finish(Samples& s);

}  // namespace waves
