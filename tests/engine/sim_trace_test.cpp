// The simulator's trace, replayed by a referee that knows only the rules of
// the game: every deal is the whole deck, every move is legal and in turn,
// every payment is due, the money of every hand is right, and a game ends
// after four hands or after a hand that leaves someone below $1.
#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <sstream>
#include <utility>

#include "simulator.h"

namespace {

class Referee {
public:
    int hands = 0, games = 0;

    void Line(const std::string& line) {
        std::istringstream in(line);
        std::string word;
        in >> word;
        std::vector<int> v;
        for (int x; in >> x;) v.push_back(x);
        const int seat = v.at(0);
        if (word == "HAND") return Hand(v.at(1));
        if (word == "DEAL") {
            ASSERT_EQ(v.size(), 14u);
            held_[seat].reset();
            for (std::size_t i = 1; i < v.size(); ++i) held_[seat].set(v[i]);
            ASSERT_TRUE(seat < 3 || (held_[0] | held_[1] | held_[2] | held_[3]).all());
            return;
        }
        if (word == "OUT") return Out(seat, v);
        if (word == "GAME") {
            ++games;
            EXPECT_EQ(std::vector<int>(v.begin() + 1, v.end()), money_);
            EXPECT_TRUE(handNo_ == 3 || Broke()) << "a game ends after hand " << handNo_;
            return;
        }
        ASSERT_EQ(seat, next_) << "out of turn";
        next_ = (seat + 1) % 4;
        if (word == "SKIP") {
            EXPECT_FALSE(opened_ || held_[seat][26]) << "seat " << seat << " skips";
        } else if (word == "PAY") {
            EXPECT_TRUE(opened_ && !CanLay(seat)) << "seat " << seat << " pays though it may lay";
            Pay(seat, 5);
        } else {
            const int card = v.at(1);
            ASSERT_TRUE(word == "PLAY" && held_[seat][card] && Legal(card)) << line;
            held_[seat].reset(card);
            table_.set(card);
            opened_ = true;
        }
    }

private:
    std::array<std::bitset<52>, 4> held_;
    std::bitset<52> table_;
    std::vector<int> money_ = std::vector<int>(4);
    int pot_ = 0, next_ = 0, handNo_ = 0;
    bool opened_ = false;

    bool Broke() const { return *std::min_element(money_.begin(), money_.end()) < 1; }
    bool Legal(int card) const {
        if (!opened_) return card == 26;
        return (card >= 24 && card <= 27) || (card >= 4 && table_[card - 4]) ||
               (card <= 47 && table_[card + 4]);
    }
    bool CanLay(int seat) const {
        for (int c = 0; c < 52; ++c)
            if (held_[seat][c] && Legal(c)) return true;
        return false;
    }
    void Pay(int seat, int amount) {
        money_[seat] -= amount;
        pot_ += amount;
    }
    void Hand(int handNo) {
        ++hands;
        if (handNo == 0) {
            money_.assign(4, 200);
            pot_ = 0;
        } else {
            ASSERT_TRUE(handNo == handNo_ + 1 && handNo <= 3 && !Broke()) << "hand " << handNo;
        }
        handNo_ = handNo;
        for (int seat = 0; seat < 4; ++seat) Pay(seat, 5);
        table_.reset();
        opened_ = false;
        next_ = 0;
    }
    // The cards still held are what the losers pay for.
    void Out(int winner, const std::vector<int>& v) {
        ASSERT_TRUE(held_[winner].none());
        for (int seat = 0; seat < 4; ++seat) Pay(seat, 5 * static_cast<int>(held_[seat].count()));
        EXPECT_EQ(v.at(1), pot_);
        money_[winner] += std::exchange(pot_, 0);
        EXPECT_EQ(std::vector<int>(v.begin() + 2, v.end()), money_);
    }
};

}  // namespace

TEST(Simulator, EveryMoveOfATraceIsLegalAndEveryDollarAccountedFor) {
    for (auto routines : {std::array<std::int16_t, 4>{0, 0, 0, 0}, {2, 1, 0, 2}}) {
        SimOptions options{40, 12345, routines, std::nullopt};
        SCOPED_TRACE(testing::Message() << "seed 12345, routines " << routines[0] << routines[1]
                                        << routines[2] << routines[3]);
        SimResult result;
        auto trace = [&options, &result] {
            std::ostringstream out;
            result = RunSimulation(options, &out);
            return out.str();
        };
        const std::string text = trace();
        EXPECT_EQ(trace(), text);  // a seed repeats a run exactly
        std::istringstream lines(text);
        Referee referee;
        for (std::string line; std::getline(lines, line);) {
            referee.Line(line);
            if (testing::Test::HasFatalFailure()) FAIL() << "at " << line;
        }
        EXPECT_EQ(referee.games, 40);
        EXPECT_EQ(referee.hands, result.hands);
        // Ties for the most money are split, so the wins add up to the games.
        double wins = 0, money = 0;
        long handsWon = 0;
        for (const SeatSummary& s : result.seats)
            wins += s.wins, money += s.meanMoney, handsWon += s.handsWon;
        EXPECT_DOUBLE_EQ(wins, 40);
        EXPECT_NEAR(money, 800, 1e-9);
        EXPECT_EQ(handsWon, result.hands);
        options.seed = 12346;
        EXPECT_NE(trace(), text);
    }
}
