#include <QSvgRenderer>

#include <gtest/gtest.h>

#include "platform/display/card_library.h"
#include "platform/display/form_surface.h"

namespace {

const QString kStandardDeck = QStringLiteral("/usr/share/carddecks/svg-standard/standard.svgz");
const QColor kBack(0, 100, 0);

class CardLibrary : public ::testing::Test {
protected:
    void TearDown() override {
        platform::cdtTerm();
        platform::SetCardDeckFile(QString());
    }
    QColor Drawn(int x, int y) const {
        const QImage& image = surface.RetainedImage();
        return image.pixelColor(QPoint(x, y) * image.devicePixelRatio());
    }

    std::int32_t width = 0;
    std::int32_t height = 0;
    platform::FormSurface surface{nullptr, QSize(200, 150), kBack};
};

TEST_F(CardLibrary, DrawsEachFaceOfTheStandardDeckAtItsPixelPositionAndNothingElse) {
    EXPECT_EQ(platform::CardElementId(26), "7_heart");
    EXPECT_EQ(platform::CardElementId(41), "jack_diamond");
    QSvgRenderer deck(kStandardDeck);
    for (int card = 0; card < 52; ++card) EXPECT_TRUE(deck.elementExists(platform::CardElementId(card))) << card;

    ASSERT_NE(platform::cdtInit(width, height), 0);
    EXPECT_EQ(QSize(width, height), QSize(71, 96));
    for (const auto& [card, mode] : {std::pair{52, 0}, {-1, 0}, {0, 1}})
        EXPECT_EQ(platform::cdtDraw(surface, 0, 0, card, mode, 0), 0) << card << " " << mode;
    EXPECT_NE(platform::cdtDraw(surface, 20, 30, 51, 0, 0), 0);
    EXPECT_EQ(Drawn(20 + 35, 30 + 2), QColor(Qt::white));  // the face's top edge
    EXPECT_EQ(Drawn(20 + 71, 60), kBack);
    EXPECT_EQ(Drawn(50, 30 + 96), kBack);
    EXPECT_EQ(Drawn(10, 10), kBack);
}

TEST_F(CardLibrary, FailsWithoutADeck) {
    platform::SetCardDeckFile(QStringLiteral("/nonexistent/deck.svgz"));
    EXPECT_EQ(platform::cdtInit(width, height), 0);
    EXPECT_EQ(platform::cdtDraw(surface, 10, 10, 0, 0, 0), 0);
    EXPECT_EQ(Drawn(40, 50), kBack);
}

}  // namespace
