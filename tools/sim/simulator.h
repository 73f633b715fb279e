// Plays whole games with the engine's own code and no screen: the three
// computer seats as in the program, and seat 3, where the human would move,
// by the same computer routine through the human's own moves.
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <optional>

struct SimOptions {
    int games = 1000;
    std::optional<std::int32_t> seed;  // 1 .. 2147483646; none: both sources from the clock
    std::array<std::int16_t, 4> routines{0, 0, 0, 0};  // 0 Easy, 1 Medium, 2 Hard
    std::optional<std::array<std::int16_t, 52>> deal;  // a stacked deck, dealt every hand
};

struct SeatSummary {
    double wins = 0;  // a tie for the most money splits that game among the tied seats
    long handsWon = 0;
    double meanMoney = 0;
};

struct SimResult {
    int games = 0;
    long hands = 0;
    double seconds = 0;
    std::array<SeatSummary, 4> seats{};
};

// With a trace stream, one line is written there for each event of the play.
SimResult RunSimulation(const SimOptions& options, std::ostream* trace);
