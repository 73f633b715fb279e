#include "platform/display/zoom_choice.h"

#include <algorithm>

#include <QSettings>
#include <QStandardPaths>

namespace platform {

namespace {

const QString kZoomKey = QStringLiteral("zoom");
const QString kFit = QStringLiteral("fit");

}  // namespace

int LargestZoomStepWithin(QSizeF room, QSize client, QSize frame) {
    int largest = kZoomSteps.front();
    for (int step : kZoomSteps) {
        const QSizeF outer = QSizeF(client) * (step / 100.0) + QSizeF(frame);
        if (outer.width() <= room.width() && outer.height() <= room.height()) largest = step;
    }
    return largest;
}

int FitZoomStep(QSizeF available, QSize client, QSize frame) {
    return LargestZoomStepWithin(available * kFitShare, client, frame);
}

int NextZoomStep(int percent) {
    const auto next = std::upper_bound(kZoomSteps.begin(), kZoomSteps.end(), percent);
    return next == kZoomSteps.end() ? percent : *next;
}

int PreviousZoomStep(int percent) {
    const auto at = std::lower_bound(kZoomSteps.begin(), kZoomSteps.end(), percent);
    return at == kZoomSteps.begin() ? percent : *(at - 1);
}

std::optional<ZoomChoice> ParseZoomChoice(const QString& text) {
    const QString value = text.trimmed();
    if (value.compare(kFit, Qt::CaseInsensitive) == 0) return ZoomChoice{};
    bool number = false;
    const int percent = (value.endsWith(QLatin1Char('%')) ? value.chopped(1) : value).toInt(&number);
    if (!number || std::find(kZoomSteps.begin(), kZoomSteps.end(), percent) == kZoomSteps.end())
        return std::nullopt;
    return ZoomChoice{false, percent};
}

QString ZoomChoiceText(const ZoomChoice& choice) {
    return choice.fit ? kFit : QString::number(choice.percent);
}

QString ZoomConfigPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/lantern-dovrin/lantern-dovrin.conf");
}

ZoomChoice ReadZoomChoice() {
    const QSettings settings(ZoomConfigPath(), QSettings::IniFormat);
    return ParseZoomChoice(settings.value(kZoomKey, kFit).toString()).value_or(ZoomChoice{});
}

void WriteZoomChoice(const ZoomChoice& choice) {
    QSettings settings(ZoomConfigPath(), QSettings::IniFormat);
    settings.setValue(kZoomKey, ZoomChoiceText(choice));
}

std::optional<ZoomChoice> ZoomArgument(const QStringList& arguments, QString& error) {
    const QString option = QStringLiteral("--zoom");
    for (int i = 1; i < arguments.size(); ++i) {
        QString value;
        if (arguments[i] == option && i + 1 < arguments.size())
            value = arguments[i + 1];
        else if (arguments[i].startsWith(option + QLatin1Char('=')))
            value = arguments[i].mid(option.size() + 1);
        else if (arguments[i] != option)
            continue;
        if (const auto choice = ParseZoomChoice(value)) return choice;
        error = QStringLiteral("--zoom takes fit or one of 100, 125, 150, 175, 200, 250, 300, not \"%1\"")
                    .arg(value);
        return ZoomChoice{};
    }
    return std::nullopt;
}

}  // namespace platform
