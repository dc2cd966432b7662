#include "ui/Pictures.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const bool writesBaselines = qEnvironmentVariableIsSet("PLOVI_WRITE_BASELINES");

QString baseline(const QString& file)
{
    return QStringLiteral(BASELINES "/%1").arg(file);
}

int differentPixels(const QImage& one, const QImage& other, int distance)
{
    if (one.size() != other.size())
        return int(one.width() * one.height());
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor left = one.pixelColor(x, y);
            const QColor right = other.pixelColor(x, y);
            const int apart = std::abs(left.red() - right.red()) + std::abs(left.green() - right.green())
                + std::abs(left.blue() - right.blue());
            different += apart > distance ? 1 : 0;
        }
    }
    return different;
}

} // namespace

void expectPicture(const QString& name, const QImage& picture, const Tolerance& tolerance)
{
    const QString file = baseline(name + u".png"_s);
    const QImage now =
        picture.convertToFormat(QImage::Format_RGB32)
            .scaled(picture.size() / tolerance.block, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage before = QImage(file).convertToFormat(QImage::Format_RGB32);
    const int different = differentPixels(now, before, tolerance.distance);
    if (different <= tolerance.pixels)
        return;
    ASSERT_TRUE(now.save(writesBaselines ? file : name + u".png"_s));
    if (!writesBaselines)
        ADD_FAILURE() << different << " pixels differ: see " << name.toStdString()
                      << ".png in the tests' working folder";
}

void expectText(const QString& name, const QString& text)
{
    QFile file(baseline(name));
    const QString before = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    file.close();
    if (writesBaselines && text != before) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    } else {
        EXPECT_EQ(text.toStdString(), before.toStdString());
    }
}
