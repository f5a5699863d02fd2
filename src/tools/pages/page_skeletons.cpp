#include "tools/pages/page_skeletons.h"

#include "tools/framework/attributes.h"

#include <QStringList>

namespace vellum {
namespace {

constexpr QLatin1String lineEnd("\r\n");

}  // namespace

QString NameSpaceAttribute() {
    return Attribute("xmlns", "http://www.w3.org/1999/xhtml");
}

QString FramesetSkeleton() {
    return QStringList{
        R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Frameset//EN" "DTD/xhtml1-frameset.dtd">)",
        "<html" + NameSpaceAttribute() + ">",
        "<head" + NameSpaceAttribute() + ">",
        "<title>Title Goes Here</title>",
        "</head>",
        "",
        "",
        "",
        "<body>",
        "&nbsp",
        "</body>",
        "</html>",
    }
        .join(lineEnd);
}

QString StructuralSkeleton() {
    return QStringList{
        R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN" "DTD/xhtml1-transitional.dtd">)",
        "<html" + NameSpaceAttribute() + ">",
        "<head>",
        "<title></title>",
        "</head>",
        "<body>",
        "",
        "</body>",
        "</html>",
    }
        .join(lineEnd);
}

}  // namespace vellum
