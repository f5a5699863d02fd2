// The RTF reader on made-up input: it ends, its text keeps the promises of rich texts, and the writer's RTF of that
// text reads as the same.
#include "import/rtf_reader.h"
#include "import/rtf_writer.h"
#include "import/text_import.h"

#include <QSet>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace vellum;

void Demand(bool holds) {
    if (!holds) std::abort();
}

void CheckRuns(const RichText& rich) {
    Demand(!rich.runs.empty() && rich.runs.front().offset == 0);
    for (std::size_t i = 1; i < rich.runs.size(); ++i) {
        Demand(rich.runs[i].offset > rich.runs[i - 1].offset && rich.runs[i].offset <= rich.text.size());
        Demand(rich.runs[i].format != rich.runs[i - 1].format);
    }
    for (const RichRun& run : rich.runs) Demand(run.format.font < rich.fonts.size() && run.format.halfPoints > 0);
    Demand(QSet<QString>(rich.fonts.begin(), rich.fonts.end()).size() == rich.fonts.size());
}

void CheckText(const RichText& rich) {
    const auto ends = rich.text.count(u"\r\n");
    Demand(rich.text.count(u'\r') == ends && rich.text.count(u'\n') == ends);
    Demand(rich.paragraphs.size() == static_cast<std::size_t>(ends) + 1);
    Demand(rich.text.isValidUtf16());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const RichText rich = ReadRtf({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
    CheckRuns(rich);
    CheckText(rich);
    Demand(!ConvertRichText(rich).isEmpty());
    Demand(ReadRtf(WriteRtf(rich)) == rich);
    return 0;
}
