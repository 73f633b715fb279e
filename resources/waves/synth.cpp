#include "synth.h"

#include <algorithm>
#include <cmath>

namespace waves {

std::size_t samplesFor(double seconds) { return static_cast<std::size_t>(std::lround(std::max(0.0, seconds) * kRate)); }

double noteHz(double midi) { return 440.0 * std::pow(2.0, (midi - 69.0) / 12.0); }

Random::Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15ULL + 1) {}

double Random::uniform() {
    state_ ^= state_ >> 12;
    state_ ^= state_ << 25;
    state_ ^= state_ >> 27;
    const std::uint64_t r = state_ * 0x2545F4914F6CDD1DULL;
    return static_cast<double>(r >> 11) / 9007199254740992.0;  // 2^53
}

double decay(double t, double tau) { return t < 0.0 ? 0.0 : std::exp(-t / tau); }

double smoothStep(double u) {
    u = std::clamp(u, 0.0, 1.0);
    return u * u * (3.0 - 2.0 * u);
}

double ramp(double t, double attack, double release, double length) {
    if (t < 0.0 || t > length) return 0.0;
    const double in = attack > 0.0 ? smoothStep(t / attack) : 1.0;
    const double out = release > 0.0 ? smoothStep((length - t) / release) : 1.0;
    return in * out;
}

double Adsr::at(double t, double held) const {
    auto level = [this](double s) {
        if (s < attack) return s / attack;
        return sustain + (1.0 - sustain) * std::exp(-(s - attack) / decay);
    };
    if (t < 0.0) return 0.0;
    if (t < held) return level(t);
    const double u = std::min(1.0, (t - held) / release);
    return level(held) * (1.0 - u) * (1.0 - u);
}

double Phase::next(double hz) {
    const double now = phase_;
    phase_ = std::fmod(phase_ + kTwoPi * hz / kRate, kTwoPi);
    return now;
}

double harmonics(double phase, double f0, double tilt, bool oddOnly) {
    double sum = 0.0;
    const int step = oddOnly ? 2 : 1;
    for (int k = 1; k * f0 < 0.45 * kRate; k += step) sum += std::sin(k * phase) / std::pow(k, tilt);
    return sum;
}

double partial(double t, double hz, double tau) {
    if (hz >= 0.45 * kRate) return 0.0;
    return std::sin(kTwoPi * hz * t) * decay(t, tau);
}

double fmPair(double t, double carrierHz, double ratio, double index) {
    return std::sin(kTwoPi * carrierHz * t + index * std::sin(kTwoPi * carrierHz * ratio * t));
}

void OnePole::setCutoff(double hz) { a_ = std::exp(-kTwoPi * hz / kRate); }

double OnePole::lowpass(double x) {
    y_ += (1.0 - a_) * (x - y_);
    return y_;
}

// The filters of the audio-EQ cookbook (Bristow-Johnson).
void Biquad::lowpass(double hz, double q) {
    const double w = kTwoPi * std::min(hz, 0.45 * kRate) / kRate, alpha = std::sin(w) / (2.0 * q), c = std::cos(w);
    set((1 - c) / 2, 1 - c, (1 - c) / 2, 1 + alpha, -2 * c, 1 - alpha);
}

void Biquad::highpass(double hz, double q) {
    const double w = kTwoPi * std::min(hz, 0.45 * kRate) / kRate, alpha = std::sin(w) / (2.0 * q), c = std::cos(w);
    set((1 + c) / 2, -(1 + c), (1 + c) / 2, 1 + alpha, -2 * c, 1 - alpha);
}

void Biquad::bandpass(double hz, double q) {
    const double w = kTwoPi * std::min(hz, 0.45 * kRate) / kRate, alpha = std::sin(w) / (2.0 * q), c = std::cos(w);
    set(alpha, 0.0, -alpha, 1 + alpha, -2 * c, 1 - alpha);
}

void Biquad::set(double b0, double b1, double b2, double a0, double a1, double a2) {
    b0_ = b0 / a0;
    b1_ = b1 / a0;
    b2_ = b2 / a0;
    a1_ = a1 / a0;
    a2_ = a2 / a0;
}

double Biquad::process(double x) {
    const double y = b0_ * x + b1_ * x1_ + b2_ * x2_ - a1_ * y1_ - a2_ * y2_;
    x2_ = x1_;
    x1_ = x;
    y2_ = y1_;
    y1_ = y;
    return y;
}

