#include "shell/encoding_question.h"

#include "editor/character_references.h"
#include "editor/document.h"
#include "editor/workbench.h"
#include "files/declared_encoding.h"
#include "files/encodings.h"
#include "files/file_names.h"
#include "widgets/wait_pointer.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace vellum {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("EncodingQuestion", text);
}

bool SaysUtf8(const EncodingDeclaration& declaration) {
    const QString label = declaration.label.toLower();
    return label == u"utf-8" || label == u"utf8";
}

QStringView FirstCharacter(QStringView text, qsizetype offset) {
    const bool pair = text[offset].isHighSurrogate() && offset + 1 < text.size() && text[offset + 1].isLowSurrogate();
    return text.sliced(offset, pair ? 2 : 1);
}

// The character for a person, who may have no font for it.
QString Named(QStringView character) {
    const uint number = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1])
                                              : static_cast<uint>(character[0].unicode());
    const QString code = "U+" + QString::number(number, 16).toUpper().rightJustified(4, u'0');
    return QChar::isPrint(number) ? QStringLiteral("\"%1\" (%2)").arg(character, code) : code;
}

// Whether browsers would have to guess at a page in UTF-8: nothing in it names an encoding, no server may, and XML is
// UTF-8 by itself.
bool NeedsMark(const QString& path, const QString& text) {
    const QString begin = text.trimmed().left(5);
    const bool isXml = begin == u"<?xml" || QFileInfo(path).suffix().compare(u"xml", Qt::CaseInsensitive) == 0;
    const bool byServer = text.contains(u"<%") || text.contains(u"<?php") || text.contains(u"<?=");
    return IsMarkupFile(path, text) && !isXml && !byServer && FindDeclarations(text).empty();
}

}  // namespace

std::optional<EncodedText> EncodingQuestion::Settle(const QString& path) {
    const auto encode = [this] {
        const WaitPointer wait;
        return document_.File().Encoded();
    };
    EncodedText encoded = encode();
    if (encoded.bytes) return encoded;

    Misfit misfit{.path = path, .text = document_.Text1->RawText(), .format = encoded.format};
    misfit.ranges = FindMisfits(misfit.text, misfit.format.encoding);
    misfit.noReferences = WhyNoReferences(path, misfit.text, misfit.ranges);
    const bool noReferences = misfit.ranges.empty() || misfit.noReferences;
    Way way = way_;
    if (way == Way::Unknown || (way == Way::References && noReferences)) way = Ask(misfit);
    if (way == Way::Unknown) return std::nullopt;
    way_ = way;
    if (way == Way::Utf8) return TurnToUtf8(misfit);
    WriteReferences(misfit);
    encoded = encode();
    return encoded.bytes ? encoded : Settle(path);
}

EncodingQuestion::Way EncodingQuestion::Ask(const Misfit& misfit) const {
    const QString name = ReadableName(QFileInfo(misfit.path).fileName());
    const QString encoding = misfit.format.EncodingName();
    QString question;
    bool keepable = false;
    if (misfit.ranges.empty()) {
        question =
            Tr("\"%1\" can't be saved in its encoding, %2: it would be read in another one.").arg(name, encoding);
    } else {
        const int offset = misfit.ranges.front().offset;
        const auto line = QStringView(misfit.text).first(offset).count(u'\n') + 1;
        question = Tr("Line %1 of \"%2\" holds %3, which %4, the encoding of the file, doesn't have.")
                       .arg(QString::number(line), name, Named(FirstCharacter(misfit.text, offset)), encoding);
        keepable = !misfit.noReferences;
    }
    question += "\n\n";
    question += FindDeclarations(misfit.text).empty()
                    ? Tr("Save as UTF-8, which has every character?")
                    : Tr("Save as UTF-8, which has every character, and correct the encoding that the text declares?");
    if (keepable) {
        question += ' ' + Tr("Or keep %1, and write what it doesn't have as references like %2, in this window too?")
                              .arg(encoding, AsReferences(FirstCharacter(misfit.text, misfit.ranges.front().offset)));
    } else if (misfit.noReferences && !misfit.ranges.empty()) {
        question +=
            ' ' +
            Tr("%1 can't be kept with references in place of such characters: %2.").arg(encoding, *misfit.noReferences);
    }
    QStringList captions{Tr("Save as UTF-8")};
    if (keepable) captions << Tr("Keep %1").arg(encoding);
    captions << Tr("Cancel");
    const int cancel = static_cast<int>(captions.size()) - 1;
    const int chosen = workbench_.Ask().Choose(workbench_.Window(), question, Tr("Encoding"), captions, cancel, cancel);
    if (chosen == cancel) return Way::Unknown;
    return chosen == 0 ? Way::Utf8 : Way::References;
}

EncodedText EncodingQuestion::TurnToUtf8(const Misfit& misfit) {
    std::vector<EncodingDeclaration> wrong = FindDeclarations(misfit.text);
    // In a script, what looks like a declaration is a text of its own.
    const bool isMarkup = IsMarkupFile(misfit.path, misfit.text);
    std::erase_if(wrong, [&](const EncodingDeclaration& each) {
        return SaysUtf8(each) || (!isMarkup && QStringView(misfit.text).first(each.place.offset).contains(u'<'));
    });
    std::ranges::sort(wrong, std::ranges::greater(), [](const auto& each) { return each.place.offset; });
    if (!wrong.empty()) BeginStep();
    for (const EncodingDeclaration& declaration : wrong) {
        document_.Text1->ReplaceRange(declaration.place, QStringLiteral("utf-8"));
    }
    return document_.File().EncodedAsUtf8(NeedsMark(misfit.path, document_.Text1->RawText()));
}

void EncodingQuestion::WriteReferences(const Misfit& misfit) {
    const WaitPointer wait;
    BeginStep();
    std::for_each(misfit.ranges.rbegin(), misfit.ranges.rend(), [&](const TextRange& range) {
        const QStringView characters = QStringView(misfit.text).sliced(range.offset, range.length);
        document_.Text1->ReplaceRange(range, AsReferences(characters));
    });
}

void EncodingQuestion::BeginStep() {
    document_.usingKeys = false;
    document_.ProcessUndo();
    document_.ResetRedo();
}

}  // namespace vellum
