// The tools by name, so that a menu item and a bar item of one tool can't differ.
#pragma once

#include "shell/command.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frm_iframe.h"
#include "tools/links/frm_anchors.h"
#include "tools/media/frm_graphics.h"
#include "tools/media/frm_sound.h"
#include "tools/scripts/asp.h"
#include "tools/scripts/frm_applet.h"
#include "tools/scripts/frm_param.h"
#include "tools/text/frm_fonts.h"
#include "tools/text/hrule.h"

namespace vellum {

inline constexpr Command anchorTool = Tool(ShowTool<frmAnchors>);
inline constexpr Command aspTool = Tool(ShowTool<ASP>);
inline constexpr Command soundTool = Tool(ShowTool<frmSound>);
inline constexpr Command floatingFrameTool = Tool(ShowTool<frmIFrame>);
inline constexpr Command frameBuilderTool = Tool(ShowFrameBuilder);
inline constexpr Command fontTool = Tool(ShowTool<frmFonts>);
inline constexpr Command formWizardTool = Later();
inline constexpr Command formInputTool = Later();
inline constexpr Command horizontalRuleTool = Tool(ShowTool<HRule>);
inline constexpr Command imageTool = Tool(ShowTool<frmGraphics>);
inline constexpr Command imageMapTool = Later();
inline constexpr Command inlineStyleTool = Later();
inline constexpr Command inTagScriptTool = Later();
inline constexpr Command inTagStyleTool = Later();
inline constexpr Command appletTool = Tool(ShowTool<frmApplet>);
inline constexpr Command listTool = Later();
inline constexpr Command marqueeTool = Later();
inline constexpr Command objectTool = Later();
inline constexpr Command paragraphTool = Later();
inline constexpr Command parameterTool = Tool(ShowTool<frmParam>);
inline constexpr Command quickstartTool = Later();
inline constexpr Command scriptTagTool = Later();
inline constexpr Command scriptingTool = Later();
inline constexpr Command searchEngineTool = Later();
inline constexpr Command specialEffectsTool = Later();
inline constexpr Command styleSheetTool = Later();
inline constexpr Command tableTool = Later();
inline constexpr Command orbiterTool = Later();

}  // namespace vellum
