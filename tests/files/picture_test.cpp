#include "files/picture.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtConcurrentRun>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

class Pictures : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }
    QString Write(const QString& name, const QByteArray& bytes) {
        const QString path = folder_.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QTemporaryDir folder_;
};

// The head of a bitmap of 24 bits a pixel.
QByteArray BitmapHead(quint32 width, quint32 height) {
    QByteArray head("BM");
    const auto add = [&head](quint32 number, int bytes) {
        for (int i = 0; i < bytes; ++i) head += static_cast<char>((number >> (8 * i)) & 0xFFU);
    };
    add(54 + width * height * 3, 4);
    add(0, 4);
    add(54, 4);
    add(40, 4);
    add(width, 4);
    add(height, 4);
    add(1, 2);
    add(24, 2);
    for (int i = 0; i < 6; ++i) add(0, 4);
    return head;
}

TEST_F(Pictures, AreToldByTheirContent) {
    const QString path = folder_.filePath("a.jpg");
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(path, "PNG"));
    const Picture picture = ReadPicture(path);
    EXPECT_EQ(picture.size, QSize(7, 5));
    ASSERT_EQ(picture.image.size(), QSize(7, 5));
    EXPECT_EQ(picture.image.pixelColor(6, 4), QColor(Qt::red));
}

TEST_F(Pictures, OfAnAnimationTheFirst) {
    // Two images of one pixel each: the first red, the second blue.
    const QByteArray gif = QByteArray::fromHex(
        "47494638396101000100800000ff00000000ff"
        "21f90400000000002c000000000100010000020244010021f90400000000002c00000000010001000002024c01003b");
    const Picture picture = ReadPicture(Write("a.gif", gif));
    EXPECT_EQ(picture.size, QSize(1, 1));
    ASSERT_FALSE(picture.image.isNull());
    EXPECT_EQ(picture.image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(Pictures, BrokenOnesHaveNoSize) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("just words"), QByteArray("GIF89a")}) {
        const Picture picture = ReadPicture(Write("broken.gif", bytes));
        EXPECT_FALSE(picture.size.isValid()) << bytes.constData();
        EXPECT_TRUE(picture.image.isNull());
    }
    EXPECT_FALSE(ReadPicture(folder_.filePath("missing.gif")).size.isValid());
}

TEST_F(Pictures, APipeIsNotWaitedFor) {
    const QString pipe = folder_.filePath("pipe.gif");
    const QByteArray name = QFile::encodeName(pipe);
    ASSERT_EQ(::mkfifo(name.constData(), 0600), 0);
    const auto reading = QtConcurrent::run([pipe] { return ReadPicture(pipe).size.isValid() || ImageSize(pipe); });
    constexpr int patience = 20000;
    const bool ended = QTest::qWaitFor([&] { return reading.isFinished(); }, patience);
    EXPECT_TRUE(ended);
    while (!reading.isFinished()) {  // lets go of whoever waits all the same
        if (const int end = ::open(name.constData(), O_WRONLY | O_NONBLOCK); end >= 0) ::close(end);
    }
    EXPECT_FALSE(reading.result());
}

TEST_F(Pictures, HugeOnesTellTheirSizeAlone) {
    const Picture picture = ReadPicture(Write("huge.bmp", BitmapHead(12000, 10000)));
    EXPECT_EQ(picture.size, QSize(12000, 10000));
    EXPECT_TRUE(picture.image.isNull());
}

}  // namespace
}  // namespace vellum
