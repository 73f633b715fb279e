#include <string>

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/twips.h"
#include "table/f_message.h"

using platform::TwipsToPixels;

namespace {

struct Notice {
    const char* key;
    const char* first;
    const char* second;
    int formWidth;
    int buttonLeft;
};

class FMessageByKey : public ::testing::TestWithParam<Notice> {
protected:
    void SetUp() override {
        modGlobal::ResetGlobals();
        modGlobal::gsNoticeCard = "Seven of Clubs";
    }
};

}  // namespace

TEST_P(FMessageByKey, ShowsTheKeysLinesAtItsWidth) {
    const Notice& notice = GetParam();
    modGlobal::gsNoticeKey = notice.key;
    FMessage form;
    EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin");
    EXPECT_EQ(form.lblMessage[0]->text().toStdString(), notice.first);
    EXPECT_EQ(form.lblMessage[1]->text().toStdString(), notice.second);
    EXPECT_EQ(form.width(), TwipsToPixels(notice.formWidth));
    EXPECT_EQ(form.cmdMessage->x(), TwipsToPixels(notice.buttonLeft));
    EXPECT_EQ(form.cmdMessage->text(), "&OK");
}

INSTANTIATE_TEST_SUITE_P(
    Keys, FMessageByKey,
    ::testing::Values(
        Notice{"NOCARD", "You do not have any cards", "to play, so pay the pot!", 3180, 960},
        Notice{"WRONGCRD", "You cannot play this card!", "", 3180, 960},
        Notice{"MUSTPLAY", "You MUST play the", "Seven of Hearts!", 2820, 720},
        Notice{"CANPLAY1", "You can play the", "Seven of Clubs!", 2820, 720},
        Notice{"CANPLAY2", "You have several", "cards you can play!", 2820, 720},
        Notice{"", "You cannot play this card! ", "", 2820, 720}),
    [](const ::testing::TestParamInfo<Notice>& info) {
        return *info.param.key ? std::string(info.param.key) : std::string("NoKey");
    });

TEST(FMessage, OkClosesTheNotice) {
    modGlobal::ResetGlobals();
    modGlobal::gsNoticeKey = "WRONGCRD";
    FMessage form;
    form.show();
    form.cmdMessage->click();
    EXPECT_FALSE(form.isVisible());
}

TEST(FMessage, LinesFitTheirLabels) {
    modGlobal::ResetGlobals();
    for (const char* key : {"NOCARD", "MUSTPLAY", "CANPLAY1", "CANPLAY2"}) {
        modGlobal::gsNoticeKey = key;
        modGlobal::gsNoticeCard = "Queen of Diamonds";
        FMessage form;
        for (QLabel* label : form.lblMessage)
            EXPECT_LE(label->sizeHint().width(), label->width())
                << key << ": " << label->text().toStdString();
    }
}
