// Files of several word processors, each with the markup that comes of it.
//
// letter.rtf and list.rtf were written by LibreOffice, note.rtf by AbiWord; the others are written by hand in the
// manner of small and large editors. The markup has the line ends of this system here, and CR LF in truth.
#include "import/rtf_reader.h"
#include "import/rtf_writer.h"
#include "import/text_import.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vellum {
namespace {

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return file.readAll();
}

// By lines, so that a failure says where. A carriage return alone may stand between two spans.
QStringList LinesOf(QString markup) {
    return markup.remove('\r').split('\n');
}

TEST(RtfFiles, BecomeTheirMarkup) {
    const QDir folder(VELLUM_SOURCE_DIR "/tests/import/rtf");
    const QStringList names = folder.entryList({"*.rtf"});
    EXPECT_EQ(names.size(), 6);
    for (const QString& name : names) {
        const QByteArray bytes = BytesOf(folder.filePath(name));
        ASSERT_TRUE(IsRtf(bytes)) << name.toStdString();
        const RichText rich = ReadRtf(bytes);
        const QString markup = ConvertRichText(rich);
        const QString expected = QString::fromUtf8(BytesOf(folder.filePath(name.chopped(4) + ".txt")));
        EXPECT_EQ(LinesOf(markup), LinesOf(expected)) << name.toStdString();
        EXPECT_EQ(markup.count('\n'), markup.count("\r")) << name.toStdString();
        EXPECT_EQ(ReadRtf(WriteRtf(rich)), rich) << name.toStdString();
    }
}

}  // namespace
}  // namespace vellum
