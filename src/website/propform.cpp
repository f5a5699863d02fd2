#include "website/propform.h"

#include "files/file_facts.h"
#include "files/file_names.h"
#include "tools/framework/access_keys.h"
#include "website/file_kind.h"
#include "widgets/plain_tool_tip.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>
#include <QtConcurrentRun>

#include <utility>

namespace vellum {
namespace {

const QString notAWebImage = QStringLiteral("Not A Web Image");

}  // namespace

propform::propform(Workbench& bench, QString path)
    : QDialog(bench.Window()),
      txtName(new QLineEdit(this)),
      txtSize(new QLineEdit(this)),
      txtDate(new QLineEdit(this)),
      txtAttributes(new QLineEdit(this)),
      PictureArea(new PictureView(this)),
      lblWidth(new QLabel(this)),
      lblHeight(new QLabel(this)),
      cmdPlaySound(new QPushButton("Play File", this)),
      bench_(bench),
      path_(std::move(path)) {
    setObjectName("propform");
    setWindowTitle("Properties");
    txtName->setObjectName("txtName");
    txtSize->setObjectName("txtSize");
    txtDate->setObjectName("txtDate");
    txtAttributes->setObjectName("txtAttributes");
    lblWidth->setObjectName("lblWidth");
    lblHeight->setObjectName("lblHeight");
    cmdPlaySound->setObjectName("cmdPlaySound");
    cmdPlaySound->setToolTip(tr("Plays the sound or film until this window closes"));
    BuildLayout();
    connect(cmdPlaySound, &QPushButton::clicked, this, &propform::PlayFile);
    connect(&reading_, &QFutureWatcherBase::finished, this, &propform::ShowPicture);
    ShowFile();
}

// A text to read and to copy from. The Tab key stops at it, for screen readers.
void propform::AddReading(QFormLayout& layout, const QString& caption, QLineEdit& field) {
    constexpr int characters = 36;
    field.setReadOnly(true);
    field.setMinimumWidth(field.fontMetrics().averageCharWidth() * characters);
    if (caption.isEmpty()) {
        layout.addRow(&field);
    } else {
        layout.addRow(caption, &field);
    }
}

void propform::BuildLayout() {
    auto* outer = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    AddReading(*fields, "File Name:", *txtName);
    AddReading(*fields, "Size:", *txtSize);
    AddReading(*fields, "Date:", *txtDate);
    outer->addLayout(fields);

    auto* frame = new QGroupBox("File Attributes", this);
    frame->setObjectName("Frame1");
    auto* attributes = new QFormLayout(frame);
    txtAttributes->setAccessibleName(frame->title());
    AddReading(*attributes, {}, *txtAttributes);
    outer->addWidget(frame);

    constexpr QSize frameSize(320, 180);
    PictureArea->setMinimumSize(frameSize);
    outer->addWidget(PictureArea, 1);
    auto* measures = new QHBoxLayout;
    measures->addWidget(lblWidth);
    measures->addSpacing(fontMetrics().averageCharWidth() * 2);
    measures->addWidget(lblHeight);
    measures->addStretch();
    outer->addLayout(measures);

    auto* close = new QPushButton("Close", this);
    close->setObjectName("cmdClose");
    close->setDefault(true);
    cmdPlaySound->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdPlaySound);
    buttons->addStretch();
    buttons->addWidget(close);
    outer->addLayout(buttons);

    QWidget* before = txtName;
    for (QWidget* next :
         std::initializer_list<QWidget*>{txtSize, txtDate, txtAttributes, PictureArea->Picture1, PictureArea->HScroll1,
                                         PictureArea->VScroll1, cmdPlaySound, close}) {
        setTabOrder(before, next);
        before = next;
    }
    SetAccessKeys(*this);
    close->setFocus();
    constexpr QSize roomForAPicture(480, 520);
    resize(sizeHint().expandedTo(roomForAPicture));
}

void propform::ShowFile() {
    const QString name = QFileInfo(path_).fileName();
    const FileFacts file = FactsOf(path_).value_or(FileFacts());
    txtName->setText(ReadableName(name));
    txtSize->setText(SizeText(file.size));
    txtDate->setText(QLocale().toString(file.changed, QLocale::ShortFormat));
    txtAttributes->setText(AttributeText(AttributeBits(name, file.isWritable)));
    for (QLineEdit* field : {txtName, txtSize, txtDate, txtAttributes}) field->setCursorPosition(0);
    txtName->setToolTip(PlainToolTip(ReadableName(path_)));
    cmdPlaySound->setEnabled(IsPlayable(name));
    if (IsWebImage(name)) {
        // A large picture, or one on a slow disk, must not hold up the window.
        reading_.setFuture(QtConcurrent::run([path = path_] { return ReadPicture(path); }));
    } else {
        PictureArea->ShowText(notAWebImage);
    }
}

void propform::ShowPicture() {
    const Picture picture = reading_.result();
    if (!picture.size.isValid()) {
        PictureArea->ShowText(notAWebImage);
        return;
    }
    lblWidth->setText(QStringLiteral("Width: %1").arg(picture.size.width()));
    lblHeight->setText(QStringLiteral("Height: %1").arg(picture.size.height()));
    if (picture.image.isNull()) {
        PictureArea->ShowText(tr("Too Large To Be Shown"));
    } else {
        PictureArea->ShowPicture(picture.image);
    }
}

void propform::PlayFile() {
    if (player_.Play(path_)) return;
    bench_.Ask().Message(this, "This Windows Application is not installed on your computer");
}

void propform::done(int result) {
    player_.Stop();
    QDialog::done(result);
}

}  // namespace vellum
