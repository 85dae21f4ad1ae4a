// Command bars in memory, with the menu "Add-Ins", for an add-in that runs over files on disk, and
// for a window that shows them. What was deleted is out of its bar at once but stays in memory to
// the end: a click may delete the control that raised it.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "CommandBars.h"

class HostControls;
class HostCommandBars;

class HostControl : public CommandBarControl {
 public:
  explicit HostControl(HostControls& oOwner) : moOwner(oOwner) {}
  Text Caption() const override { return msCaption; }
  void SetCaption(TextView sCaption) override { msCaption = sCaption; }
  Text TooltipText() const override { return msTooltipText; }
  void SetTooltipText(TextView sText) override { msTooltipText = sText; }
  /// Failure 5 when no picture is on the clipboard; nothing on a machine without a clipboard.
  void PasteFace() override;
  /// Failure 5 when it was deleted before.
  void Delete() override;

  const Picture& Face() const { return moFace; }
  ::CommandBarEvents& Events() { return moEvents; }

 private:
  HostControls& moOwner;
  Text msCaption, msTooltipText;
  Picture moFace;
  ::CommandBarEvents moEvents;
};

class HostControls : public CommandBarControls {
 public:
  explicit HostControls(HostCommandBars& oBars) : moBars(oBars) {}
  CommandBarControl& Add(std::int32_t nType) override;
  std::int32_t Count() const override { return static_cast<std::int32_t>(moControls.size()); }
  HostControl& Item(std::int32_t lIndex) override;

  void Remove(const HostControl& oControl);
  HostCommandBars& Bars() { return moBars; }

 private:
  HostCommandBars& moBars;
  std::vector<std::unique_ptr<HostControl>> moControls, moDeleted;
};

class HostCommandBar : public CommandBar {
 public:
  HostCommandBar(HostCommandBars& oBars, TextView sName, std::int32_t lPosition, bool bBuiltIn)
      : moBars(oBars),
        moControls(oBars),
        msName(sName),
        mlPosition(lPosition),
        mbVisible(bBuiltIn),
        mbBuiltIn(bBuiltIn) {}
  Text Name() const override { return msName; }
  HostControls& Controls() override { return moControls; }
  /// Failure 5 for a bar of the IDE's own.
  void Delete() override;
  std::int32_t Position() const override { return mlPosition; }
  void SetPosition(std::int32_t lValue) override { mlPosition = lValue; }
  std::int32_t RowIndex() const override { return mlRowIndex; }
  void SetRowIndex(std::int32_t lValue) override { mlRowIndex = lValue; }
  std::int32_t Left() const override { return mlLeft; }
  void SetLeft(std::int32_t lValue) override { mlLeft = lValue; }
  std::int32_t Top() const override { return mlTop; }
  void SetTop(std::int32_t lValue) override { mlTop = lValue; }
  bool Visible() const override { return mbVisible; }
  void SetVisible(bool bValue) override { mbVisible = bValue; }
  std::int32_t Protection() const override { return mlProtection; }
  void SetProtection(std::int32_t lValue) override { mlProtection = lValue; }

 private:
  HostCommandBars& moBars;
  HostControls moControls;
  Text msName;
  std::int32_t mlPosition, mlRowIndex = 0, mlLeft = 0, mlTop = 0, mlProtection = 0;
  bool mbVisible, mbBuiltIn;
};

class HostCommandBars : public CommandBars, public Events {
 public:
  HostCommandBars();
  HostCommandBar& Item(TextView sName) override;
  /// Failure 5 when there is one of that name. A new bar is hidden.
  HostCommandBar& Add(TextView sName, std::int32_t lPosition) override;
  /// The same object for every call with one control. Failure 13 for a control of another IDE.
  ::CommandBarEvents& CommandBarEvents(CommandBarControl& oControl) override;

  std::int32_t Count() const { return static_cast<std::int32_t>(moBars.size()); }
  /// From 1; Failure 9 outside.
  HostCommandBar& Item(std::int32_t lIndex);
  void Remove(const HostCommandBar& oBar);
  void Click(CommandBarControl& oControl);
  /// Where PasteFace takes its picture from; an empty picture: none is there.
  void SetClipboard(std::function<Picture()> oClipboard) { moClipboard = std::move(oClipboard); }
  const std::function<Picture()>& Clipboard() const { return moClipboard; }

 private:
  std::vector<std::unique_ptr<HostCommandBar>> moBars, moDeleted;
  std::function<Picture()> moClipboard;
};
