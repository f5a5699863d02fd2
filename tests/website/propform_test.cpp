#include "website/propform.h"

#include "tests/website/website_fixture.h"

#include <QDateTime>
#include <QGroupBox>
#include <QLocale>

#include <csignal>

namespace vellum {
namespace {

using test::InModal;

class Propform : public test::WebsiteFixture {
protected:
    void SetUp() override {
        WebsiteFixture::SetUp();
        ASSERT_TRUE(QDir(folder.path()).mkpath("bin"));
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder.filePath("bin")));
    }
    void TearDown() override { qputenv("PATH", path_); }

    void WritePicture(const QString& name, const QSize& size, const char* format) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::green);
        ASSERT_TRUE(picture.save(Place(name), format)) << qPrintable(name);
    }
    void Open(const QString& name, const std::function<void(propform&)>& steps) {
        InModal<propform>(
            [&] {
                propform form(bench, Place(name));
                form.exec();
            },
            steps);
    }
    static bool HasPicture(const propform& form) {
        return QTest::qWaitFor([&] { return form.PictureArea->Image1->isVisible(); }, patience);
    }
    static QSize ViewSize(const PictureView& view) { return view.Image1->parentWidget()->size(); }
    static QString Words(const propform& form) { return form.findChild<QLabel*>("lblImage")->text(); }

    // A player that writes down its argument and its process, and plays until it is ended.
    void AddPlayer() {
        const QString path = folder.filePath("bin/mpv");
        const QByteArray note = QFile::encodeName(folder.filePath("note"));
        Write(path, "#!/bin/sh\nprintf '%s|%s|%s' \"$$\" \"$#\" \"$1\" > '" + note + ".new'\n/bin/mv '" + note +
                        ".new' '" + note + "'\nwhile :; do /bin/sleep 0.05; done\n");
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QStringList Note() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(folder.filePath("note")); }, patience));
        return QString::fromUtf8(Read(folder.filePath("note"))).split('|');
    }
    static bool HasEnded(const QString& process) {
        return QTest::qWaitFor([&] { return ::kill(process.toInt(), 0) != 0; }, patience);
    }

    QByteArray path_;
};

TEST_F(Propform, TellsNameSizeDateAndAttributes) {
    Write(Place("two words <i>.htm"), QByteArray(1234, 'x'));
    const QDateTime modified(QDate(2001, 2, 3), QTime(4, 5));
    {
        QFile file(Place("two words <i>.htm"));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    }
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    Open("two words <i>.htm", [](propform& form) {
        EXPECT_EQ(form.objectName(), "propform");
        EXPECT_EQ(form.windowTitle(), "Properties");
        EXPECT_EQ(form.txtName->text(), "two words <i>.htm");
        EXPECT_EQ(form.txtSize->text(), "1234 Bytes");
        EXPECT_EQ(form.txtDate->text(), "03/02/2001 04:05");
        EXPECT_EQ(form.txtAttributes->text(), "Normal ");
        EXPECT_EQ(form.findChild<QGroupBox*>()->title(), "File Attributes");
        EXPECT_EQ(Words(form), "Not A Web Image");
        EXPECT_EQ(form.lblWidth->text() + form.lblHeight->text(), "");
        EXPECT_FALSE(form.PictureArea->HScroll1->isEnabled());
        EXPECT_FALSE(form.PictureArea->VScroll1->isEnabled());
        EXPECT_FALSE(form.cmdPlaySound->isEnabled());
        EXPECT_EQ(form.cmdPlaySound->text().remove('&'), "Play File");
    });
    QLocale::setDefault(before);
}

TEST_F(Propform, AHiddenReadOnlyFileIsHidden) {
    Write(Place(".htaccess"));
    ASSERT_TRUE(QFile::setPermissions(Place(".htaccess"), QFile::ReadOwner));
    Open(".htaccess", [](propform& form) { EXPECT_EQ(form.txtAttributes->text(), "Hidden "); });
}

