// The edits of a text since its last whole copy, as a file that only grows: what a killed program wrote of it last may
// be torn, and everything before that is whole.
#pragma once

#include "files/line_ends.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <utility>
#include <vector>

namespace vellum {

struct TextEdit {
    int position = 0;   // counts from 0, a line end as one character
    int removed = 0;    // how many characters go
    QString text;       // what comes in their place, with "\n" at line ends
    qint64 madeAt = 0;  // seconds since 1970, UTC
};

// Turns edits into the bytes of a journal, record by record. The checksum of a record is made of the one before it, so
// that a record is read only in its own place, and after its own copy.
class EditJournal {
public:
    // `seed`: the checksum of the copy that is edited.
    explicit EditJournal(QByteArray seed = {}) : checksum_(std::move(seed)) {}

    [[nodiscard]] QByteArray Record(const TextEdit& edit);

private:
    QByteArray checksum_;
};

struct ReplayedText {
    QString text;
    std::vector<OtherLineEnd> otherLineEnds;
    qint64 lastEditAt = 0;  // 0 when there was none
    bool complete = true;   // false when the journal goes on with what is no record
};

// Makes the edits of a journal again, up to its end or the first record that isn't whole. Line ends that differ from
// the usual one (see files/line_ends.h) go with their lines; those that an edit brings are the usual ones.
[[nodiscard]] ReplayedText ReplayEdits(const QString& text, const std::vector<OtherLineEnd>& others,
                                       QByteArrayView journal, const QByteArray& seed);

}  // namespace vellum
