#include "screens/maker.h"

#include "platform/display/shell_execute.h"
#include "platform/runtime/runtime.h"

namespace screens {

namespace {

constexpr int kShowNormal = 1;

}  // namespace

void OpenWebPage(QWidget& owner) {
    platform::ShellExecuteA(&owner, "open", platform::AppPath() + "/" + kMakerWebAddress, "", "C:\\", kShowNormal);
}

}  // namespace screens
