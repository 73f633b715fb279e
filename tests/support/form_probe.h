// Reading the small forms in tests: the texts and colours of their labels,
// and the sound effects they play.
#pragma once

#include <string>
#include <vector>

#include <QLabel>

#include "sound/mod_sound_lib.h"

using Strings = std::vector<std::string>;

inline QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

template <typename Labels>
Strings Texts(const Labels& labels) {
    Strings texts;
    for (const QLabel* label : labels) texts.push_back(label->text().toStdString());
    return texts;
}

// The keys of the sound effects played while it lives.
class SoundKeys {
public:
    SoundKeys() {
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { keys.push_back(key); });
    }
    ~SoundKeys() { modSoundLib::SetKeyObserver(nullptr); }
    SoundKeys(const SoundKeys&) = delete;
    SoundKeys& operator=(const SoundKeys&) = delete;

    Strings keys;
};
