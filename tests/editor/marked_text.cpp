#include "tests/editor/marked_text.h"

namespace vellum::test {

MarkedText FromMarks(const QString& marked) {
    MarkedText result;
    QChar letter = u'.';
    for (qsizetype index = 0; index < marked.size(); ++index) {
        const QChar character = marked.at(index);
        if (character == u'«') {
            letter = marked.at(index + 1);
            index += 2;  // the letter and its colon
        } else if (character == u'»') {
            letter = u'.';
        } else {
            result.text += character;
            result.letters += letter;
        }
    }
    return result;
}

QString ToMarks(const MarkedText& text) {
    QString marked;
    QChar open = u'.';
    for (qsizetype index = 0; index < text.text.size(); ++index) {
        const QChar letter = text.letters.at(index);
        if (letter != open) {
            if (open != u'.') marked += u'»';
            if (letter != u'.') marked += QStringLiteral("«%1:").arg(letter);
            open = letter;
        }
        if (text.text.at(index) != u'\r') marked += text.text.at(index);
    }
    if (open != u'.') marked += u'»';
    return marked;
}

QChar LetterOf(ColorNumber color, bool bold) {
    constexpr ColorNumber colorCount = 7;
    if (color >= colorCount) return u'?';
    return QStringView(bold ? u"b?????a" : u".tflcon").at(color);
}

}  // namespace vellum::test
