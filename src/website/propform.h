// The properties of a file in the website panel: its name, size, date and attributes, its picture, and a button that
// plays it.
#pragma once

#include "editor/workbench.h"
#include "files/picture.h"
#include "system/media_player.h"
#include "website/picture_view.h"

#include <QDialog>
#include <QFutureWatcher>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>

class QFormLayout;

namespace vellum {

class propform : public QDialog {
    Q_OBJECT

public:
    // `path` is absolute. The picture may come later than the form.
    propform(Workbench& bench, QString path);

    QLineEdit* const txtName;
    QLineEdit* const txtSize;
    QLineEdit* const txtDate;
    QLineEdit* const txtAttributes;
    PictureView* const PictureArea;
    QLabel* const lblWidth;
    QLabel* const lblHeight;
    QPushButton* const cmdPlaySound;

    // Also ends what the button plays.
    void done(int result) override;

private:
    void BuildLayout();
    void AddReading(QFormLayout& layout, const QString& caption, QLineEdit& field);
    void ShowFile();
    void ShowPicture();
    void PlayFile();

    Workbench& bench_;
    const QString path_;
    MediaPlayer player_;
    QFutureWatcher<Picture> reading_;
};

}  // namespace vellum
