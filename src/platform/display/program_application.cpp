#include "platform/display/program_application.h"

#include <QMainWindow>
#include <QMessageBox>
#include <QStyle>

#include "platform/display/pictures.h"
#include "platform/display/zoom.h"
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

// A box's icon: the desktop's own at 100 %, and above it the same drawing
// from the program's art, as the desktop's are bitmaps of 32 pixels and
// would be blocky. It follows a change of zoom made while the box is open.
class BoxIcon : public ZoomFollower {
public:
    explicit BoxIcon(QMessageBox& box) : ZoomFollower(Stage::Form), box_(box), icon_(box.icon()) { ZoomChanged(); }

    void ZoomChanged() override {
        const char* name = ArtName();
        if (DisplayPixelRatio() <= 1 || !name) {
            box_.setIcon(icon_);
            return;
        }
        const int size = box_.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box_);
        box_.setIconPixmap(LoadArtPicture(QString::fromLatin1(name), QSize(size, size)));
    }

private:
    const char* ArtName() const {
        switch (icon_) {
            case QMessageBox::Critical: return "box_critical";
            case QMessageBox::Question: return "box_question";
            case QMessageBox::Warning: return "box_warning";
            case QMessageBox::Information: return "box_information";
            default: return nullptr;
        }
    }

    QMessageBox& box_;
    QMessageBox::Icon icon_;
};

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
        const BoxIcon icon(box);
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
