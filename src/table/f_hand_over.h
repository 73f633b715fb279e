// FHandOver: the standings after each hand, one row per hand of the game.
// Shown modally; each hand builds a fresh form.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/display/art_dialog.h"
#include "platform/display/platform_timer.h"

class QLabel;
class QPushButton;

class FHandOver : public platform::ArtDialog {
    Q_OBJECT
public:
    explicit FHandOver(QWidget* parent = nullptr);

    // The player who leads after the last hand, 0..3; the later player wins
    // a tie, and 0 stands when everyone is below 0.
    std::int16_t GetHighScore() const;

    QLabel* lblWinner;
    QLabel* lblTotPot;
    std::array<QLabel*, 4> lblPlayer;
    std::vector<QLabel*> lblScoreOne;
    std::vector<QLabel*> lblScoreTwo;
    std::vector<QLabel*> lblScoreThree;
    std::vector<QLabel*> lblScoreUser;
    QPushButton* cmdOK;
    platform::PlatformTimer tmrScore;

private:
    std::array<std::vector<QLabel*>*, 4> ScoreColumns();
    QLabel* NewScoreLabel(int column, int top);
    void Form_Load();
    void tmrScore_Timer();

    bool mbSoundPlayed = false;
};
