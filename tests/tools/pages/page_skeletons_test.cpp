#include "tools/pages/page_skeletons.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

TEST(PageSkeletons, TheFramesetPage) {
    EXPECT_EQ(FramesetSkeleton(),
              "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Frameset//EN\" \"DTD/xhtml1-frameset.dtd\">\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<head xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<title>Title Goes Here</title>\r\n"
              "</head>\r\n"
              "\r\n"
              "\r\n"
              "\r\n"
              "<body>\r\n"
              "&nbsp\r\n"
              "</body>\r\n"
              "</html>");
}

TEST(PageSkeletons, TheFramesetGoesAmongTheEmptyLines) {
    const QString page = FramesetSkeleton();
    const auto offset = page.size() - framesetFromEnd;
    EXPECT_EQ(framesetFromEnd, 34);
    EXPECT_GE(offset, page.indexOf("</head>\r\n") + 9);
    EXPECT_LT(offset, page.indexOf("<body>"));
}

TEST(PageSkeletons, TheTagsOfEveryPage) {
    EXPECT_EQ(StructuralSkeleton(),
              "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<head>\r\n"
              "<title></title>\r\n"
              "</head>\r\n"
              "<body>\r\n"
              "\r\n"
              "</body>\r\n"
              "</html>");
}

}  // namespace
}  // namespace vellum::test
