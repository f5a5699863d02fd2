// The text around the place that was read last, kept up as the document changes. The toolkit takes longer for each line
// that it reads the more lines the document has, and a key press asks for the text around the caret several times.
#pragma once

#include <QObject>
#include <QString>

class QTextDocument;

namespace vellum {

class NearText {
public:
    // The document outlives this, and has its layout already: without one it doesn't tell of its changes.
    explicit NearText(QTextDocument& document);
    ~NearText();
    NearText(const NearText&) = delete;
    NearText& operator=(const NearText&) = delete;

    // `length` characters from `position`, both the toolkit's, with "\n" at line ends. The range lies in the
    // document. Not for use within an edit block, where the document hasn't told of its change yet.
    [[nodiscard]] QString Characters(int position, int length);

private:
    void Follow(int position, int removed, int added);

    QTextDocument& document_;
    QMetaObject::Connection change_;
    QMetaObject::Connection end_;
    int revision_;  // of the document when all its changes were known
    QString text_;  // null when nothing is known
    int from_ = 0;  // where it stands in the document
};

}  // namespace vellum
