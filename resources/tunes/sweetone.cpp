// "Sweetone": our own little waltz in G major, 3/4, quarter = 108, for the
// penguins. Two bars of music box arpeggio, then A A B A of four bars each:
// the music box sings the A strains, the flute takes the B strain in the
// relative minor's colours and stays for the last A an octave below. Slow
// strings hold the chords, pizzicato basses and a celesta keep the waltz,
// and a woodblock, shaker and triangle tick along softly. It ends on the
// tonic, from which the arpeggio starts again.
#include <string>

#include "tunes.h"

namespace tunes {
namespace {

const std::string kChords =
    "G | D7 | "
    "G | Am | D7 | G | "
    "G | Am | D7 | G | "
    "Em | C | Am | D7 | "
    "G | C | D7 | G";

const std::string kIntro = "d5/8 g5/8 b5/8 d6/8 b5/8 g5/8 | c6/8 a5/8 f#5/8 d5/8 f#5/8 a5/8 | ";
const std::string kFirstA =
    "b5/4 d6/8 b5/8 g5/4 | a5/4 c6/8 a5/8 e5/4 | f#5/4 a5/8 c6/8 b5/8 a5/8 | b5/2 d5/4 | ";
const std::string kSecondA =
    "b5/4 d6/8 b5/8 g5/4 | a5/4 c6/8 a5/8 e5/4 | d5/4 f#5/8 a5/8 c6/8 f#5/8 | g5/2. | ";
const std::string kB = "b5/4. a5/8 g5/4 | e6/4. d6/8 c6/4 | c6/4. b5/8 a5/4 | f#5/4 a5/4 c6/4 | ";
const std::string kLastA = "b5/4 d6/8 b5/8 g5/4 | c6/4 e6/8 c6/8 g5/4 | f#5/4 a5/8 c6/8 b5/8 a5/8 | g5/2._";

const std::string kBar = "wbl/4 shk/8 shk shk shk | ";
const std::string kPhraseOfPercussion = "tri+wbl/4 shk/8 shk shk shk | " + kBar + kBar + kBar;

}  // namespace

Tune Sweetone() {
    Tune tune;
    tune.fileName = "sweetone.mid";
    tune.title = "Sweetone";
    tune.meter = {3, 4};
    tune.keySharps = 1;
    tune.tempo = {{0, 108}};
    tune.chords = kChords;

    Voice musicBox{"Music box", 0, 10, 108, 56, 50, 96, 0.95};
    musicBox.notes = kIntro + kFirstA + kSecondA + "( r/2. | )*4 " + kLastA;

    Voice flute{"Flute", 1, 73, 100, 70, 50, 88, 0.92};
    flute.notes = "( r/2. | )*10 " + kB + "v64 o-1 " + kLastA;

    Voice strings{"Strings", 2, 49, 76, 80, 60, 52, 1.0};
    strings.low = 52;   // E3
    strings.high = 69;  // A4
    strings.notes = "r/2. | ( x/2. | )*16 x/2.";

    Voice celesta{"Celesta", 3, 8, 70, 44, 50, 48, 0.7};
    celesta.low = 62;   // D4
    celesta.high = 74;  // D5
    celesta.notes = "( r/4 x/4 x/4 | )*17 r/4 x/2_";

    Voice bass{"Pizzicato", 4, 45, 84, 64, 40, 72, 0.9};
    bass.low = 40;  // E2
    bass.notes = "( 1/4 r/4 5/4 | )*17 1/2._";

    Voice percussion{"Percussion", kPercussionChannel, 0, 84, 64, 40, 60, 0.5};
    percussion.notes = "tri/4 r/2 | r/2 shk/8 shk | " + kPhraseOfPercussion + kPhraseOfPercussion +
                       kPhraseOfPercussion + "tri+wbl/4 shk/8 shk shk shk | " + kBar + kBar + "tri/2._";

    tune.voices = {musicBox, flute, strings, celesta, bass, percussion};
    return tune;
}

}  // namespace tunes
