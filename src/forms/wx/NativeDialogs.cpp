// Message box, the three common dialogs, help.
#include "WxRenderer.h"

namespace Forms {

MsgBoxResult WxRenderer::MsgBox(const MsgBoxRequest&) {
  return MsgBoxResult::Ok;
}
DialogAnswer WxRenderer::ChooseFile(FileDialog&) {
  return {};
}
DialogAnswer WxRenderer::ChooseFont(FontDialog&) {
  return {};
}
DialogAnswer WxRenderer::ChoosePage(PageDialog&) {
  return {};
}
bool WxRenderer::ShowHelp(TextView, HelpCommand, std::int32_t, Form*) {
  return false;
}
Edges WxRenderer::TabEdges(const TabStrip&) const {
  return {60, 360, 60, 60};
}
}  // namespace Forms
