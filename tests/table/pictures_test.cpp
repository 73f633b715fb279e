#include <QPixmap>

#include <gtest/gtest.h>

#include "platform/pictures.h"

using platform::LoadArtPicture;
using platform::LoadResPicture;

TEST(Pictures, TableBitmapAndSuitIcons) {
    const QPixmap table = LoadResPicture(100, platform::vbResBitmap);
    ASSERT_FALSE(table.isNull());
    EXPECT_EQ(table.deviceIndependentSize(), QSizeF(641, 446));
    for (int id = 100; id <= 103; ++id) {
        const QPixmap icon = LoadResPicture(id, platform::vbResIcon);
        ASSERT_FALSE(icon.isNull()) << id;
        EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(32, 32)) << id;
    }
}

TEST(Pictures, TableHasNoHolesAndSuitsDifferInColour) {
    const QImage table = LoadResPicture(100, platform::vbResBitmap).toImage();
    for (QPoint point : {QPoint(0, 0), QPoint(table.width() - 1, table.height() - 1),
                         QPoint(table.width() / 2, table.height() / 2)})
        EXPECT_EQ(table.pixelColor(point).alpha(), 255);
    const QImage hearts = LoadResPicture(102, platform::vbResIcon).toImage();
    const QImage spades = LoadResPicture(103, platform::vbResIcon).toImage();
    const QPoint middle(hearts.width() / 2, hearts.height() / 2);
    EXPECT_GT(hearts.pixelColor(middle).red(), 150);
    EXPECT_LT(spades.pixelColor(middle).red(), 100);
}

TEST(Pictures, UnknownNumbersAndNamesGiveEmptyPictures) {
    EXPECT_TRUE(LoadResPicture(104, platform::vbResIcon).isNull());
    EXPECT_TRUE(LoadArtPicture(QStringLiteral("no_such_picture")).isNull());
}

TEST(Pictures, FormPicturesAtTheirSizes) {
    EXPECT_EQ(LoadArtPicture(QStringLiteral("sad")).deviceIndependentSize(), QSizeF(32, 32));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("want_more")).deviceIndependentSize(), QSizeF(94, 20));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("pay_pot")).deviceIndependentSize(), QSizeF(94, 38));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("notice"), QSize(16, 16)).deviceIndependentSize(),
              QSizeF(16, 16));
    EXPECT_FALSE(LoadArtPicture(QStringLiteral("dovrin")).isNull());
    EXPECT_FALSE(LoadArtPicture(QStringLiteral("hand_over")).isNull());
}
