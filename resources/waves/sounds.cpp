#include "sounds.h"

#include <algorithm>
#include <cmath>

namespace waves {

namespace {

// ---- vowels, as a grown throat says them; animals scale them ----
const Vowel kA{{800, 1250, 2600}, {1.0, 0.6, 0.25}};
const Vowel kE{{500, 1900, 2600}, {1.0, 0.5, 0.3}};
const Vowel kI{{300, 2250, 3000}, {1.0, 0.35, 0.25}};
const Vowel kO{{500, 900, 2500}, {1.0, 0.5, 0.15}};
const Vowel kU{{330, 750, 2400}, {1.0, 0.3, 0.08}};

// ---- instruments of the little pieces ----

// A struck metal bar: its modes at 1, 2.76 and 5.40, the higher ones gone
// first, with the mallet's tick.
Samples glockNote(double hz, double seconds, Random& rng) {
    Samples out(samplesFor(seconds));
    const double tau = seconds / 4.0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = partial(t, hz, tau) + 0.35 * partial(t, 2.76 * hz, tau / 4) + 0.12 * partial(t, 5.40 * hz, tau / 10) +
                 0.15 * rng.noise() * decay(t, 0.0015);
    }
    fadeEnds(out, 0.0005, 0.01);
    return out;
}

// A tuned wooden bar: a warm fundamental with the 4th and 10th partials of a
// marimba's bar, struck softly.
Samples marimbaNote(double hz, double seconds) {
    Samples out(samplesFor(seconds));
    const double tau = seconds / 4.0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = (partial(t, hz, tau) + 0.3 * partial(t, 4.0 * hz, tau / 5) + 0.06 * partial(t, 10.0 * hz, tau / 15)) *
                 smoothStep(t / 0.003);
    }
    fadeEnds(out, 0.0, 0.01);
    return out;
}

// A plucked steel tine: the cantilever's modes at 1 and 6.27 (the high one a
// brief "ting"), a little octave for body and the pin's tick.
Samples musicBoxNote(double hz, double seconds, Random& rng) {
    Samples out(samplesFor(seconds));
    const double tau = seconds / 3.5;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = partial(t, hz, tau) + 0.08 * partial(t, 2.0 * hz, tau / 3) + 0.22 * partial(t, 6.27 * hz, 0.06) +
                 0.05 * rng.noise() * decay(t, 0.001);
    }
    fadeEnds(out, 0.0005, 0.02);
    return out;
}

// A soft wooden flute: nearly a sine, a breath of noise at the note and a
// vibrato that comes in late.
Samples fluteNote(double hz, double seconds, Random& rng) {
    Samples out(samplesFor(seconds + 0.15));
    const Adsr envelope{0.04, 0.2, 0.8, 0.15};
    Phase phase;
    Biquad breath;
    breath.bandpass(2.0 * hz, 2.0);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        const double f = hz * (1.0 + 0.007 * smoothStep((t - 0.12) / 0.2) * std::sin(kTwoPi * 5.2 * t));
        const double p = phase.next(f);
        out[i] = envelope.at(t, seconds) *
                 (std::sin(p) + 0.22 * std::sin(2 * p) + 0.06 * std::sin(3 * p) + 0.25 * breath.process(rng.noise()));
    }
    return out;
}

// A mellow horn: a sawtooth's harmonics behind a low-pass that opens as the
// note is blown, with a slight vibrato.
Samples hornNote(double hz, double seconds) {
    Samples out(samplesFor(seconds + 0.3));
    const Adsr envelope{0.03, 0.3, 0.75, 0.3};
    Phase phase;
    Biquad tone;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        const double level = envelope.at(t, seconds);
        if (i % 16 == 0) tone.lowpass(hz * (1.5 + 3.0 * level), 0.8);
        const double f = hz * (1.0 + 0.004 * std::sin(kTwoPi * 5.5 * t));
        out[i] = level * tone.process(harmonics(phase.next(f), f, 1.3));
    }
    return out;
}

