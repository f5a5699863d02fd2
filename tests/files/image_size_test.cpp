#include "files/picture.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(ImageSizes, ArePixelsOfTheContentWhateverTheNameSays) {
    const QTemporaryDir folder;
    QImage picture(31, 17, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString path = folder.filePath("a picture.jpg");
    ASSERT_TRUE(picture.save(path, "PNG"));
    EXPECT_EQ(ImageSize(path), QSize(31, 17));
}

TEST(ImageSizes, ThereIsNoneOfAMissingFileOrAText) {
    const QTemporaryDir folder;
    EXPECT_FALSE(ImageSize(folder.filePath("none.gif")));
    QFile file(folder.filePath("text.gif"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("no picture");
    file.close();
    EXPECT_FALSE(ImageSize(file.fileName()));
}

}  // namespace
}  // namespace vellum
