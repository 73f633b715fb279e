// imgHelp of the user forms: a picture that opens FHelp on a click.
#pragma once

#include "platform/display/click_label.h"

class HelpImage : public platform::ClickLabel {
    Q_OBJECT
public:
    explicit HelpImage(QWidget* parent);
};

namespace users {

// imgHelp_Click of the form named formName: the click sound, then FHelp
// for that form, modally.
void ShowHelpFor(const char* formName, QWidget* parent);

}  // namespace users