// A card landing on the baize: a swish of air as it slides in, then the slap
// of the card and the felt's dull thump. Brightness darkens the whole for a
// softer card.
Samples cardOnFelt(Random& rng, double seconds, double swishSeconds, double brightness) {
    Samples out(samplesFor(seconds));
    Biquad swish, slap, felt;
    slap.lowpass(1200.0 + 5000.0 * brightness, 0.7);
    felt.lowpass(900.0, 0.7);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i), hit = t - swishSeconds;
        if (i % 16 == 0) swish.bandpass(1500.0 + 3000.0 * brightness * smoothStep(t / swishSeconds), 1.5);
        const double air =
            0.35 * brightness * swish.process(rng.noise()) * (hit < 0.0 ? t / swishSeconds : decay(hit, 0.004));
        const double card = 1.5 * slap.process(rng.noise()) * decay(hit, 0.005 + 0.006 * (1.0 - brightness));
        const double thump = std::sin(kTwoPi * 150.0 * std::max(hit, 0.0)) * decay(hit, 0.012) +
                             0.5 * felt.process(rng.noise()) * decay(hit, 0.01);
        out[i] = air + card + (0.6 - 0.3 * brightness) * thump;
    }
    return out;
}

// A coin: inharmonic bell partials from an FM pair whose brightness dies
// fast, a high ring above it and the tick of metal on metal.
Samples coinClink(double hz, Random& rng) {
    Samples out(samplesFor(0.22));
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = fmPair(t, hz, 1.41, 2.5 * decay(t, 0.02)) * decay(t, 0.07) + 0.4 * partial(t, 2.76 * hz, 0.04) +
                 0.3 * rng.noise() * decay(t, 0.0012);
    }
    fadeEnds(out, 0.0, 0.02);
    return out;
}

Samples finished(Samples s) {
    finish(s);
    return s;
}

// ---- the effects ----

// 101: a soft low "uh-uh" buzz, the second a step lower; a square's odd
// harmonics rounded off by a low-pass, with a gentle buzz in the level.
Samples refusalBuzz() {
    Samples out(samplesFor(0.26));
    const double starts[] = {0.0, 0.135}, pitches[] = {123.5, 110.0};
    for (int n = 0; n < 2; ++n) {
        Samples buzz(samplesFor(0.12));
        Phase phase;
        Biquad soft;
        soft.lowpass(650.0, 0.7);
        for (std::size_t i = 0; i < buzz.size(); ++i) {
            const double t = timeOf(i);
            const double rasp = 0.8 + 0.2 * std::sin(kTwoPi * 50.0 * t);
            buzz[i] = ramp(t, 0.01, 0.03, 0.12) * rasp *
                      soft.process(harmonics(phase.next(pitches[n]), pitches[n], 1.0, true));
        }
        mixInto(out, buzz, starts[n]);
    }
    return finished(out);
}

// 102: the human's card, flicked crisply onto the felt.
Samples humanCard() {
    Random rng(102);
    return finished(cardOnFelt(rng, 0.12, 0.03, 1.0));
}

// 103: two or three coins dropping into the pot, each a little softer.
Samples coinsInPot() {
    Random rng(103);
    Samples out(samplesFor(0.42));
    mixInto(out, coinClink(2650.0, rng), 0.0, 1.0);
    mixInto(out, coinClink(3150.0, rng), 0.095, 0.75);
    mixInto(out, coinClink(2900.0, rng), 0.2, 0.55);
    return finished(out);
}

// 104: a computer's card, laid more gently and duller than the human's.
Samples computerCard() {
    Random rng(104);
    return finished(cardOnFelt(rng, 0.1, 0.02, 0.3));
}

