#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "platform/display/twips.h"
#include "table/f_message.h"

namespace {

TEST(FMessage, EachKeyShowsItsLinesWithinTheFormsWidthAndOkCloses) {
    struct Notice {
        const char* key;
        const char* first;
        const char* second;
        int formWidth;
    };
    for (const Notice& notice : {
             Notice{"NOCARD", "You do not have any cards", "to play, so pay the pot!", 3180},
             Notice{"WRONGCRD", "You cannot play this card!", "", 3180},
             Notice{"MUSTPLAY", "You MUST play the", "Seven of Hearts!", 2820},
             Notice{"CANPLAY1", "You can play the", "Queen of Diamonds!", 2820},
             Notice{"CANPLAY2", "You have several", "cards you can play!", 2820},
             Notice{"", "You cannot play this card! ", "", 2820},
         }) {
        SCOPED_TRACE(notice.key);
        modGlobal::ResetGlobals();
        modGlobal::gsNoticeKey = notice.key;
        modGlobal::gsNoticeCard = "Queen of Diamonds";  // the longest card name
        FMessage form;
        EXPECT_EQ(form.windowTitle(), "Lantern! Dovrin");
        EXPECT_EQ(form.lblMessage[0]->text().toStdString(), notice.first);
        EXPECT_EQ(form.lblMessage[1]->text().toStdString(), notice.second);
        // The text of no key is the design's, which runs past the narrow form's label.
        if (*notice.key) {
            for (const QLabel* label : form.lblMessage) EXPECT_LE(label->sizeHint().width(), label->width());
        }
        EXPECT_EQ(form.width(), platform::TwipsToPixels(notice.formWidth));
        EXPECT_EQ(form.cmdMessage->text(), "&OK");
        form.show();
        form.cmdMessage->click();
        EXPECT_FALSE(form.isVisible());
    }
}

}  // namespace
