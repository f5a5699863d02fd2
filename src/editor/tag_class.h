// The classes that the colour of a tag goes by.
#pragma once

#include <QStringView>

#include <array>
#include <cstdint>

namespace vellum {

enum class TagClass : std::uint8_t {
    Plain,
    Script,
    Style,
    Link,
    Table,
    Frame,
    Server,    // a block's own marker, which is no tag
    Unlisted,  // painted as a plain one
};

// The class of a name that begins with "<" or "</", without regard to case. The beginning of a listed name counts as
// that name, so the order of the tests and the cut names of the lists decide: "<TABL" is plain, "<TABLE" a table tag.
[[nodiscard]] TagClass ClassOfName(QStringView name);

// The same, remembered by name: a page repeats the same few names. Made anew for each scan.
class TagClasses {
public:
    // The class of the tag whose "<" is `tag`'s first character; its last one, the ">", is no part of the name. The
    // name ends at the first blank, tab or CR, and at a line feed when that stands for a whole line end.
    [[nodiscard]] TagClass ClassOf(QStringView tag, bool lineFeedEnds);

private:
    struct Entry {
        std::uint64_t key = 0;  // no name has it
        TagClass tagClass = TagClass::Unlisted;
    };

    static constexpr int slotBits = 7;
    std::array<Entry, 1U << slotBits> entries_{};
};

}  // namespace vellum