// 105: the hen by the pot: "buk, buk, ba-awk".
Samples henCluck() {
    Random rng(105);
    Samples out(samplesFor(0.47));
    Syllable buk;
    buk.seconds = 0.075;
    buk.startHz = 400, buk.peakHz = 470, buk.endHz = 360, buk.peakAt = 0.3;
    buk.start = buk.middle = scaled(kO, 1.3), buk.end = scaled(kU, 1.3);
    buk.tilt = 0.9, buk.breath = 0.25, buk.q = 5.0, buk.attack = 0.004, buk.release = 0.03;
    mixInto(out, voice(buk, rng), 0.0);
    buk.startHz = 430, buk.peakHz = 500, buk.endHz = 380;
    mixInto(out, voice(buk, rng), 0.125);
    Syllable bawk = buk;
    bawk.seconds = 0.21;
    bawk.startHz = 460, bawk.peakHz = 640, bawk.endHz = 430, bawk.peakAt = 0.35;
    bawk.start = scaled(kE, 1.3), bawk.middle = scaled(kA, 1.3), bawk.end = scaled(kO, 1.3);
    bawk.release = 0.07;
    mixInto(out, voice(bawk, rng), 0.25);
    return finished(out);
}

// 106: a bright win: horns rise "ta-ta-ta" to a held major chord while bells
// climb and twinkle above it.
Samples winFanfare() {
    Random rng(106);
    Samples out(samplesFor(2.6));
    const double pickup[] = {67, 72, 76};
    for (int n = 0; n < 3; ++n) {
        mixInto(out, hornNote(noteHz(pickup[n]), 0.09), 0.13 * n, 0.3);
        mixInto(out, glockNote(noteHz(pickup[n] + 12), 0.5, rng), 0.13 * n, 0.8);
    }
    for (double note : {72.0, 76.0, 79.0, 84.0}) mixInto(out, hornNote(noteHz(note), 1.75), 0.4, 0.13);
    const double sparkle[] = {84, 88, 91, 96, 91, 96};
    for (int n = 0; n < 6; ++n) mixInto(out, glockNote(noteHz(sparkle[n]), 1.2, rng), 0.4 + 0.15 * n, 0.8 - 0.08 * n);
    return finished(out);
}

// 107: a rueful loss: a muted horn sighs down three steps, "wah, wah, wah",
// and a last long wobbling "waaah" that sags at the end.
Samples lossSlide() {
    Random rng(107);
    Samples out(samplesFor(1.32));
    Syllable wah;
    wah.start = kU, wah.middle = kA, wah.end = kU;
    wah.tilt = 1.0, wah.breath = 0.03, wah.q = 4.0, wah.attack = 0.03, wah.release = 0.06;
    wah.seconds = 0.23;
    const double steps[] = {63, 62, 61};
    for (int n = 0; n < 3; ++n) {
        wah.startHz = wah.peakHz = wah.endHz = noteHz(steps[n] - 12);
        mixInto(out, voice(wah, rng), 0.25 * n);
    }
    wah.seconds = 0.57;
    wah.startHz = wah.peakHz = noteHz(48), wah.endHz = noteHz(46.5), wah.peakAt = 0.6;
    wah.middle = blend(kA, kO, 0.3);
    wah.vibratoHz = 5.0, wah.vibratoDepth = 0.02, wah.release = 0.2;
    mixInto(out, voice(wah, rng), 0.75);
    return finished(out);
}

// 108: sound on or off: one small bell, an FM pair at a bell's ratio over a
// pure fundamental.
Samples soundChime() {
    Samples out(samplesFor(0.25));
    const double hz = noteHz(88);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = 0.5 * fmPair(t, hz, 3.5, 1.2 * decay(t, 0.03)) * decay(t, 0.07) + partial(t, hz, 0.08);
    }
    return finished(out);
}

