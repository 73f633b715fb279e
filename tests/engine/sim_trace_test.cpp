// The simulator's trace, replayed by a referee that knows only the rules of
// the game: every move is legal and in turn, every payment is due, and the
// money of every hand and game is right.
#include <gtest/gtest.h>

#include <array>
#include <bitset>
#include <sstream>

#include "simulator.h"

namespace {

class Referee {
public:
    int handsSeen = 0;
    int gamesSeen = 0;

    void Line(const std::string& line) {
        std::istringstream in(line);
        std::string word;
        in >> word;
        std::vector<int> v;
        for (int x; in >> x;) v.push_back(x);
        if (word == "HAND") Hand(v);
        else if (word == "DEAL") Deal(v);
        else if (word == "SKIP") Skip(v.at(0));
        else if (word == "PLAY") Play(v.at(0), v.at(1));
        else if (word == "PAY") Pay(v.at(0));
        else if (word == "OUT") Out(v);
        else if (word == "GAME") Game(v);
        else FAIL() << "unknown line " << line;
    }

private:
    std::array<std::bitset<52>, 4> hands_;
    std::array<int, 4> left_{};
    std::array<int, 4> money_{};
    std::bitset<52> table_;
    int pot_ = 0;
    int next_ = 0;
    int handsInGame_ = 0;
    bool opened_ = false;

    void Hand(const std::vector<int>& v) {
        ++handsSeen;
        if (v.at(1) == 0) {
            money_.fill(200);
            pot_ = 0;
            handsInGame_ = 0;
        }
        ++handsInGame_;
        for (int& m : money_) m -= 5;
        pot_ += 20;
        table_.reset();
        left_.fill(13);
        opened_ = false;
        next_ = 0;
    }
    void Deal(const std::vector<int>& v) {
        ASSERT_EQ(v.size(), 14u);
        hands_[v[0]].reset();
        for (std::size_t i = 1; i < v.size(); ++i) hands_[v[0]].set(v[i]);
        ASSERT_EQ(hands_[v[0]].count(), 13u);
    }
    bool Legal(int card) const {
        if (!opened_) return card == 26;
        if (card >= 24 && card <= 27) return true;
        const bool below = card + 4 <= 51 && table_[card + 4];
        const bool above = card - 4 >= 0 && table_[card - 4];
        return !table_[card] && (below || above);
    }
    bool CanLay(int seat) const {
        for (int c = 0; c < 52; ++c)
            if (hands_[seat][c] && Legal(c)) return true;
        return false;
    }
    void Turn(int seat) {
        ASSERT_EQ(seat, next_) << "out of turn";
        next_ = (seat + 1) % 4;
    }
    void Skip(int seat) {
        Turn(seat);
        EXPECT_FALSE(opened_);
        EXPECT_FALSE(hands_[seat][26]);
    }
    void Play(int seat, int card) {
        Turn(seat);
        ASSERT_TRUE(hands_[seat][card]) << "seat " << seat << " lays " << card << " it doesn't hold";
        ASSERT_TRUE(Legal(card)) << "seat " << seat << " lays " << card << " illegally";
        hands_[seat].reset(card);
        table_.set(card);
        opened_ = true;
        --left_[seat];
    }
    void Pay(int seat) {
        Turn(seat);
        EXPECT_TRUE(opened_);
        EXPECT_FALSE(CanLay(seat)) << "seat " << seat << " pays though it could lay a card";
        money_[seat] -= 5;
        pot_ += 5;
    }
    void Out(const std::vector<int>& v) {
        const int winner = v.at(0);
        ASSERT_EQ(left_[winner], 0);
        for (int seat = 0; seat < 4; ++seat) {
            if (seat == winner) continue;
            money_[seat] -= 5 * left_[seat];
            pot_ += 5 * left_[seat];
        }
        EXPECT_EQ(v.at(1), pot_);
        money_[winner] += pot_;
        pot_ = 0;
        for (int seat = 0; seat < 4; ++seat) EXPECT_EQ(v.at(2 + seat), money_[seat]);
    }
    void Game(const std::vector<int>& v) {
        ++gamesSeen;
        bool broke = false;
        for (int seat = 0; seat < 4; ++seat) {
            EXPECT_EQ(v.at(1 + seat), money_[seat]);
            broke = broke || money_[seat] < 1;
        }
        EXPECT_TRUE(handsInGame_ == 4 || broke);
        EXPECT_EQ(money_[0] + money_[1] + money_[2] + money_[3], 800);
    }
};

std::string Trace(const SimOptions& options) {
    std::ostringstream out;
    RunSimulation(options, &out);
    return out.str();
}

}  // namespace

TEST(Simulator, EveryMoveOfATraceIsLegalAndEveryDollarAccountedFor) {
    for (auto routines : {std::array<std::int16_t, 4>{0, 0, 0, 0},
                          std::array<std::int16_t, 4>{2, 1, 0, 2}}) {
        SimOptions options;
        options.games = 25;
        options.seed = 12345;
        options.routines = routines;
        Referee referee;
        std::istringstream trace(Trace(options));
        int lines = 0;
        for (std::string line; std::getline(trace, line); ++lines) {
            referee.Line(line);
            if (::testing::Test::HasFatalFailure()) FAIL() << "at line " << lines << ": " << line;
        }
        EXPECT_EQ(referee.gamesSeen, 25);
        EXPECT_GE(referee.handsSeen, 25);
        EXPECT_GT(lines, 25 * 50);
    }
}

TEST(Simulator, ASeedRepeatsARunExactly) {
    SimOptions options;
    options.games = 10;
    options.seed = 777;
    const std::string first = Trace(options);
    EXPECT_EQ(Trace(options), first);
    options.seed = 778;
    EXPECT_NE(Trace(options), first);
}

TEST(Simulator, SummaryCountsGamesHandsAndMoney) {
    SimOptions options;
    options.games = 50;
    options.seed = 99;
    const SimResult r = RunSimulation(options, nullptr);
    EXPECT_EQ(r.games, 50);
    double wins = 0, money = 0;
    long handsWon = 0;
    for (const SeatSummary& s : r.seats) {
        wins += s.wins;
        money += s.meanMoney;
        handsWon += s.handsWon;
    }
    EXPECT_DOUBLE_EQ(wins, 50.0);  // ties are split, so the wins add up to the games
    EXPECT_NEAR(money, 800.0, 1e-9);
    EXPECT_EQ(handsWon, r.hands);
}
