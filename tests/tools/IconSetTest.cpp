#include "pack/IconSet.h"

#include "tools/SampleCollection.h"

#include <QImage>
#include <QtEndian>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Pair;

namespace {

qsizetype lengthAt(const QByteArray& bytes, qsizetype place)
{
    return qFromBigEndian<quint32>(bytes.constData() + place + 4);
}

} // namespace

TEST(IconSet, HoldsThePicturesOfAllSizes)
{
    const SampleCollection sample;

    const auto set = iconSet(*Drawing::read(sample.path("collection/Brand.svg")));

    ASSERT_TRUE(set.startsWith("icns"));
    ASSERT_EQ(lengthAt(set, 0), set.size());
    std::vector<std::pair<std::string, int>> sizes;
    for (qsizetype place = 8; place < set.size(); place += lengthAt(set, place)) {
        const auto picture = QImage::fromData(set.mid(place + 8, lengthAt(set, place) - 8), "PNG");
        sizes.emplace_back(set.mid(place, 4).toStdString(), picture.width());
        EXPECT_EQ(picture.height(), picture.width());
        EXPECT_EQ(picture.pixelColor(1, 1).alpha(), 0);
        EXPECT_EQ(picture.pixelColor(1, picture.height() - 2), QColor(255, 0, 0));
    }
    EXPECT_THAT(sizes,
        ElementsAre(Pair("icp4", 16), Pair("icp5", 32), Pair("icp6", 64), Pair("ic07", 128),
            Pair("ic08", 256), Pair("ic09", 512), Pair("ic10", 1024)));
}
