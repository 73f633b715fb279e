// The top ten list: the rows as the program holds them, their loading from
// the table topten, and the main form's working copy in which a new score is
// placed before the table is rewritten as a whole.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace storage {

struct TopTenEntry {
    std::string name;
    std::int16_t score = 0;  // 0 marks a blank row
    std::string skilllevel;
    double date = 0;  // a date value
};

// Rows 0 to 9 are the list; row 10 is a spare that nothing fills but a table
// holding more than ten rows.
using TopTenRows = std::array<TopTenEntry, 11>;

// Reads the rows that `statement` selects from topten, in order, into rows 0,
// 1, 2 ...; the rows behind the last one read, up to row 9, become blank rows
// dated now. A failed open sets gbDbFailed; a failed select is told and leaves
// the rows as they were.
void LoadTopTenRows(TopTenRows& rows, const std::string& statement);

// The main form's copy of the list, maTopTen.
class TopTenList {
public:
    TopTenRows maTopTen;

    // Fills maTopTen from the table, best score first.
    void TopTenLoad();

    // Places gaStanding(0)'s funds: the first row with a strictly lower score
    // takes it and goes into giTopTenRow, the rows behind move down and row 9
    // falls off. False when no row qualifies (so 0 never enters).
    bool CheckHighScore();

    // Rewrites the table from rows 0 to 9, blank rows included.
    void TopTenSave();

    // The main form's fanfare for a score of $500 or more: CheckHighScore
    // runs it and goes on when it returns. Without one it goes on at once.
    void SetHighScoreFanfare(std::function<void()> fanfare) { highScoreFanfare_ = std::move(fanfare); }

private:
    std::function<void()> highScoreFanfare_;
};

}  // namespace storage