// 109: a soft pop and a smaller bubble after it: sines whose pitch rises as
// they die, as a bubble's does.
Samples bubblePop() {
    Samples out(samplesFor(0.3));
    auto bubble = [](double lowHz, double highHz, double seconds) {
        Samples b(samplesFor(seconds));
        Phase phase;
        for (std::size_t i = 0; i < b.size(); ++i) {
            const double t = timeOf(i);
            b[i] = std::sin(phase.next(lowHz * std::pow(highHz / lowHz, std::min(1.0, t / 0.06)))) *
                   smoothStep(t / 0.003) * decay(t, 0.035);
        }
        fadeEnds(b, 0.0, 0.01);
        return b;
    };
    mixInto(out, bubble(330.0, 1000.0, 0.16), 0.0);
    mixInto(out, bubble(520.0, 1500.0, 0.13), 0.15, 0.5);
    return finished(out);
}

// 110: the fox: a hoarse, high "yip-yow".
Samples foxYip() {
    Random rng(110);
    Samples out(samplesFor(0.56));
    Syllable yip;
    yip.seconds = 0.19;
    yip.startHz = 650, yip.peakHz = 1050, yip.endHz = 720, yip.peakAt = 0.3;
    yip.start = scaled(kI, 1.5), yip.middle = scaled(kA, 1.5), yip.end = scaled(kO, 1.5);
    yip.tilt = 0.8, yip.breath = 0.35, yip.q = 5.0, yip.attack = 0.008, yip.release = 0.05;
    mixInto(out, voice(yip, rng), 0.0);
    yip.seconds = 0.27;
    yip.startHz = 620, yip.peakHz = 980, yip.endHz = 540, yip.peakAt = 0.25;
    yip.start = scaled(kE, 1.5), yip.end = scaled(kU, 1.5), yip.release = 0.09;
    mixInto(out, voice(yip, rng), 0.28);
    return finished(out);
}

// 111: a festive flourish: a glockenspiel tune over a marimba bass and a
// shaker, ending on a held chord with horns and a rising sparkle.
Samples celebration() {
    Random rng(111);
    Samples out(samplesFor(6.3));
    const double eighth = 0.19;
    const double tune[] = {72, 76, 79, 84, 79, 76, 79, 84, 86, 84, 83, 81,
                           79, 81, 83, 84, 88, 86, 84, 79, 81, 77, 76, 74};
    for (int n = 0; n < 24; ++n) mixInto(out, glockNote(noteHz(tune[n]), 0.7, rng), eighth * n, 0.6);
    const double bass[] = {48, 55, 52, 55, 43, 50, 47, 50, 48, 52, 53, 55};
    for (int n = 0; n < 12; ++n) mixInto(out, marimbaNote(noteHz(bass[n]), 0.5), 2 * eighth * n, 0.7);
    for (int n = 0; n < 24; ++n) {
        Samples shake(samplesFor(0.05));
        OnePole cut(3000.0);
        for (std::size_t i = 0; i < shake.size(); ++i) shake[i] = cut.highpass(rng.noise()) * decay(timeOf(i), 0.012);
        mixInto(out, shake, eighth * n, n % 2 ? 0.12 : 0.2);
    }
    const double end = 24 * eighth;
    for (double note : {60.0, 64.0, 67.0, 72.0}) mixInto(out, hornNote(noteHz(note), 1.2), end, 0.1);
    mixInto(out, marimbaNote(noteHz(36), 1.2), end, 0.8);
    const double sparkle[] = {84, 88, 91, 96, 100, 103, 108};
    for (int n = 0; n < 7; ++n) mixInto(out, glockNote(noteHz(sparkle[n]), 1.3 - 0.1 * n, rng), end + 0.07 * n, 0.35);
    return finished(out);
}

