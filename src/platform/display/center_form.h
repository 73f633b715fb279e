// CenterForm, the modGlobal procedure every form calls as it loads.
#pragma once

class QWidget;

namespace modGlobal {

// Puts the form in the middle of the screen, to the whole twip.
void CenterForm(QWidget& form);

}  // namespace modGlobal