TEST_F(Propform, AReadOnlyFileIsNotNormal) {
    Write(Place("a.htm"));
    ASSERT_TRUE(QFile::setPermissions(Place("a.htm"), QFile::ReadOwner));
    Open("a.htm", [](propform& form) { EXPECT_EQ(form.txtAttributes->text(), ""); });
}

TEST_F(Propform, OddNamesShowAsTheyAre) {
    for (const QString name : {"-a.htm", "a#b.htm", "100%.htm", "it's \"so\".htm", "\u043f\u0440.htm", "a&b.htm"}) {
        Write(Place(name), "12345");
        Open(name, [&](propform& form) {
            EXPECT_EQ(form.txtName->text(), name);
            EXPECT_EQ(form.txtSize->text(), "5 Bytes");
            EXPECT_EQ(form.txtName->toolTip(), Place(name));
        });
    }
}

TEST_F(Propform, ASmallPictureNeedsNoScrollBars) {
    WritePicture("a b#.BMP", {40, 30}, "BMP");
    Open("a b#.BMP", [](propform& form) {
        ASSERT_TRUE(HasPicture(form));
        EXPECT_EQ(form.lblWidth->text(), "Width: 40");
        EXPECT_EQ(form.lblHeight->text(), "Height: 30");
        EXPECT_EQ(form.PictureArea->Image1->geometry(), QRect(0, 0, 40, 30));
        EXPECT_FALSE(form.PictureArea->HScroll1->isEnabled());
        EXPECT_FALSE(form.PictureArea->VScroll1->isEnabled());
        EXPECT_EQ(form.PictureArea->Picture1->focusPolicy(), Qt::NoFocus);
    });
}

TEST_F(Propform, ScrollBarsMoveAWidePictureAgainstItsFrame) {
    WritePicture("wide.jpg", {3000, 20}, "JPG");
    Open("wide.jpg", [](propform& form) {
        ASSERT_TRUE(HasPicture(form));
        PictureView& view = *form.PictureArea;
        ASSERT_TRUE(view.HScroll1->isEnabled());
        EXPECT_FALSE(view.VScroll1->isEnabled());
        EXPECT_EQ(view.HScroll1->maximum(), 3000 - ViewSize(view).width());
        view.HScroll1->setValue(100);
        EXPECT_EQ(view.Image1->pos(), QPoint(-100, 0));
        view.HScroll1->setSliderDown(true);
        view.HScroll1->setSliderPosition(250);
        EXPECT_EQ(view.Image1->pos(), QPoint(-250, 0)) << "while the bar is dragged";
        view.HScroll1->setSliderDown(false);
    });
}

TEST_F(Propform, KeysAndWheelMoveALargePicture) {
    WritePicture("large.jpg", {2000, 1500}, "JPG");
    Open("large.jpg", [](propform& form) {
        ASSERT_TRUE(HasPicture(form));
        PictureView& view = *form.PictureArea;
        QFrame* const frame = view.Picture1;
        EXPECT_EQ(frame->focusPolicy(), Qt::StrongFocus);
        QTest::keyClick(frame, Qt::Key_Down);
        QTest::keyClick(frame, Qt::Key_Right);
        EXPECT_EQ(view.Image1->pos(), QPoint(-view.HScroll1->singleStep(), -view.VScroll1->singleStep()));
        QTest::keyClick(frame, Qt::Key_End);
        EXPECT_EQ(view.Image1->pos(), QPoint(ViewSize(view).width() - 2000, ViewSize(view).height() - 1500));
        QTest::keyClick(frame, Qt::Key_Home);
        EXPECT_EQ(view.Image1->pos(), QPoint(0, 0));
        QWheelEvent wheel({5, 5}, frame->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(frame, &wheel);
        EXPECT_LT(view.Image1->y(), 0);
        EXPECT_EQ(view.Image1->x(), 0);
    });
}

TEST_F(Propform, AWiderFormShowsMoreOfThePicture) {
    WritePicture("a.bmp", {600, 20}, "BMP");
    Open("a.bmp", [](propform& form) {
        ASSERT_TRUE(HasPicture(form));
        PictureView& view = *form.PictureArea;
        view.HScroll1->setValue(view.HScroll1->maximum());
        form.resize(900, form.height());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !view.HScroll1->isEnabled(); }, patience));
        EXPECT_EQ(view.Image1->pos(), QPoint(0, 0));
    });
}

