// The main form as the layers below it see it, registered in goMainForm
// while it lives: it gives them the money captions set here and records
// what they tell it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "link/main_form_link.h"

class RecordingMainForm : public MainFormLink {
public:
    RecordingMainForm() { modGlobal::goMainForm = this; }
    ~RecordingMainForm() override { modGlobal::goMainForm = nullptr; }
    RecordingMainForm(const RecordingMainForm&) = delete;
    RecordingMainForm& operator=(const RecordingMainForm&) = delete;

    void ShowOptionPair(OptionPair pair, bool on) override {
        const auto first = static_cast<std::size_t>(pair);
        menus.at(first) = !on;
        menus.at(first + 1) = on;
    }
    bool MusicEnabled() const override { return music; }
    void SetMusicEnabled(bool enabled) override { music = enabled; }
    int WindowState() const override { return windowState; }
    void SetWindowState(int state) override { windowState = state; }

    std::string UserTag() const override { return tag; }
    void SetUserTag(const std::string& value) override { tag = value; }
    void SetPlayerName(int seat, const std::string& name) override { playerNames.at(seat) = name; }
    std::string MoneyCaption(int seat) const override { return money.at(seat); }
    void SetWinningsCaption(const std::string& caption) override { winningsCaption = caption; }
    void SetTopMenusEnabled(bool) override {}
    bool HighScoreVisible() const override { return false; }
    void HideHighScore() override {}
    void StopFanfareTune() override {}
    void ChangeUser(bool pbFirst) override { changeUserCalls.push_back(pbFirst); }

    // The option menu's entries: shown, hidden, or nullopt while untouched.
    std::array<std::optional<bool>, 7> menus;
    bool music = true;
    int windowState = -1;
    std::string tag;
    std::array<std::string, 4> money;
    std::array<std::string, 4> playerNames;
    std::string winningsCaption;
    std::vector<bool> changeUserCalls;
};
