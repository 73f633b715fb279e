// The main form as the dialogs see it, registered in goMainForm while it
// lives: it gives them the money captions set here and records what they
// tell it.
#pragma once

#include <array>
#include <string>

#include "table/main_form_link.h"

class RecordingMainForm : public MainFormLink {
public:
    RecordingMainForm() { modGlobal::goMainForm = this; }
    ~RecordingMainForm() override { modGlobal::goMainForm = nullptr; }
    RecordingMainForm(const RecordingMainForm&) = delete;
    RecordingMainForm& operator=(const RecordingMainForm&) = delete;

    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& value) override { tag = value; }
    void SetPlayerName(int seat, const std::string& name) override { playerNames.at(seat) = name; }
    std::string MoneyCaption(int seat) const override { return money.at(seat); }
    void SetWinningsCaption(const std::string& caption) override { winningsCaption = caption; }
    void SetTopMenusEnabled(bool) override {}
    bool HighScoreVisible() const override { return false; }
    void HideHighScore() override {}
    QWidget* MusicOwner() override { return nullptr; }

    std::string tag;
    std::array<std::string, 4> money;
    std::array<std::string, 4> playerNames;
    std::string winningsCaption;
};
