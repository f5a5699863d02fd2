// Filling the reference tree, and reading one document type against an XML parser that reads the same file.
#include "bench/timing.h"
#include "files/paths.h"
#include "reference/add_tags.h"
#include "settings/settings_keys.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxml/valid.h>

namespace vellum::bench {
namespace {

QString DtdFolder(benchmark::State& state) {
    const QString folder = DataPath(QStringLiteral("Dtd"));
    if (folder.isEmpty()) state.SkipWithError("the document types are missing");
    return folder;
}

void FillReferenceTree(benchmark::State& state) {
    const QTemporaryDir home;
    SettingsStore settings(home.filePath("settings.json"));
    for (const SettingKey* key : {&keys::dtdSmil, &keys::dtdSvg, &keys::dtdOpen, &keys::dtdWml, &keys::dtdX3d}) {
        WriteSetting(settings, *key, QStringLiteral("1"));
    }
    const QString folder = DtdFolder(state);
    ReferenceTree tree;
    for (auto _ : state) AddTags(tree, settings, folder);
    state.counters["nodes"] = tree.Count();
}

void ReadXhtmlDtd(benchmark::State& state) {
    const QString path = JoinPath(DtdFolder(state), QStringLiteral("xhtml1-transitional.dtd"));
    for (auto _ : state) {
        ReferenceTree tree;
        int nodeIndex = 2;
        benchmark::DoNotOptimize(AddDtD(tree, nodeIndex, path, 1, QStringLiteral("XHTML1 Transitional")));
    }
}

void ParseXhtmlDtdByLibxml2(benchmark::State& state) {
    const QByteArray path = JoinPath(DtdFolder(state), QStringLiteral("xhtml1-transitional.dtd")).toUtf8();
    const auto* const name = reinterpret_cast<const xmlChar*>(path.constData());
    for (auto _ : state) {
        xmlDtdPtr dtd = xmlParseDTD(nullptr, name);
        if (!dtd) state.SkipWithError("the parser refused the document type");
        xmlFreeDtd(dtd);
    }
    xmlCleanupParser();
}

BENCHMARK(FillReferenceTree)->Iterations(Runs(50))->Unit(benchmark::kMillisecond);
BENCHMARK(ReadXhtmlDtd)->Iterations(Runs(200))->Unit(benchmark::kMillisecond);
BENCHMARK(ParseXhtmlDtdByLibxml2)->Iterations(Runs(200))->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellum::bench
