#include "tools/framework/paper.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Paper, IsWhiteUnlessTheTextIsLight) {
    for (const ColorNumber dark : {0x000000U, 0x0000FFU, 0xFF0000U, 0x606060U}) EXPECT_EQ(PaperFor(dark), 0xFFFFFFU);
    for (const ColorNumber light : {0xFFFFFFU, 0x00FFFFU, 0xC0C0C0U}) EXPECT_EQ(PaperFor(light), 0x202020U);
}

}  // namespace
}  // namespace vellum
