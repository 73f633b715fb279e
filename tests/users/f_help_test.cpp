#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/display/pictures.h"
#include "platform/display/twips.h"
#include "sound/mod_sound_lib.h"
#include "users/f_help.h"

using platform::TwipsToPixels;

namespace {

class FHelpTest : public ::testing::Test {
protected:
    void SetUp() override {
        modGlobal::ResetGlobals();
        modSoundLib::SetKeyObserver([this](const std::string& key, bool) { sounds_.push_back(key); });
    }
    void TearDown() override { modSoundLib::SetKeyObserver(nullptr); }

    std::vector<std::string> sounds_;
};

TEST_F(FHelpTest, EachUserFormHasItsVariantAndEitherOkClicksAndCloses) {
    struct Variant {
        const char* helpFor;
        const char* caption;
        int width;
        bool okVisible;
        int picture;
        QSize pictureSize;
    };
    for (const Variant& variant : {Variant{"FUserName", "Choosing a Player Name", 4065, true, 102, QSize(271, 178)},
                                   Variant{"FUserEdit", "Add, Edit or Delete a Player Name", 6015, false, 103,
                                           QSize(401, 198)}}) {
        SCOPED_TRACE(variant.helpFor);
        modGlobal::gsHelpFor = variant.helpFor;
        FHelp form;
        form.show();
        EXPECT_EQ(form.windowTitle(), variant.caption);
        EXPECT_EQ(form.width(), TwipsToPixels(variant.width));
        EXPECT_EQ(form.cmdOK->isVisible(), variant.okVisible);
        EXPECT_TRUE(form.cmdOK2->isVisible());
        // The visible OK lies on the picture, within the form.
        QPushButton* ok = variant.okVisible ? form.cmdOK : form.cmdOK2;
        EXPECT_TRUE(form.rect().contains(ok->geometry()));
        // The explanation is the picture, shown from the top left.
        const QImage picture = platform::LoadResPicture(variant.picture, platform::vbResBitmap).toImage();
        EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(variant.pictureSize));
        const QRect text(0, 0, picture.width(), picture.height() / 2);
        EXPECT_EQ(form.grab().toImage().copy(text).convertToFormat(QImage::Format_ARGB32),
                  picture.copy(text).convertToFormat(QImage::Format_ARGB32));
        ok->click();
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(sounds_, (std::vector<std::string>{"BUTTONCLICK", "BUTTONCLICK"}));
}

TEST_F(FHelpTest, AnyOtherNameLeavesTheFormAsDesigned) {
    modGlobal::gsHelpFor = "FUserStats";
    FHelp form;
    EXPECT_EQ(form.windowTitle(), "Choosing a Player Name");
    EXPECT_EQ(form.width(), TwipsToPixels(4065));
    const QImage shown = form.grab().toImage();
    int pictured = 0;
    for (int y = 0; y < shown.height() / 2; ++y)
        for (int x = 0; x < shown.width(); ++x) pictured += shown.pixel(x, y) != shown.pixel(0, 0);
    EXPECT_EQ(pictured, 0);
}

}  // namespace
