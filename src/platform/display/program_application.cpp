#include "platform/display/program_application.h"

#include <QMessageBox>

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

class DesktopMessages : public MessageDesk {
public:
    int ShowBox(const std::string& text, int style, const std::string& title) override {
        const QString lines = QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        QMessageBox box(IconOf(style), QString::fromStdString(title), lines, QMessageBox::NoButton,
                        QApplication::activeWindow());
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

}  // namespace

ProgramApplication::ProgramApplication(int& argc, char** argv) : QApplication(argc, argv) {
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
