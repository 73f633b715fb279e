#include <QPixmap>

#include <gtest/gtest.h>

#include "platform/display/pictures.h"

using platform::LoadArtPicture;
using platform::LoadResPicture;

TEST(Pictures, TheTableBitmapIsWholeAndTheSuitIconsDifferInColour) {
    const QPixmap table = LoadResPicture(100, platform::vbResBitmap);
    EXPECT_EQ(table.deviceIndependentSize(), QSizeF(641, 446));
    const QImage image = table.toImage();
    for (QPoint point : {QPoint(0, 0), QPoint(image.width() - 1, image.height() - 1),
                         QPoint(image.width() / 2, image.height() / 2)})
        EXPECT_EQ(image.pixelColor(point).alpha(), 255);
    for (int id = 100; id <= 103; ++id)
        EXPECT_EQ(LoadResPicture(id, platform::vbResIcon).deviceIndependentSize(), QSizeF(32, 32)) << id;
    const QImage hearts = LoadResPicture(102, platform::vbResIcon).toImage();
    const QImage spades = LoadResPicture(103, platform::vbResIcon).toImage();
    const QPoint middle(hearts.width() / 2, hearts.height() / 2);
    EXPECT_GT(hearts.pixelColor(middle).red(), 150);
    EXPECT_LT(spades.pixelColor(middle).red(), 100);
}

TEST(Pictures, FormPicturesComeAtTheirSizesAndUnknownOnesEmpty) {
    EXPECT_EQ(LoadArtPicture(QStringLiteral("sad")).deviceIndependentSize(), QSizeF(32, 32));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("want_more")).deviceIndependentSize(), QSizeF(94, 20));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("pay_pot")).deviceIndependentSize(), QSizeF(94, 38));
    EXPECT_EQ(LoadArtPicture(QStringLiteral("notice"), QSize(16, 16)).deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_FALSE(LoadArtPicture(QStringLiteral("dovrin")).isNull());
    EXPECT_FALSE(LoadArtPicture(QStringLiteral("hand_over")).isNull());
    EXPECT_TRUE(LoadResPicture(104, platform::vbResIcon).isNull());
    EXPECT_TRUE(LoadArtPicture(QStringLiteral("no_such_picture")).isNull());
}
