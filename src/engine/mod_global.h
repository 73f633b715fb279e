// modGlobal: the globals the whole program shares, and the small procedures
// of the engine that live beside them. No Qt here: the engine, the storage
// and the forms all include this header. Procedures of modGlobal that need
// the desktop live with the layer that has it (CenterForm in the platform's
// display, SetMenusEnabled beside the main form's link in link/).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/cards.h"

namespace modGlobal {

// --- the current user -------------------------------------------------------
extern std::int32_t glUserId;
extern std::int32_t glLastUserId;  // the user to preselect, as read from the settings file
extern std::string gsUserName;
extern std::string gsOpponent1;
extern std::string gsOpponent2;
extern std::string gsOpponent3;
extern std::string gsSkillLevel;  // "Easy", "Medium" or "Hard"; shown and stored only
extern std::int16_t giNumGames;
extern std::int32_t glWinnings;

// The selector of the computer's choice routine. Nothing in the program ever
// assigns it, so it stays 0 and the easy routine makes every choice; this is
// deliberate and keeps the game as it has always played.
extern std::int16_t giSkillLevel;

// --- options ----------------------------------------------------------------
extern std::string gsDbPath;
extern bool gbSoundOn;
extern bool gbAnimalsOn;
extern bool gbCopyLink;
extern bool gbMaximize;
extern std::int32_t glAnimSpeed;  // counts of the wait between two positions of a flight

// --- the database's failure protocol ---------------------------------------
extern bool gbDbFailed;
extern bool gbDbSwitched;

// --- the game in progress and its end ---------------------------------------
extern std::string gsWinnerName;
extern std::string gsPotWon;
extern std::vector<std::string> gaScoresOne;
extern std::vector<std::string> gaScoresTwo;
extern std::vector<std::string> gaScoresThree;
extern std::vector<std::string> gaScoresUser;
extern bool gbUserWon;

struct Standing {
    std::string name;
    std::int16_t funds = 0;
};
extern std::array<Standing, 4> gaStanding;
extern std::int16_t giTopTenRow;  // row of a new score, 99 when the list was opened from the menu

// --- notices, help, titles --------------------------------------------------
extern std::string gsNoticeKey;
extern std::string gsNoticeCard;
extern std::string gsHelpFor;
extern std::string gsTitle;
extern std::string gsWordPadPath;  // set at start-up and read by nothing

// --- the program's random numbers -------------------------------------------
extern std::int32_t glRandomSeed;

// Seeds the generator from the millisecond clock; gives the seed.
std::int32_t SeedRandom();

// A number between a and b, both inclusive, in either order, from the
// program's own multiplicative generator.
std::int32_t RandomInRange(std::int32_t a, std::int32_t b);

// The uniform source of the deck: a value in [0,1), reseeded from the clock
// before each shuffle. A fixed seed makes it repeatable (tests, simulator).
class DeckRandom {
public:
    virtual ~DeckRandom() = default;
    virtual void Randomize() = 0;  // reseed from the clock
    virtual double Rnd() = 0;      // next value in [0,1)
};
DeckRandom& DeckSource();
void SetDeckSource(DeckRandom* source);  // nullptr restores the clock-seeded source

// A stacked deck, to play a deal again: the first shuffle of a game's fresh
// deck (cards 0 to 51 in order) lays the cards in the given order, and every
// later shuffle leaves them as they lie, so every hand deals the same.
class StackedDeckRandom : public DeckRandom {
public:
    explicit StackedDeckRandom(const std::array<Card, 52>& order) : order_(order) {}
    void Randomize() override;
    double Rnd() override;

private:
    std::array<Card, 52> order_;
    bool stacked_ = false;  // the first shuffle is over
    int next_ = 0;
};

// A deck order as 52 card numbers separated by commas, each card once;
// nullopt for anything else.
std::optional<std::array<Card, 52>> ParseDeckOrder(const std::string& text);

// Permutes the 52 cards in place by one pass of rejection sampling.
void ShuffleDeck(std::array<Card, 52>& deck);

// Sorts ascending in place by repeated minimum search; values must be distinct.
void SortCards(std::vector<Card>& cards);

// Puts every global back to the value it has when the program starts.
void ResetGlobals();

}  // namespace modGlobal
