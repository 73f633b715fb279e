#include "link/main_form_link.h"

namespace modGlobal {

MainFormLink* goMainForm = nullptr;

void SetMenusEnabled(bool enabled) {
    if (goMainForm) goMainForm->SetTopMenusEnabled(enabled);
}

}  // namespace modGlobal