Vowel blend(const Vowel& a, const Vowel& b, double u) {
    Vowel v;
    for (int i = 0; i < 3; ++i) {
        v.hz[i] = a.hz[i] + (b.hz[i] - a.hz[i]) * u;
        v.gain[i] = a.gain[i] + (b.gain[i] - a.gain[i]) * u;
    }
    return v;
}

Vowel scaled(const Vowel& v, double factor) {
    Vowel s = v;
    for (double& hz : s.hz) hz *= factor;
    return s;
}

void FormantFilter::tune(const Vowel& v, double q) {
    for (int i = 0; i < 3; ++i) {
        bands_[i].bandpass(v.hz[i], q);
        gains_[i] = v.gain[i];
    }
}

double FormantFilter::process(double x) {
    double sum = 0.0;
    for (int i = 0; i < 3; ++i) sum += gains_[i] * bands_[i].process(x);
    return sum;
}

Samples voice(const Syllable& s, Random& rng) {
    Samples out(samplesFor(s.seconds));
    Phase phase;
    FormantFilter formants;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i), u = t / s.seconds;
        double hz = u < s.peakAt ? s.startHz + (s.peakHz - s.startHz) * smoothStep(u / s.peakAt)
                                 : s.peakHz + (s.endHz - s.peakHz) * smoothStep((u - s.peakAt) / (1.0 - s.peakAt));
        hz *= 1.0 + s.vibratoDepth * std::sin(kTwoPi * s.vibratoHz * t);
        if (i % 16 == 0) {
            formants.tune(u < 0.5 ? blend(s.start, s.middle, 2.0 * u) : blend(s.middle, s.end, 2.0 * u - 1.0), s.q);
        }
        const double source = (1.0 - s.breath) * harmonics(phase.next(hz), hz, s.tilt) + s.breath * 2.0 * rng.noise();
        const double tremolo = 1.0 - s.tremoloDepth * (0.5 - 0.5 * std::cos(kTwoPi * s.tremoloHz * t));
        out[i] = formants.process(source) * ramp(t, s.attack, s.release, s.seconds) * tremolo;
    }
    return out;
}

void mixInto(Samples& into, const Samples& sound, double atSeconds, double gain) {
    const std::size_t from = samplesFor(atSeconds);
    for (std::size_t i = 0; i < sound.size() && from + i < into.size(); ++i) into[from + i] += gain * sound[i];
}

void fadeEnds(Samples& s, double fadeIn, double fadeOut) {
    const std::size_t in = std::min(samplesFor(fadeIn), s.size()), out = std::min(samplesFor(fadeOut), s.size());
    for (std::size_t i = 0; i < in; ++i) s[i] *= 0.5 - 0.5 * std::cos(kPi * i / in);
    for (std::size_t i = 0; i < out; ++i) s[s.size() - 1 - i] *= 0.5 - 0.5 * std::cos(kPi * i / out);
}

namespace {

// The root mean square of the loudest 50 ms, a rough ear for how loud a
// sound seems beside another.
double loudness(const Samples& s) {
    const std::size_t window = std::min(samplesFor(0.05), s.size());
    double sum = 0.0, loudest = 0.0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        sum += s[i] * s[i];
        if (i >= window) sum -= s[i - window] * s[i - window];
        if (i + 1 >= window) loudest = std::max(loudest, sum);
    }
    return std::sqrt(std::max(0.0, loudest) / window);
}

}  // namespace

void finish(Samples& s) {
    const double seconds = s.size() / kRate;
    fadeEnds(s, 0.002, std::min(0.015, 0.2 * seconds));
    double peak = 0.0;
    for (double x : s) peak = std::max(peak, std::abs(x));
    if (peak == 0.0) return;
    const double peakTarget = std::pow(10.0, -3.0 / 20.0), peakFloor = std::pow(10.0, -5.0 / 20.0);
    const double loudnessCeiling = std::pow(10.0, -12.0 / 20.0);
    double gain = peakTarget / peak;
    const double loud = loudness(s) * gain;
    if (loud > loudnessCeiling) gain *= std::max(loudnessCeiling / loud, peakFloor / peakTarget);
    for (double& x : s) x *= gain;
}

}  // namespace waves
