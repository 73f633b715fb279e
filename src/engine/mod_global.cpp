#include "engine/mod_global.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>

namespace modGlobal {

std::int32_t glUserId = 0;
std::int32_t glLastUserId = 0;
std::string gsUserName;
std::string gsOpponent1;
std::string gsOpponent2;
std::string gsOpponent3;
std::string gsSkillLevel;
std::int16_t giNumGames = 0;
std::int32_t glWinnings = 0;
std::int16_t giSkillLevel = 0;

std::string gsDbPath;
bool gbSoundOn = false;
bool gbAnimalsOn = false;
bool gbCopyLink = false;
bool gbMaximize = false;
std::int32_t glAnimSpeed = 0;

bool gbDbFailed = false;
bool gbDbSwitched = false;

std::string gsWinnerName;
std::string gsPotWon;
std::vector<std::string> gaScoresOne;
std::vector<std::string> gaScoresTwo;
std::vector<std::string> gaScoresThree;
std::vector<std::string> gaScoresUser;
bool gbUserWon = false;
std::array<Standing, 4> gaStanding;
std::int16_t giTopTenRow = 0;

std::string gsNoticeKey;
std::string gsNoticeCard;
std::string gsHelpFor;
std::string gsTitle;
std::string gsWordPadPath;

std::int32_t glRandomSeed = 0;

void ResetGlobals() {
    glUserId = glLastUserId = 0;
    gsUserName.clear();
    gsOpponent1.clear();
    gsOpponent2.clear();
    gsOpponent3.clear();
    gsSkillLevel.clear();
    giNumGames = 0;
    glWinnings = 0;
    giSkillLevel = 0;
    gsDbPath.clear();
    gbSoundOn = gbAnimalsOn = gbCopyLink = gbMaximize = false;
    glAnimSpeed = 0;
    gbDbFailed = gbDbSwitched = false;
    gsWinnerName.clear();
    gsPotWon.clear();
    gaScoresOne.clear();
    gaScoresTwo.clear();
    gaScoresThree.clear();
    gaScoresUser.clear();
    gbUserWon = false;
    gaStanding = {};
    giTopTenRow = 0;
    gsNoticeKey.clear();
    gsNoticeCard.clear();
    gsHelpFor.clear();
    gsTitle.clear();
    gsWordPadPath.clear();
    glRandomSeed = 0;
}

namespace {

// Milliseconds since an arbitrary start, wrapping at 32 bits like the
// desktop's millisecond clock.
std::int32_t TimeGetTime() {
    auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(
                  std::chrono::steady_clock::now().time_since_epoch())
                  .count();
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(ms));
}

class ClockDeckRandom : public DeckRandom {
public:
    void Randomize() override {
        engine_.seed(static_cast<std::uint64_t>(
            std::chrono::high_resolution_clock::now().time_since_epoch().count()));
    }
    double Rnd() override { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }

private:
    std::mt19937_64 engine_{0};
};

ClockDeckRandom gClockDeckRandom;
DeckRandom* gDeckSource = &gClockDeckRandom;

}  // namespace

constexpr std::int32_t kModulus = 2147483647;

std::int32_t SeedRandom() {
    // The absolute value of the clock, kept inside the generator's range.
    const std::int64_t now = TimeGetTime();
    glRandomSeed = static_cast<std::int32_t>(std::llabs(now) % kModulus);
    return glRandomSeed;
}

std::int32_t RandomInRange(std::int32_t a, std::int32_t b) {
    if (glRandomSeed == 0) SeedRandom();
    // The quotient is rounded to the nearest integer (ties to even), not
    // truncated as in the textbook form of this generator; the rounded form
    // is the one the game has always used.
    const std::int32_t q = static_cast<std::int32_t>(std::nearbyint(glRandomSeed / 44488.0));
    const std::int32_t r = glRandomSeed % 44488;
    std::int32_t x = 48271 * r - 3399 * q;
    if (x < 1) x += kModulus;
    glRandomSeed = x;
    if (a == 0 && b == kModulus) return x;
    if (a < b) return x % (b - a + 1) + a;
    return x % (a - b + 1) + b;
}

DeckRandom& DeckSource() { return *gDeckSource; }

void SetDeckSource(DeckRandom* source) { gDeckSource = source ? source : &gClockDeckRandom; }

void StackedDeckRandom::Randomize() {
    if (next_ > 0) stacked_ = true;
    next_ = 0;
}

// The shuffle draws position floor(Rnd() * 52) of the deck as it lies: the
// order's cards while stacking, then each position in turn.
double StackedDeckRandom::Rnd() {
    const int position = next_ % 52;
    ++next_;
    return ((stacked_ ? position : order_[position]) + 0.5) / 52;
}

std::optional<std::array<Card, 52>> ParseDeckOrder(const std::string& text) {
    std::array<Card, 52> order{};
    std::array<bool, 52> seen{};
    std::size_t count = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(',', start);
        if (end == std::string::npos) end = text.size();
        const std::string number = text.substr(start, end - start);
        start = end + 1;
        if (number.empty() || number.size() > 2 || count == 52 ||
            number.find_first_not_of("0123456789") != std::string::npos)
            return std::nullopt;
        const int card = std::stoi(number);
        if (card > 51 || seen[card]) return std::nullopt;
        seen[card] = true;
        order[count++] = static_cast<Card>(card);
    }
    if (count != 52) return std::nullopt;
    return order;
}

void ShuffleDeck(std::array<Card, 52>& deck) {
    const std::array<Card, 52> copy = deck;
    DeckRandom& source = DeckSource();
    source.Randomize();
    std::array<int, 52> drawn{};
    std::array<bool, 52> taken{};
    int count = 0;
    while (count < 52) {
        const int r = static_cast<int>(source.Rnd() * 52);
        if (r < 0 || r > 51 || taken[r]) continue;  // already drawn: discard and draw again
        taken[r] = true;
        drawn[count++] = r;
    }
    for (int i = 0; i < 52; ++i) deck[i] = copy[drawn[i]];
}

// The repeated minimum search of the original sort, done in one pass over the
// values: each position takes the smallest value above the one before it,
// and once no value is left above it, the search's start value 99.
void SortCards(std::vector<Card>& cards) {
    constexpr int kNone = 99;  // above any card
    std::uint64_t below64 = 0;  // values 0..63
    std::uint64_t from64 = 0;   // values 64..98
    for (Card c : cards) {
        if (c >= 0 && c < 64)
            below64 |= std::uint64_t{1} << c;
        else if (c >= 64 && c < kNone)
            from64 |= std::uint64_t{1} << (c - 64);
    }
    std::size_t i = 0;
    auto emit = [&](std::uint64_t bits, int base) {
        for (; bits != 0 && i < cards.size(); bits &= bits - 1)
            cards[i++] = static_cast<Card>(base + __builtin_ctzll(bits));
    };
    emit(below64, 0);
    emit(from64, 64);
    for (; i < cards.size(); ++i) cards[i] = kNone;
}

}  // namespace modGlobal

