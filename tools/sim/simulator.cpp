#include "simulator.h"

#include <algorithm>
#include <chrono>
#include <ostream>

#include "engine/game_state.h"

namespace {

// The deck's source seeded once from the run's seed, so that a run repeats
// (a xorshift generator: cheap, and plenty for shuffling).
class SeededDeckRandom : public modGlobal::DeckRandom {
public:
    explicit SeededDeckRandom(std::int32_t seed)
        : state_(0x9E3779B97F4A7C15ULL * static_cast<std::uint64_t>(seed)) {}
    void Randomize() override {}
    double Rnd() override {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        const std::uint64_t bits = state_ * 0x2545F4914F6CDD1DULL;
        return static_cast<double>(bits >> 11) * 0x1.0p-53;
    }

private:
    std::uint64_t state_;
};

// A table nobody looks at: the pause runs the tick at once, the forms of a
// hand's and a game's end answer by themselves, and the events are counted
// or traced.
class SimTable : public NullTable, public GameEvents {
public:
    SimTable(int games, std::ostream* trace) : gamesWanted_(games), trace_(trace) {}

    void Attach(Game* game) { game_ = game; }
    bool Finished() const { return finished_; }
    const SimResult& Result() const { return result_; }

    // --- Table ---
    void DoEvents() override { game_->tmrCount_Timer(); }
    void ShowGameOver() override {
        const std::array<int, 4> money{game_->miMoney0, game_->miMoney1, game_->miMoney2,
                                       game_->miMoney3};
        if (trace_)
            *trace_ << "GAME " << result_.games << ' ' << money[0] << ' ' << money[1] << ' '
                    << money[2] << ' ' << money[3] << '\n';
        const int best = *std::max_element(money.begin(), money.end());
        const auto tied = std::count(money.begin(), money.end(), best);
        for (int seat = 0; seat < 4; ++seat) {
            if (money[seat] == best) result_.seats[seat].wins += 1.0 / static_cast<double>(tied);
            result_.seats[seat].meanMoney += money[seat];  // a sum until the run ends
        }
        ++result_.games;
        modGlobal::gbUserWon = false;
        tag_ = result_.games < gamesWanted_ ? "YES" : "NO";
    }
    std::string UserTag() const override { return tag_; }
    void SetUserTag(const std::string& tag) override { tag_ = tag; }
    void Unload() override { finished_ = true; }

    // --- GameEvents ---
    void HandDealt() override {
        ++result_.hands;
        if (!trace_) return;
        *trace_ << "HAND " << result_.games << ' ' << game_->miHandNo << '\n';
        for (int seat = 0; seat < 4; ++seat) {
            *trace_ << "DEAL " << seat;
            for (Card c : game_->Hand(seat)) *trace_ << ' ' << c;
            *trace_ << '\n';
        }
    }
    void CardLaid(int seat, Card card) override {
        if (trace_) *trace_ << "PLAY " << seat << ' ' << card << '\n';
    }
    void SeatSkipped(int seat) override {
        if (trace_) *trace_ << "SKIP " << seat << '\n';
    }
    void PotPaid(int seat) override {
        if (trace_) *trace_ << "PAY " << seat << '\n';
    }
    void HandWon(int seat, int potTaken) override {
        ++result_.seats[seat].handsWon;
        if (trace_)
            *trace_ << "OUT " << seat << ' ' << potTaken << ' ' << game_->miMoney0 << ' '
                    << game_->miMoney1 << ' ' << game_->miMoney2 << ' ' << game_->miMoney3
                    << '\n';
    }

private:
    Game* game_ = nullptr;
    int gamesWanted_;
    std::ostream* trace_;
    SimResult result_;
    std::string tag_;
    bool finished_ = false;
};

// Seat 3 moves where the human would, with the computer's routine: the Seven
// of Hearts before the opening, afterwards a card or the pot.
void MoveSeatThree(Game& game, std::int16_t routine) {
    auto indexOf = [&game](Card card) {
        const auto it = std::find(game.maHand3.begin(), game.maHand3.end(), card);
        return static_cast<std::size_t>(it - game.maHand3.begin());
    };
    if (!game.mbHandOpened) {
        game.PlayUserCard(indexOf(kSevenOfHearts));
    } else if (game.CollectCandidates(game.maHand3)) {
        game.PlayUserCard(indexOf(game.ChooseCard(game.maHand3, routine)));
    } else {
        game.cmdUser_Click();
    }
}

}  // namespace

SimResult RunSimulation(const SimOptions& options, std::ostream* trace) {
    modGlobal::ResetGlobals();
    modGlobal::gsOpponent1 = "Player 1";
    modGlobal::gsOpponent2 = "Player 2";
    modGlobal::gsOpponent3 = "Player 3";
    modGlobal::gsUserName = "Player 4";
    std::optional<SeededDeckRandom> seededDeck;
    if (options.seed) {
        modGlobal::glRandomSeed = *options.seed;
        seededDeck.emplace(*options.seed);
        modGlobal::SetDeckSource(&*seededDeck);
    }
    std::optional<modGlobal::StackedDeckRandom> stackedDeck;
    if (options.deal) {
        stackedDeck.emplace(*options.deal);
        modGlobal::SetDeckSource(&*stackedDeck);
    }

    SimTable table(options.games, trace);
    Game game(table);
    table.Attach(&game);
    game.SetEvents(&table);
    game.SetSeatRoutines(options.routines);

    const auto start = std::chrono::steady_clock::now();
    if (options.games > 0) {
        game.StartGame(true);
        while (!table.Finished() && game.mbUserTurn) MoveSeatThree(game, options.routines[3]);
    }
    const auto end = std::chrono::steady_clock::now();
    modGlobal::SetDeckSource(nullptr);

    SimResult result = table.Result();
    result.seconds = std::chrono::duration<double>(end - start).count();
    for (SeatSummary& seat : result.seats)
        if (result.games > 0) seat.meanMoney /= result.games;
    return result;
}
