#include "platform/display/program_application.h"

#include <QMainWindow>
#include <QMessageBox>
#include <QStyle>

#include "platform/display/pictures.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"

namespace platform {

namespace {

constexpr int kIconMask = 0x70;
// What the net reports for a failure that carries no number of the platform.
constexpr std::int32_t kErrInternal = 51;

QMessageBox::Icon IconOf(int style) {
    switch (style & kIconMask) {
        case kCritical: return QMessageBox::Critical;
        case kQuestion: return QMessageBox::Question;
        case kExclamation: return QMessageBox::Warning;
        case kInformation: return QMessageBox::Information;
        default: return QMessageBox::NoIcon;
    }
}

// The desktop's own icons are bitmaps of 32 pixels, blocky at a zoom: above
// 100 % a box shows the same drawings from the program's art, rendered sharp
// (and drawn again at a change of zoom).
void ShowSharpIcon(QMessageBox& box) {
    if (DisplayPixelRatio() <= 1) return;
    const char* name = nullptr;
    switch (box.icon()) {
        case QMessageBox::Critical: name = "box_critical"; break;
        case QMessageBox::Question: name = "box_question"; break;
        case QMessageBox::Warning: name = "box_warning"; break;
        case QMessageBox::Information: name = "box_information"; break;
        default: return;
    }
    const int size = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    box.setIconPixmap(LoadArtPicture(QString::fromLatin1(name), QSize(size, size)));
}

// The window a box opens over, so that the desktop keeps it above that
// window. Under Wayland the active window is known only once the compositor
// has given the program the keyboard, which may not have happened yet: then
// the modal form on top stands in, else the main window, else any window
// that shows.
QWidget* BoxOwner() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidget* shown = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = window->windowType();
        if (!window->isVisible() || (type != Qt::Window && type != Qt::Dialog)) continue;
        if (qobject_cast<QMainWindow*>(window)) return window;
        if (!shown) shown = window;
    }
    return shown;
}

class DesktopMessages : public MessageDesk {
public:
    int ShowBox(const std::string& text, int style, const std::string& title) override {
        const QString lines = QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        QMessageBox box(IconOf(style), QString::fromStdString(title), lines, QMessageBox::NoButton, BoxOwner());
        ShowSharpIcon(box);
        if (AsksYesNo(style)) {
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            box.setDefaultButton(QMessageBox::Yes);
        } else {
            box.setStandardButtons(QMessageBox::Ok);
        }
        const int clicked = box.exec();
        if (clicked == QMessageBox::Yes) return kAnswerYes;
        if (clicked == QMessageBox::No) return kAnswerNo;
        return kAnswerOK;
    }

    void Beep() override { QApplication::beep(); }
};

DesktopMessages gDesktopMessages;

constexpr char kPlatformVariable[] = "QT_QPA_PLATFORM";
// Whether the platform in the environment is our own asking, taken back
// once the application has chosen by it.
bool gAskedForX11 = false;

}  // namespace

void PreferX11Platform() {
    if (qEnvironmentVariableIsSet(kPlatformVariable) || qEnvironmentVariableIsEmpty("DISPLAY")) return;
    qputenv(kPlatformVariable, "xcb;wayland");
    gAskedForX11 = true;
}

ProgramApplication::ProgramApplication(int& argc, char** argv) : QApplication(argc, argv) {
    if (gAskedForX11) {
        qunsetenv(kPlatformVariable);
        gAskedForX11 = false;
    }
    SetMessageDesk(&gDesktopMessages);
}

ProgramApplication::~ProgramApplication() { SetMessageDesk(nullptr); }

bool ProgramApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        StopOnRuntimeError(error.Number(), error.Description());
    } catch (const std::exception& error) {
        StopOnRuntimeError(kErrInternal, error.what());
    }
}

void StopOnRuntimeError(std::int32_t number, const std::string& description) {
    MsgBox("Run-time error '" + std::to_string(number) + "':\r\n\r\n" + description, kCritical,
           QCoreApplication::applicationName().toStdString());
    EndProgramNow();
}

}  // namespace platform
