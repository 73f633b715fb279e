#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "users/f_help.h"

namespace {

TEST(FHelpTest, EachUserFormHasItsVariantAndAnyOtherNameLeavesTheFormAsDesigned) {
    for (const auto& [helpFor, looks] : std::vector<std::pair<const char*, QString>>{
             {"FUserName", "Choosing a Player Name, OK, picture"},
             {"FUserEdit", "Add, Edit or Delete a Player Name, picture"},
             {"FUserStats", "Choosing a Player Name, OK"}}) {
        modGlobal::gsHelpFor = helpFor;
        FHelp form;
        // Anything but the paper in the upper half is the picture.
        const QImage upper = form.grab().toImage().copy(0, 0, form.width(), form.height() / 2);
        QImage paper(upper.size(), upper.format());
        paper.fill(upper.pixel(0, 0));
        EXPECT_EQ(form.windowTitle() + (form.cmdOK->isVisibleTo(&form) ? ", OK" : "") +
                      (upper != paper ? ", picture" : ""),
                  looks);
    }
}

}  // namespace
