#include "import/rtf_characters.h"

#include <utility>

namespace vellum {
namespace {

constexpr char16_t unknown = u'\uFFFD';

}  // namespace

QStringView RtfCharacters::FromBytes(QByteArrayView bytes, int codePage) {
    text_.clear();
    AddHalf();
    if (!page_ || pageNumber_ != codePage) {
        if (page_) page_->Finish(text_);
        const int known = KnownCodePage(codePage);
        page_ = &pages_.try_emplace(known, known).first->second;
        pageNumber_ = codePage;
    }
    page_->Decode(bytes, text_);
    return text_;
}

QStringView RtfCharacters::FromUnit(char16_t unit) {
    text_.clear();
    if (QChar::isLowSurrogate(unit)) {
        text_ += QChar(high_ != 0 ? std::exchange(high_, 0) : unknown);
        if (text_.front() != unknown) text_ += QChar(unit);
        return text_;
    }
    AddHalf();
    if (QChar::isHighSurrogate(unit)) {
        high_ = unit;
    } else {
        text_ += QChar(unit);
    }
    return text_;
}

QStringView RtfCharacters::FinishBytes() {
    text_.clear();
    if (page_) page_->Finish(text_);
    return text_;
}

QStringView RtfCharacters::Finish() {
    text_.clear();
    AddHalf();
    if (page_) page_->Finish(text_);
    return text_;
}

void RtfCharacters::AddHalf() {
    if (std::exchange(high_, 0) != 0) text_ += QChar(unknown);
}

}  // namespace vellum
