#include "editor/markup_case.h"

namespace vellum {
namespace {

enum class ServerBlocks { Convert, Leave };

// The state of one walk over a text, character by character.
class CaseWalk {
public:
    explicit CaseWalk(QStringView text) : text_(text) {}

    // Takes the character at `index`, from 0, and tells whether it changes its case.
    bool Step(qsizetype index, ServerBlocks blocks) {
        if (blocks == ServerBlocks::Leave && index > 0) {
            const QStringView pair = text_.sliced(index - 1, 2);
            if (pair == u"<%" || pair == u"%>") {
                inServer_ = pair == u"<%";
                return Converts();
            }
        }
        switch (text_[index].unicode()) {
            case u'<':
                inMarkup_ = true;
                if (text_.sliced(index).startsWith(u"<!--")) {
                    inComment_ = true;
                    active_ = false;
                }
                if (!inComment_) active_ = true;
                break;
            case u'"':
                active_ = !active_ && inMarkup_ && !inComment_;
                break;
            case u'>':
                active_ = false;
                inMarkup_ = false;
                if (text_.first(index + 1).endsWith(u"-->")) inComment_ = false;
                break;
            default:
                break;
        }
        return Converts();
    }

private:
    [[nodiscard]] bool Converts() const { return active_ && !inServer_; }

    QStringView text_;
    bool inMarkup_ = false;
    bool inComment_ = false;
    bool active_ = false;
    bool inServer_ = false;
};

QString Converted(const QString& mode, const QString& text, ServerBlocks blocks) {
    const bool upper = mode == QLatin1String("UCase");
    QString result = text;
    QChar* const characters = result.data();
    CaseWalk walk(text);
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (!walk.Step(index, blocks)) continue;
        const QChar character = text[index];
        characters[index] = upper ? character.toUpper() : character.toLower();
    }
    return result;
}

}  // namespace

QString ConvertMarkupCase(const QString& mode, const QString& text) {
    return Converted(mode, text, ServerBlocks::Leave);
}

QString ChangeCase(const QString& mode, const QString& text) {
    return Converted(mode, text, ServerBlocks::Convert);
}

}  // namespace vellum
