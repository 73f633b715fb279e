// Message boxes as the user saw them, from what a ScriptedResponder recorded.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "platform/runtime/msgbox.h"

struct Box {
    std::string title;
    int style;
    std::string text;

    bool operator==(const Box& o) const { return std::tie(title, style, text) == std::tie(o.title, o.style, o.text); }
};

inline std::ostream& operator<<(std::ostream& out, const Box& box) {
    return out << box.title << " [" << box.style << "] " << ::testing::PrintToString(box.text);
}

inline std::vector<Box> BoxesOf(const platform::ScriptedResponder& responder) {
    std::vector<Box> boxes;
    for (const auto& box : responder.Boxes()) boxes.push_back({box.title, box.style, box.text});
    return boxes;
}