// 112: the owl: a soft, round "hoo ... hoo-oo", nearly a pure tone with
// breath in it, the second hoot quavering.
Samples owlHoot() {
    Random rng(112);
    Samples out(samplesFor(0.9));
    Syllable hoo;
    hoo.seconds = 0.26;
    hoo.startHz = 350, hoo.peakHz = 380, hoo.endHz = 340, hoo.peakAt = 0.3;
    hoo.start = hoo.middle = hoo.end = kU;
    hoo.tilt = 2.5, hoo.breath = 0.12, hoo.q = 3.0, hoo.attack = 0.05, hoo.release = 0.1;
    mixInto(out, voice(hoo, rng), 0.02);
    hoo.seconds = 0.44;
    hoo.startHz = 360, hoo.peakHz = 390, hoo.endHz = 320, hoo.peakAt = 0.2;
    hoo.tremoloHz = 11.0, hoo.tremoloDepth = 0.35, hoo.release = 0.18;
    mixInto(out, voice(hoo, rng), 0.43);
    return finished(out);
}

// 113: the cat: one "mi-a-ow", closed lips opening to "i", wide to "a",
// rounding to "ow", the pitch rising and falling.
Samples catMeow() {
    Random rng(113);
    Syllable meow;
    meow.seconds = 0.55;
    meow.startHz = 520, meow.peakHz = 760, meow.endHz = 470, meow.peakAt = 0.4;
    meow.start = scaled(kI, 1.4), meow.middle = scaled(kA, 1.4), meow.end = scaled(kU, 1.4);
    meow.tilt = 0.7, meow.breath = 0.1, meow.q = 8.0, meow.attack = 0.09, meow.release = 0.15;
    meow.vibratoHz = 6.0, meow.vibratoDepth = 0.01;
    return finished(voice(meow, rng));
}

// 114: music on or off: two quick wooden notes, a fifth apart, rising.
Samples musicChime() {
    Samples out(samplesFor(0.2));
    mixInto(out, marimbaNote(noteHz(79), 0.2), 0.0, 0.8);
    mixInto(out, marimbaNote(noteHz(86), 0.13), 0.07);
    return finished(out);
}

// 115: a gentle waltz on a music box, slowing into its last note.
Samples musicBox() {
    Random rng(115);
    Samples out(samplesFor(12.6));
    struct Note {
        double midi, beats;
    };
    const Note tune[] = {{79, 1}, {76, 1}, {72, 1}, {81, 2}, {79, 1}, {76, 1}, {79, 1}, {84, 1}, {83, 2}, {79, 1},
                         {81, 1}, {84, 1}, {88, 1}, {86, 2}, {84, 1}, {83, 1}, {86, 1}, {83, 1}, {84, 3}};
    const double roots[] = {60, 65, 60, 67, 57, 65, 67, 60};
    auto beatTime = [](double beat) {  // a quarter of a second slower a beat over the last two bars
        const double slowing = std::max(0.0, beat - 18.0);
        return 0.46 * beat + 0.04 * slowing * slowing;
    };
    double beat = 0.0;
    for (const Note& note : tune) {
        const double ring = beat < 21 ? 1.8 : 2.6;
        mixInto(out, musicBoxNote(noteHz(note.midi), ring, rng), beatTime(beat), 0.7);
        beat += note.beats;
    }
    for (int bar = 0; bar < 8; ++bar) {
        const double root = roots[bar], third = root + (bar == 4 ? 3 : 4);
        mixInto(out, musicBoxNote(noteHz(root - 12), bar == 7 ? 2.6 : 1.6, rng), beatTime(3 * bar), 0.45);
        if (bar == 7) break;
        for (int b = 1; b < 3; ++b) {
            mixInto(out, musicBoxNote(noteHz(third), 0.9, rng), beatTime(3 * bar + b), 0.18);
            mixInto(out, musicBoxNote(noteHz(root + 7), 0.9, rng), beatTime(3 * bar + b), 0.18);
        }
    }
    return finished(out);
}

// 116: a button's tiny click: a 2 ms burst in the upper middle and a
// short knock under it.
Samples buttonClick() {
    Random rng(116);
    Samples out(samplesFor(0.03));
    Biquad band;
    band.bandpass(3200.0, 2.0);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = band.process(rng.noise() * decay(t, 0.0015)) + 0.4 * partial(t, 1400.0, 0.004);
    }
    return finished(out);
}

