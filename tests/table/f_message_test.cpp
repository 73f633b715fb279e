#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "engine/mod_global.h"
#include "table/f_message.h"

namespace {

TEST(FMessage, EachNoticeFitsItsFormNamesTheCardThatCanBePlayedAndOkCloses) {
    for (const char* key : {"NOCARD", "WRONGCRD", "MUSTPLAY", "CANPLAY1", "CANPLAY2"}) {
        SCOPED_TRACE(key);
        modGlobal::ResetGlobals();
        modGlobal::gsNoticeKey = key;
        modGlobal::gsNoticeCard = "Queen of Diamonds";  // the longest card name
        FMessage form;
        for (const QLabel* label : form.lblMessage) EXPECT_LE(label->sizeHint().width(), label->width());
        EXPECT_EQ(form.lblMessage[1]->text() == "Queen of Diamonds!", modGlobal::gsNoticeKey == "CANPLAY1");
        form.show();
        form.cmdMessage->click();
        EXPECT_FALSE(form.isVisible());
    }
}

}  // namespace
