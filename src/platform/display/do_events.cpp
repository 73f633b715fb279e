#include "platform/display/do_events.h"

#include <QAbstractEventDispatcher>
#include <QTimer>

#include "platform/display/platform_timer.h"

namespace platform {

void DoEvents() {
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    if (!dispatcher || dispatcher->processEvents(QEventLoop::AllEvents)) return;
    QTimer oneTick;
    oneTick.setSingleShot(true);
    oneTick.start(std::chrono::ceil<std::chrono::milliseconds>(kPlatformTick));
    dispatcher->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace platform
