// dovrin-sim: plays whole games without a screen and sums them up.
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "engine/mod_global.h"
#include "simulator.h"

namespace {

const char* const kUsage =
    "usage: dovrin-sim [--games N] [--seed S] [--routines R0,R1,R2,R3] [--deal C0,...,C51] [--json | --trace]\n"
    "  --games N     games to play (default 1000)\n"
    "  --seed S      1 to 2147483646: repeat a run exactly (default: from the clock)\n"
    "  --routines    each seat's choice routine, E, M or H (default E,E,E,E)\n"
    "  --deal        a stacked deck (card = rank * 4 + suit), dealt in turn from seat 0 in every hand\n"
    "  --json        the summary as one JSON object\n"
    "  --trace       one line per event instead of the summary\n";

[[noreturn]] void Fail(const std::string& message) {
    std::cerr << "dovrin-sim: " << message << "\n" << kUsage;
    std::exit(2);
}

long ParseNumber(const std::string& text, long low, long high, const char* what) {
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || value < low || value > high)
        Fail(std::string("bad ") + what + " '" + text + "'");
    return value;
}

char RoutineLetter(std::int16_t routine) { return "EMH"[routine]; }

std::array<std::int16_t, 4> ParseRoutines(const std::string& text) {
    std::array<std::int16_t, 4> routines{};
    std::istringstream in(text);
    std::string item;
    int seat = 0;
    while (std::getline(in, item, ',')) {
        if (seat == 4 || item.size() != 1) Fail("bad routines '" + text + "'");
        switch (item[0]) {
            case 'E': routines[seat] = 0; break;
            case 'M': routines[seat] = 1; break;
            case 'H': routines[seat] = 2; break;
            default: Fail("bad routine '" + item + "': use E, M or H");
        }
        ++seat;
    }
    if (seat != 4) Fail("--routines needs four letters, such as E,E,M,H");
    return routines;
}

void PrintJson(const SimResult& r, const SimOptions& options) {
    std::ostringstream out;
    out.precision(10);
    out << "{\"games\":" << r.games << ",\"hands\":" << r.hands << ",\"seconds\":" << r.seconds
        << ",\"hands_per_second\":" << (r.seconds > 0 ? r.hands / r.seconds : 0) << ",\"seats\":[";
    for (int seat = 0; seat < 4; ++seat) {
        const SeatSummary& s = r.seats[seat];
        out << (seat ? "," : "") << "{\"routine\":\"" << RoutineLetter(options.routines[seat])
            << "\",\"wins\":" << s.wins << ",\"hands_won\":" << s.handsWon
            << ",\"mean_money\":" << s.meanMoney << "}";
    }
    out << "]}\n";
    std::cout << out.str();
}

void PrintSummary(const SimResult& r, const SimOptions& options) {
    std::ostringstream out;
    out.setf(std::ios::fixed);
    out.precision(2);
    out << "seat  routine  games won  hands won  mean money\n";
    for (int seat = 0; seat < 4; ++seat) {
        const SeatSummary& s = r.seats[seat];
        out << seat << "     " << RoutineLetter(options.routines[seat]) << "        ";
        out.width(9);
        out << s.wins << "  ";
        out.width(9);
        out << s.handsWon << "  ";
        out.width(10);
        out << s.meanMoney << '\n';
    }
    out << "games: " << r.games << "\nhands: " << r.hands << "\nhands per second: "
        << (r.seconds > 0 ? r.hands / r.seconds : 0) << '\n';
    std::cout << out.str();
}

}  // namespace

int main(int argc, char** argv) {
    SimOptions options;
    bool json = false;
    bool trace = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= argc) Fail(arg + " needs a value");
            return argv[++i];
        };
        if (arg == "--games")
            options.games = static_cast<int>(ParseNumber(value(), 0, 100000000, "game count"));
        else if (arg == "--seed")
            options.seed = static_cast<std::int32_t>(ParseNumber(value(), 1, 2147483646, "seed"));
        else if (arg == "--routines")
            options.routines = ParseRoutines(value());
        else if (arg == "--deal") {
            options.deal = modGlobal::ParseDeckOrder(value());
            if (!options.deal) Fail("--deal needs the 52 cards 0 to 51, each once, separated by commas");
        }
        else if (arg == "--json")
            json = true;
        else if (arg == "--trace")
            trace = true;
        else if (arg == "--help" || arg == "-h") {
            std::cout << kUsage;
            return 0;
        } else
            Fail("unknown option '" + arg + "'");
    }
    if (json && trace) Fail("--json and --trace exclude each other");

    std::ios::sync_with_stdio(false);
    const SimResult result = RunSimulation(options, trace ? &std::cout : nullptr);
    if (json)
        PrintJson(result, options);
    else if (!trace)
        PrintSummary(result, options);
    return 0;
}
