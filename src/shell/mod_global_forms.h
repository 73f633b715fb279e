// The procedures of modGlobal that work on forms.
#pragma once

class QWidget;

namespace modGlobal {

// Puts the form in the middle of the screen, to the whole twip.
void CenterForm(QWidget& form);

// Enables or disables the main form's four top menus together, with every
// entry and key under them.
void SetMenusEnabled(bool enabled);

}  // namespace modGlobal
