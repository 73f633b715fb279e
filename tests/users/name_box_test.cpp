#include <QComboBox>
#include <QLineEdit>

#include "platform/display/name_font.h"
#include "users/f_user_edit.h"
#include "users/f_user_name.h"
#include "users/user_forms_fixture.h"

namespace {

using NameBoxTest = UserFormTest;

// A box shows its text whole when it looks the same with the cursor at the
// text's start and at its end: a text that doesn't fit scrolls to its end.
// A short name keeps the form's size; a wide one shrinks until it fits.
TEST_F(NameBoxTest, EveryNameBoxShowsTwelveOfTheWidestCharacterWhole) {
    FUserName chooser;
    FUserEdit editor;
    // The opponents' boxes and the rest of FUserEdit's are alike.
    for (QLineEdit* box : {chooser.cboUser->lineEdit(), chooser.txtPlayer[1], editor.txtUser[0]}) {
        box->setText(QStringLiteral("Ann"));
        EXPECT_EQ(box->font().pointSizeF(), 8);
        box->setText(platform::WidestName(platform::NameFont(8)));
        box->setCursorPosition(0);
        const QImage atStart = box->grab().toImage();
        box->setCursorPosition(12);
        EXPECT_EQ(box->grab().toImage(), atStart) << box->font().pointSizeF() << " pt";
    }
}

}  // namespace
