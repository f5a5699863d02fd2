// Every form of the program, and how it is made for its picture.
#pragma once

#include "files/recovery_store.h"
#include "shell/mdiform1.h"
#include "tests/shell/settings_bench.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace vellum::contact_sheet {

// What the forms stand on: settings, a document, and a folder with a few files as the website.
class Stage {
public:
    Stage();

    test::SettingsBench bench;
    test::PlainDocument document{bench};
    QTemporaryDir home;
    QTemporaryDir site;
    SettingsStore settings{home.filePath("settings.json")};  // the main window's
    RecoveryStore recovery{home.filePath("recovery")};
};

struct Form {
    const char* name;
    std::function<std::unique_ptr<QWidget>(Stage&)> make;
};

// A box that opens modally; `open` returns when it has been closed.
struct Box {
    const char* name;
    std::function<void()> open;
};

[[nodiscard]] const std::vector<Form>& Forms();
[[nodiscard]] const std::vector<Box>& Boxes();

// With a page and its folder in it, at 1280 by 800.
[[nodiscard]] std::unique_ptr<MDIform1> MakeMainWindow(Stage& stage);

}  // namespace vellum::contact_sheet