// 117: goodbye: a little flute phrase stepping down to its home note, a
// wooden chord under the last.
Samples goodbye() {
    Random rng(117);
    Samples out(samplesFor(1.5));
    const double notes[] = {79, 76, 74}, last = 72;
    for (int n = 0; n < 3; ++n) mixInto(out, fluteNote(noteHz(notes[n]), 0.17, rng), 0.2 * n);
    mixInto(out, fluteNote(noteHz(last), 0.65, rng), 0.6);
    mixInto(out, marimbaNote(noteHz(60), 0.85), 0.6, 0.35);
    mixInto(out, marimbaNote(noteHz(67), 0.85), 0.6, 0.25);
    return finished(out);
}

// 118: a soft close: a low thump falling in pitch, padded with dull noise.
Samples softThump() {
    Random rng(118);
    Samples out(samplesFor(0.1));
    Phase phase;
    Biquad dull;
    dull.lowpass(500.0, 0.7);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = timeOf(i);
        out[i] = std::sin(phase.next(60.0 + 50.0 * decay(t, 0.02))) * smoothStep(t / 0.003) * decay(t, 0.025) +
                 0.6 * dull.process(rng.noise()) * decay(t, 0.01);
    }
    return finished(out);
}

// The penguins: four little voices of different sizes chattering over one
// another, in bursts of quick "gak"s that run up or down and now and then a
// rolled "trrr".
Samples penguinsCluck() {
    Random rng(200);
    Samples out(samplesFor(3.0));
    const double voicePitch[] = {430, 560, 700, 880};
    const Vowel vowels[] = {kA, kE, kO, blend(kA, kE, 0.5)};
    double at = 0.0;
    while (at < 2.75) {
        const int who = static_cast<int>(rng.uniform() * 4), count = 1 + static_cast<int>(rng.uniform() * 4);
        const double pitch = voicePitch[who] * rng.between(0.95, 1.05), slope = rng.between(-0.12, 0.1);
        const bool trill = rng.uniform() < 0.2;
        double t = at;
        for (int n = 0; n < count && t < 2.85; ++n) {
            Syllable gak;
            gak.seconds = trill ? 0.2 : rng.between(0.05, 0.1);
            const double hz = pitch * (1.0 + slope * n);
            gak.startHz = 0.9 * hz, gak.peakHz = hz * rng.between(1.05, 1.25), gak.endHz = 0.85 * hz, gak.peakAt = 0.3;
            const double size = 1.2 + 0.1 * who;
            gak.start = scaled(kE, size), gak.middle = scaled(vowels[static_cast<int>(rng.uniform() * 4)], size);
            gak.end = scaled(kO, size);
            gak.tilt = 0.9, gak.breath = 0.2, gak.q = 5.0, gak.attack = 0.005, gak.release = 0.025;
            if (trill) gak.tremoloHz = 28.0, gak.tremoloDepth = 0.9;
            mixInto(out, voice(gak, rng), t, rng.between(0.6, 1.0));
            t += gak.seconds + rng.between(0.02, 0.05);
            if (trill) break;
        }
        at = t + rng.between(-0.15, 0.04);  // the next often cuts in
    }
    return finished(out);
}

}  // namespace

const std::vector<Effect>& effects() {
    static const std::vector<Effect> all = {
        {"101.wav", refusalBuzz}, {"102.wav", humanCard},  {"103.wav", coinsInPot},      {"104.wav", computerCard},
        {"105.wav", henCluck},    {"106.wav", winFanfare}, {"107.wav", lossSlide},       {"108.wav", soundChime},
        {"109.wav", bubblePop},   {"110.wav", foxYip},     {"111.wav", celebration},     {"112.wav", owlHoot},
        {"113.wav", catMeow},     {"114.wav", musicChime}, {"115.wav", musicBox},        {"116.wav", buttonClick},
        {"117.wav", goodbye},     {"118.wav", softThump},  {"PCluck.wav", penguinsCluck}};
    return all;
}

}  // namespace waves
