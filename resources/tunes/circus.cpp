// "Circus": our own march in F major, 2/4, quarter = 144. Four bars of fanfare
// on the dominant, then A (8 bars, to a half close), A' (8, to the tonic), a
// broader trio strain in B flat (8) that runs back down into a last A (8)
// with the glockenspiel on top, ending on a held F chord. The loop then falls
// straight into the fanfare on C7 again.
#include <string>

#include "tunes.h"

namespace tunes {
namespace {

// The trumpet's tune, strain by strain.
const std::string kFanfare =
    "^c5/8 c5/16 c5/16 c5/8 c5/8 | e5/8 g5/8 bb5/8 c6/8 | "
    "c6/16 b5 bb5 a5 ab5 g5 gb5 f5 | e5/8' g5/8' c5/8' r/8 | ";
const std::string kOpening =  // bars 1-4 of each A
    "c5/8 f5/8 a5/8 c6/8 | a5/16 bb5 a5 g#5 a5/8 f5/8 | "
    "c5/8 e5/8 g5/8 bb5/8 | g5/16 a5 g5 f#5 g5/8 e5/8 | ";
const std::string kHalfClose =
    "f5/8 a5/8 c6/8 a5/8 | f#5/8 a5/8 d6/8 c6/8 | bb5/8 g5/8 e5/8 g5/8 | bb5/8 a5/8 g5/4 | ";
const std::string kFullClose =
    "f5/8 a5/8 c6/8 a5/8 | f#5/8 a5/8 d6/8 c6/8 | bb5/8 d6/8 c6/8 bb5/8 | a5/8 c6/8 f5/4 | ";
const std::string kTrio =
    "d5/4 f5/4 | bb5/4. a5/8~ | a5/8 g5/8 f5/8 eb5/8 | d5/4 bb4/4 | "
    "eb5/4 g5/4 | bb5/4. f5/8 | c5/8 e5/8 g5/8 bb5/8 | c6/16 bb5 a5 g5 f5 e5 d5 db5 | ";
const std::string kLastClose =
    "f5/8 a5/8 c6/8 a5/8 | f#5/8 a5/8 d6/8 c6/8 | bb5/8 d6/8 c6/8 bb5/8 | a5/8 c6/8 ^f5/4_";
const std::string kLastA = kOpening + kLastClose;

const std::string kChords =
    "C7 | C7 | C7 | C7 | "
    "F | F | C7 | C7 | F | D7 | Gm C7 | C7 | "
    "F | F | C7 | C7 | F | D7 | Gm C7 | F | "
    "Bb | Bb | F7 | Bb | Eb | Bb | C7 | C7 | "
    "F | F | C7 | C7 | F | D7 | Gm C7 | F";

// Oom-pah: the brass on the off-beats, the tuba on the beats.
const std::string kOffBeats = "r/8 x/8 r/8 x/8 | ";
const std::string kBrass =
    "x/8 x/16 x/16 x/8 x/8 | ( r/8 x/8 r/8 x/8 | )*2 x/8 x/8 x/8 r/8 | "
    "( r/8 x/8 r/8 x/8 | )*16 "
    "v60 ( x/2_ | )*6 v72 ( r/8 x/8 r/8 x/8 | )*2 "
    "( r/8 x/8 r/8 x/8 | )*7 ^x/8 r/8 ^x/4_";
const std::string kTuba =
    "1/8 1/16 1/16 1/8 1/8 | ( 1/4 5/4 | )*2 1/8 1/8 1/8 r/8 | "
    "( 1/4 5/4 | )*6 1/4 1/4 | 1/4 5/4 | "
    "( 1/4 5/4 | )*6 1/4 1/4 | 1/4 5/4 | "
    "( 1/4 5/4 | )*7 c2/8 d2/8 e2/4 | "
    "( 1/4 5/4 | )*6 1/4 1/4 | ^1/8 r/8 ^1/4_";

// A march on the bass drum and snare, the crash at the head of each phrase.
const std::string kPhrase =
    "bd+cr/8 sn/8 bd/8 sn/8 | bd/8 sn/8 bd/8 sn/16 sn | bd/8 sn/8 bd/8 sn/8 | bd/8 sn/8 bd/8 sn/16 sn | ";
const std::string kPhraseToFill =
    "bd+cr/8 sn/8 bd/8 sn/8 | bd/8 sn/8 bd/8 sn/16 sn | bd/8 sn/8 bd/8 sn/8 | bd/8 sn/16 sn ^bd+sn/8 sn/16 sn | ";
const std::string kDrums =
    "^bd+cr/8 sn/16 sn bd+sn/8 bd+sn/8 | bd/8 sn/8 bd/8 sn/8 | bd/8 sn/8 bd/8 sn/16 sn | "
    "bd+sn/8 bd+sn/8 bd+sn/8 sn/16 sn | " +
    kPhrase + kPhraseToFill + kPhrase + kPhraseToFill +
    "bd+cr/8 rim/8 bd/8 rim/8 | ( bd/8 rim/8 bd/8 rim/8 | )*3 bd+cr/8 rim/8 bd/8 rim/8 | ( bd/8 rim/8 bd/8 rim/8 | )*2 "
    "sn/16 sn sn sn ^sn ^sn ^sn ^sn | " +
    kPhrase + "bd+cr/8 sn/8 bd/8 sn/8 | bd/8 sn/8 bd/8 sn/16 sn | bd/8 sn/16 sn ^bd+sn/8 sn/16 sn | "
    "^bd+cr/8 sn/8 ^bd+cr/4_";

}  // namespace

Tune Circus() {
    Tune tune;
    tune.fileName = "Circus.mid";
    tune.title = "Circus";
    tune.meter = {2, 4};
    tune.keySharps = -1;
    tune.tempo = {{0, 144}};
    tune.chords = kChords;

    Voice trumpet{"Trumpet", 0, 56, 112, 58, 40, 100, 0.8};
    trumpet.notes = kFanfare + kOpening + kHalfClose + kOpening + kFullClose + kTrio + kLastA;

    Voice glockenspiel{"Glockenspiel", 1, 9, 100, 76, 40, 100, 0.8};
    glockenspiel.notes = "( r/2 | )*28 o1 " + kLastA;

    Voice brass{"Brass", 2, 61, 100, 78, 40, 80, 0.5};
    brass.low = 53;  // F3
    brass.high = 70; // Bb4
    brass.notes = kBrass;

    Voice tuba{"Tuba", 3, 58, 108, 60, 30, 96, 0.55};
    tuba.low = 33;  // A1
    tuba.notes = kTuba;

    Voice drums{"Drums", kPercussionChannel, 0, 92, 64, 40, 80, 0.5};
    drums.notes = kDrums;

    tune.voices = {trumpet, glockenspiel, brass, tuba, drums};
    return tune;
}

}  // namespace tunes
