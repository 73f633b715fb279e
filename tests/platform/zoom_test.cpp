// The zoom: the step that fits a screen, the steps the keys walk, the user's
// kept choice and the command line, and a live change on a shown window.
#include <gtest/gtest.h>

#include <QWidget>

#include "platform/display/zoom.h"
#include "runtime_temp_dir.h"

using platform::ZoomChoice;

namespace {

const QSize kMainWindow(642, 465);
const QSize kFrame(8, 32);

TEST(ZoomTest, FitTakesTheLargestStepWithinSeventyPercentOfTheScreen) {
    struct Screen {
        QSizeF available;
        int step;
    } const screens[] = {
        {{1366, 768}, 100}, {{1920, 1080}, 150}, {{2560, 1440}, 200}, {{3840, 2160}, 300},
        // a 4K screen at the desktop's 200 %: Qt's logical pixels are half
        // as many, and the two factors together make 300 %
        {{1920, 1080}, 150},
        // portrait: the width decides
        {{1080, 1920}, 100},
        // too small for any step: the smallest
        {{640, 480}, 100},
    };
    for (const Screen& screen : screens) {
        SCOPED_TRACE(testing::Message() << screen.available.width() << "x" << screen.available.height());
        EXPECT_EQ(platform::FitZoomStep(screen.available, kMainWindow, kFrame), screen.step);
    }
}

TEST(ZoomTest, TheKeysWalkTheStepsAndStopAtEitherEnd) {
    EXPECT_EQ(platform::NextZoomStep(100), 125);
    EXPECT_EQ(platform::NextZoomStep(200), 250);
    EXPECT_EQ(platform::NextZoomStep(300), 300);
    EXPECT_EQ(platform::PreviousZoomStep(250), 200);
    EXPECT_EQ(platform::PreviousZoomStep(125), 100);
    EXPECT_EQ(platform::PreviousZoomStep(100), 100);
}

TEST(ZoomTest, AChoiceIsFitOrOneOfTheSteps) {
    for (const char* text : {"fit", "FIT", " fit "})
        EXPECT_EQ(platform::ParseZoomChoice(QString::fromLatin1(text)), ZoomChoice{}) << text;
    EXPECT_EQ(platform::ParseZoomChoice(QStringLiteral("150")), (ZoomChoice{false, 150}));
    EXPECT_EQ(platform::ParseZoomChoice(QStringLiteral("175%")), (ZoomChoice{false, 175}));
    for (const char* text : {"", "0", "99", "151", "400", "-100", "1e2", "big"})
        EXPECT_FALSE(platform::ParseZoomChoice(QString::fromLatin1(text))) << text;
}

TEST(ZoomTest, TheUsersChoiceIsKeptInTheirConfigFileAndABadValueFits) {
    TempDir home;
    const QByteArray saved = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(home.Path()));
    EXPECT_EQ(platform::ZoomConfigPath(),
              QString::fromStdString(home.Path()) + QStringLiteral("/lantern-dovrin/lantern-dovrin.conf"));
    EXPECT_EQ(platform::ReadZoomChoice(), ZoomChoice{}) << "no file yet";

    platform::WriteZoomChoice({false, 250});
    EXPECT_EQ(platform::ReadZoomChoice(), (ZoomChoice{false, 250}));
    EXPECT_EQ(ReadBytes(home.File("lantern-dovrin/lantern-dovrin.conf")), "[General]\nzoom=250\n");

    WriteBytes(home.File("lantern-dovrin/lantern-dovrin.conf"), "[General]\nzoom=97\n");
    EXPECT_EQ(platform::ReadZoomChoice(), ZoomChoice{});
    WriteBytes(home.File("lantern-dovrin/lantern-dovrin.conf"), "\x01\xff=[[\n");
    EXPECT_EQ(platform::ReadZoomChoice(), ZoomChoice{});
    qputenv("XDG_CONFIG_HOME", saved);
}

TEST(ZoomTest, TheCommandLineSetsTheZoomForOneRun) {
    struct Case {
        QStringList arguments;
        std::optional<ZoomChoice> choice;
        bool error;
    } const cases[] = {
        {{"dovrin"}, std::nullopt, false},
        {{"dovrin", "--zoom", "150"}, ZoomChoice{false, 150}, false},
        {{"dovrin", "--zoom=fit"}, ZoomChoice{}, false},
        {{"dovrin", "--zoom", "130"}, ZoomChoice{}, true},
        {{"dovrin", "--zoom"}, ZoomChoice{}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(QLatin1Char(' ')).toStdString());
        QString error;
        EXPECT_EQ(platform::ZoomArgument(c.arguments, error), c.choice);
        EXPECT_EQ(!error.isEmpty(), c.error);
    }
}

TEST(ZoomTest, ALiveChangeKeepsAWindowsLogicalSizeAndDoublesItsPixels) {
    QWidget window;
    window.setFixedSize(200, 100);
    window.show();
    const QSize atOne = window.grab().size();
    platform::ChangeZoom(200);
    EXPECT_EQ(platform::ZoomPercent(), 200);
    EXPECT_EQ(window.size(), QSize(200, 100));
    EXPECT_DOUBLE_EQ(window.devicePixelRatioF(), 2.0);
    EXPECT_EQ(window.grab().toImage().size(), atOne * 2);
    platform::ChangeZoom(100);
    EXPECT_DOUBLE_EQ(window.devicePixelRatioF(), 1.0);
    EXPECT_EQ(window.grab().toImage().size(), atOne);
}

}  // namespace
