// The tables at the head of an RTF file, as far as its text needs them: fonts, colours, lists.
#pragma once

#include "import/rtf_words.h"
#include "values/units.h"

#include <QHash>
#include <QString>

#include <vector>

namespace vellum {

// Of each table so many entries are kept that no honest file has more.
inline constexpr int mostRtfEntries = 65536;

struct RtfFont {
    QString name;
    int codePage = 0;  // 0: the document's
};

class RtfFonts {
public:
    // What comes next tells of the font with this number.
    void Begin(int number);
    void SetCharset(int charset);
    void SetCodePage(int codePage);
    // A name ends with a semicolon.
    void AddName(QStringView text);
    // The name that is being read needs this one.
    [[nodiscard]] int CodePage() const { return begun_.codePage; }
    // What was told is all of the last font.
    void End();

    // One without a name when there is no such font.
    [[nodiscard]] RtfFont Find(int number) const { return fonts_.value(number); }

private:
    RtfFont begun_;
    int number_ = -1;
    QHash<int, RtfFont> fonts_;
};

class RtfColors {
public:
    // Parts of a colour, from 0 to 255.
    void SetRed(int part) { SetPart(part, 0); }
    void SetGreen(int part) { SetPart(part, 8); }
    void SetBlue(int part) { SetPart(part, 16); }
    void End();  // of a colour; one without parts is black

    [[nodiscard]] ColorNumber Find(int number) const;  // black when there is no such colour

private:
    void SetPart(int part, unsigned shift);

    ColorNumber begun_ = 0;
    std::vector<ColorNumber> colors_;
};

class RtfLists {
public:
    void NewList();
    void AddLevel(int kind);
    void SetNumber(int number);  // that the list before has
    void SetLink(int link);      // by which paragraphs name that list

    [[nodiscard]] RtfNumbering Find(int link, int level) const;

private:
    struct Levels {
        unsigned bullets = 0;  // a bit for each level that has one, from level 0
        int count = 0;
    };

    Levels begun_;
    int number_ = 0;
    QHash<int, Levels> lists_;
    QHash<int, int> links_;
};

}  // namespace vellum
