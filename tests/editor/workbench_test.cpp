#include "editor/workbench.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(IsScriptCaption, GoesByTheLastLetters) {
    for (const char* caption : {"a.js", "/home/x/STYLE.CSS", "notes.TXT", "b.vbs", ".css", "a.htm.js", "New.js"}) {
        EXPECT_TRUE(IsScriptCaption(caption)) << caption;
    }
    for (const char* caption : {"a.htm", "New 1", "js", "css", "ajs", "a.jsp", "a.css.htm", "a.js ", "", "a.xml"}) {
        EXPECT_FALSE(IsScriptCaption(caption)) << caption;
    }
}

TEST(IsScriptCaption, ACaptionOfThreeCharactersIsNone) {
    EXPECT_FALSE(IsScriptCaption(".js"));
}

}  // namespace
}  // namespace vellum
