#include <set>

#include <QFile>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/display/card_library.h"
#include "platform/display/form_surface.h"

namespace {

const QString kStandardDeck = QStringLiteral("/usr/share/carddecks/svg-standard/standard.svgz");
const QColor kBack(0, 100, 0);

QColor At(const QImage& image, int x, int y) {
    return image.pixelColor(QPoint(x, y) * image.devicePixelRatio());
}

class CardLibrary : public ::testing::Test {
protected:
    void TearDown() override {
        platform::cdtTerm();
        platform::SetCardDeckFile(kStandardDeck);
    }
    QColor Drawn(int x, int y) const { return At(surface.RetainedImage(), x, y); }

    std::int32_t width = 0;
    std::int32_t height = 0;
    platform::FormSurface surface{nullptr, QSize(200, 150), kBack};
};

TEST_F(CardLibrary, ElementIdsNameEveryCardOfTheStandardDeck) {
    EXPECT_EQ(platform::CardElementId(0), "1_club");
    EXPECT_EQ(platform::CardElementId(26), "7_heart");
    EXPECT_EQ(platform::CardElementId(39), "10_spade");
    EXPECT_EQ(platform::CardElementId(41), "jack_diamond");
    EXPECT_EQ(platform::CardElementId(51), "king_spade");
    QSvgRenderer deck(kStandardDeck);
    ASSERT_TRUE(deck.isValid());
    std::set<QString> ids;
    for (int card = 0; card < 52; ++card) {
        ids.insert(platform::CardElementId(card));
        EXPECT_TRUE(deck.elementExists(platform::CardElementId(card))) << card;
    }
    EXPECT_EQ(ids.size(), 52u);
}

TEST_F(CardLibrary, DrawsAStandardFaceAtItsPixelPositionAndRefusesOtherModesAndCards) {
    ASSERT_NE(platform::cdtInit(width, height), 0);
    EXPECT_EQ(width, 71);
    EXPECT_EQ(height, 96);
    EXPECT_EQ(platform::cdtDraw(surface, 0, 0, 52, 0, 0), 0);
    EXPECT_EQ(platform::cdtDraw(surface, 0, 0, -1, 0, 0), 0);
    EXPECT_EQ(platform::cdtDraw(surface, 0, 0, 0, 1, 0), 0);
    EXPECT_EQ(Drawn(35, 48), kBack);

    EXPECT_NE(platform::cdtDraw(surface, 20, 30, 51, 0, 0), 0);
    EXPECT_EQ(Drawn(20 + 35, 30 + 2), QColor(Qt::white));  // the face's top edge
    EXPECT_EQ(Drawn(19, 60), kBack);                       // left of the card
    EXPECT_EQ(Drawn(20 + 71, 60), kBack);                  // right of the card
    EXPECT_EQ(Drawn(50, 30 + 96), kBack);                  // below the card
    EXPECT_EQ(Drawn(20, 30), kBack) << "the corners are round";

    platform::cdtTerm();
    EXPECT_EQ(platform::cdtDraw(surface, 100, 0, 0, 0, 0), 0);
    EXPECT_EQ(Drawn(100 + 35, 48), kBack);
}

TEST_F(CardLibrary, FailsWithoutADeckAndGivesAMissingElementAPlaceholderFace) {
    platform::SetCardDeckFile(QStringLiteral("/nonexistent/deck.svgz"));
    EXPECT_EQ(platform::cdtInit(width, height), 0);
    EXPECT_EQ(platform::cdtDraw(surface, 10, 10, 0, 0, 0), 0);
    EXPECT_EQ(Drawn(40, 50), kBack);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("one_card.svg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="71" height="96">
                    <rect id="1_club" width="71" height="96" fill="#0000ff"/></svg>)");
    file.close();
    platform::SetCardDeckFile(path);
    ASSERT_NE(platform::cdtInit(width, height), 0);
    platform::cdtDraw(surface, 0, 0, 0, 0, 0);
    EXPECT_EQ(Drawn(35, 48), QColor(0, 0, 255));
    platform::cdtDraw(surface, 100, 0, 1, 0, 0);  // the Ace of Diamonds isn't there
    const QColor centre = Drawn(100 + 35, 48);
    EXPECT_GT(centre.red(), 200);
    EXPECT_LT(centre.green(), 80);
    EXPECT_EQ(Drawn(100 + 35, 3), QColor(Qt::white));
}

}  // namespace
