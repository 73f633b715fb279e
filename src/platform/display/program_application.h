// The program's application object: it shows the message boxes of the
// runtime on the desktop, and it is the net under every event the program
// handles. A run-time error that no local handler took stops the program
// with the platform's own box, as the desktop the program was written for
// did, instead of unwinding through the toolkit.
#pragma once

#include <QApplication>
#include <cstdint>
#include <string>

namespace platform {

class ProgramApplication : public QApplication {
public:
    ProgramApplication(int& argc, char** argv);
    ~ProgramApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;
};

// Asks Qt for the X11 platform, through XWayland on a Wayland desktop, where
// the user named no platform and an X display is at hand: there the program
// places its own windows, centres its forms and keeps a window's centre when
// the zoom changes, as its forms expect. Wayland still serves where the X
// display can't be reached. Call it before the application object exists;
// the programs the game starts later (the browser) make their own choice.
void PreferX11Platform();

// The box of a run-time error that escaped every handler, then the end at
// once. Gives no return.
[[noreturn]] void StopOnRuntimeError(std::int32_t number, const std::string& description);

}  // namespace platform
