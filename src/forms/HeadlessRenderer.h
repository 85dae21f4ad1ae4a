// A renderer that draws nothing: forms work without a display, answered by a Script. For tests, and
// for programs that use forms on machines without a screen.
//
// Its measures never change, so that tests can expect exact places (all are choices, near to those
// of a desktop of 96 pixels to the inch): a screen of 1024 by 768 pixels of 15 twips (15360 by
// 11520), whose lowest 450 twips are a task bar; frames of 60 twips around a form, a title of 345,
// a menu bar of 285; tabs of 300 over a border of 60. A character is as wide as three quarters of
// the font's size in pixels, 90 twips at 8.25 points, one pixel more when bold; a line is 195 twips
// high at 8.25 points, in proportion at other sizes.
#pragma once

#include <map>
#include <set>

#include "IRenderer.h"
#include "Script.h"

namespace Forms {

class Timer;

class HeadlessRenderer : public IRenderer {
 public:
  Script& User() { return moScript; }

  /// Lets that much time pass: timers fire when their time comes, the earliest first.
  void Advance(std::int32_t lMilliseconds);
  /// The face isn't installed any more.
  void RemoveFont(TextView sName) { masMissing.insert(Text(sName)); }
  void SetMetrics(const ScreenMetrics& oMetrics) { moMetrics = oMetrics; }

  std::int32_t ShownPointer() const { return mPointers.back(); }
  /// All that were shown, from the beginning.
  const std::vector<std::int32_t>& Pointers() const { return mPointers; }
  const Text& ClipboardPicture() const { return msClipboardPicture; }
  /// What Open and ShowHelp were asked for: the target, or file, command number and context parted
  /// by "|".
  const std::vector<Text>& Opened() const { return masOpened; }
  /// How many paints a component's Refresh asked for.
  std::int32_t Refreshes(const Component& oComponent) const;

  std::unique_ptr<IPeer> MakePeer(Component& oComponent) override;
  void RunModal(Form& oForm) override { moScript.RunModal(oForm); }
  void DoEvents() override { moScript.RunDoEvents(); }
  ScreenMetrics Metrics() const override { return moMetrics; }
  std::int32_t TextWidth(const FontSpec& oFont, TextView sText) const override;
  std::int32_t TextHeight(const FontSpec& oFont) const override;
  bool HasFont(TextView sName) const override { return masMissing.count(Text(sName)) == 0; }
  Edges FormEdges(const Form& oForm) const override;
  Edges TabEdges(const TabStrip&) const override { return {60, 360, 60, 60}; }
  void SetMousePointer(std::int32_t nPointer) override { mPointers.push_back(nPointer); }
  void LockDrawing(Control*) override {}
  void SetClipboardText(TextView sText) override;
  Text ClipboardText() const override { return msClipboard; }
  void SetClipboardPicture(TextView sPictureKey) override;
  MsgBoxResult MsgBox(const MsgBoxRequest& o) override { return moScript.RunMsgBox(o); }
  DialogAnswer ChooseFile(FileDialog& o) override { return moScript.RunChooseFile(o); }
  DialogAnswer ChooseFont(FontDialog& o) override { return moScript.RunChooseFont(o); }
  DialogAnswer ChoosePage(PageDialog& o) override { return moScript.RunChoosePage(o); }
  bool Open(TextView sTarget) override;
  bool ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext, Form*) override;

 private:
  class Peer;
  /// When it fires, and the order among those of one moment.
  using Due = std::pair<std::int64_t, std::int64_t>;

  Script moScript;
  ScreenMetrics moMetrics{{0, 0, 15360, 11520}, {0, 0, 15360, 11070}, 15, 15};
  std::set<Text> masMissing;
  std::vector<std::int32_t> mPointers{0};
  Text msClipboard, msClipboardPicture;
  std::vector<Text> masOpened;
  std::map<Timer*, Due> moTimers;
  std::int64_t mlNow = 0, mlOrder = 0;
  std::map<const Component*, std::int32_t> moRefreshes;
};

}  // namespace Forms
