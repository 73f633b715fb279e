// Reading the small forms in tests: the texts and colours of their labels,
// and the sound effects they play; and showing a form as the user sees it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <QLabel>
#include <QTest>

#include "sound/mod_sound_lib.h"

using Strings = std::vector<std::string>;

inline QColor TextColour(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

// The texts of labels or boxes.
template <typename Widgets>
Strings Texts(const Widgets& widgets) {
    Strings texts;
    for (const auto* widget : widgets) texts.push_back(widget->text().toStdString());
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

// Shows the form as the active window and lets its activation run.
inline void ShowActive(QWidget& form) {
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QCoreApplication::processEvents();
}
