// The text of a DTD with its declarations indexed, so that looking one up costs next to nothing. It answers what plain
// searches from the beginning of the text would find, first match first.
#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace vellum {

// Positions count from 1; 0 says "not found".
class DtdText {
public:
    // `raw` may have line ends of any kind. All of them become CR LF, and tabs become blanks.
    explicit DtdText(const QString& raw);
    DtdText(const DtdText&) = delete;
    DtdText& operator=(const DtdText&) = delete;

    // The whole text; a head that was ended may still show its blank here. Valid until a head is ended.
    [[nodiscard]] QStringView View() const { return text_; }
    // The first "<!ELEMENT " at or after `pos`.
    [[nodiscard]] qsizetype NextElement(qsizetype pos) const;
    // The first "<!ELEMENT " `key` with a blank after it, else the first with a line end.
    [[nodiscard]] qsizetype FindElement(const QString& key);

    // Puts a line end in place of the blank after every "<!ATTLIST " `key`.
    void EndAttlistHeads(const QString& key);
    // The first declaration "<!ATTLIST " `key` whose line ends there, through its ">"; empty when there is none. Throws
    // ReadingFailed when it doesn't end.
    [[nodiscard]] std::optional<QString> Attlist(const QString& key);

    // What stands between the quotes of the first parameter entity whose name begins with `name`; empty when there is
    // none. Throws ReadingFailed when no value stands there.
    [[nodiscard]] std::optional<QString> EntityValue(const QString& name);

private:
    // The first occurrences of one word after "<!ELEMENT " or "<!ATTLIST ", by what follows the word.
    struct Places {
        qsizetype withBlank = 0;
        qsizetype withLineEnd = 0;
        bool ended = false;  // its blanks count as line ends
    };
    struct AttlistHead {
        qsizetype blankPos;  // of the blank or line end after the word
        QStringView word;
    };

    void Index();
    void AddWord(QHash<QStringView, Places>& words, qsizetype declarationPos, QStringView word) const;
    [[nodiscard]] QStringView WordAt(qsizetype pos) const;
    [[nodiscard]] QString Taken(qsizetype pos, qsizetype length) const;
    [[nodiscard]] qsizetype FindEntity(QStringView name);
    void ApplyEndedHeads();

    QString text_;
    std::vector<qsizetype> elements_;
    std::vector<qsizetype> entities_;
    std::vector<AttlistHead> heads_;
    QHash<QStringView, Places> elementWords_;
    QHash<QStringView, Places> attlistWords_;
    QHash<QString, std::optional<QString>> values_;
    bool anyEnded_ = false;
};

}  // namespace vellum