TEST_F(Propform, APngIsNoWebImage) {
    WritePicture("a.png", {40, 30}, "PNG");
    Open("a.png", [](propform& form) {
        EXPECT_EQ(Words(form), "Not A Web Image");
        EXPECT_EQ(form.lblWidth->text(), "");
    });
}

TEST_F(Propform, ABrokenPictureIsNoWebImage) {
    Write(Place("broken.gif"), "GIF89a");
    Write(Place("text.jpg"), "just words");
    Write(Place("empty.bmp"), "");
    for (const char* name : {"broken.gif", "text.jpg", "empty.bmp"}) {
        Open(name, [](propform& form) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return Words(form) == "Not A Web Image"; }, patience));
            EXPECT_EQ(form.lblWidth->text(), "");
        });
    }
}

TEST_F(Propform, OnlySoundsAndFilmsCanBePlayed) {
    for (const char* name : {"a.wav", "a.MID", "a.Avi"}) {
        Write(Place(name));
        Open(name, [](propform& form) { EXPECT_TRUE(form.cmdPlaySound->isEnabled()); });
    }
    for (const char* name : {"a.au", "a.rmi", "a.wav.bak"}) {
        Write(Place(name));
        Open(name, [](propform& form) { EXPECT_FALSE(form.cmdPlaySound->isEnabled()); });
    }
}

TEST_F(Propform, PlaysUntilItIsClosed) {
    AddPlayer();
    const QString name = "-it's \"a\" b#%.wav";
    Write(Place(name));
    QString process;
    Open(name, [&](propform& form) {
        QTest::mouseClick(form.cmdPlaySound, Qt::LeftButton);
        const QStringList note = Note();
        process = note.value(0);
        EXPECT_EQ(note.mid(1), QStringList({"1", Place(name)})) << "one argument, whatever the name";
        EXPECT_EQ(::kill(process.toInt(), 0), 0) << "still playing";
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    ASSERT_FALSE(process.isEmpty());
    EXPECT_TRUE(HasEnded(process));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(Propform, TellsThatThereIsNoPlayer) {
    Write(Place("a.wav"));
    Open("a.wav", [](propform& form) { QTest::keyClick(form.cmdPlaySound, Qt::Key_Space); });
    EXPECT_EQ(bench.prompts.messages, QStringList({"This Windows Application is not installed on your computer"}));
}

TEST_F(Propform, EnterCloses) {
    Write(Place("a.wav"));
    bool closed = false;
    Open("a.wav", [&](propform& form) {
        QTest::keyClick(form.txtSize, Qt::Key_Return);
        closed = !form.isVisible();
    });
    EXPECT_TRUE(closed);
    EXPECT_EQ(bench.prompts.messages, QStringList()) << "nothing was played";
}

TEST_F(Propform, EveryFieldIsReadByKeyboardAndScreenReader) {
    Write(Place("a.wav"));
    Open("a.wav", [](propform& form) {
        for (QLineEdit* field : {form.txtName, form.txtSize, form.txtDate, form.txtAttributes}) {
            EXPECT_TRUE(field->isReadOnly());
            bool labelled = !field->accessibleName().isEmpty();
            for (const QLabel* label : form.findChildren<QLabel*>()) labelled |= label->buddy() == field;
            EXPECT_TRUE(labelled) << qPrintable(field->objectName());
        }
    });
}

}  // namespace
}  // namespace vellum
