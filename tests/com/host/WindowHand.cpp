#include "WindowHand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

std::string Plain(std::string caption) {
  std::erase(caption, '&');
  return caption;
}

std::string TitleOf(HWND window) {
  char title[256] = "";
  GetWindowTextA(window, title, sizeof title);
  return Plain(title);
}

BOOL CALLBACK AddShown(HWND window, LPARAM list) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::vector<HWND> Shown() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), AddShown, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// Null while it isn't shown or takes no input.
HWND Ready(const std::string& title) {
  for (const HWND window : Shown())
    if (TitleOf(window).starts_with(title) && IsWindowEnabled(window)) return window;
  return nullptr;
}

/// 0 when there is none that can be chosen.
UINT ItemId(HMENU menu, const std::string& caption) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[256] = "";
    GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
    if (const HMENU inner = GetSubMenu(menu, i)) {
      if (const UINT id = ItemId(inner, caption)) return id;
    } else if (Plain(text).starts_with(caption) &&
               !(GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) &
                 (MF_GRAYED | MF_DISABLED))) {
      return GetMenuItemID(menu, i);
    }
  }
  return 0;
}

struct Wanted {
  std::string caption;
  HWND found = nullptr;
};

BOOL CALLBACK LookAt(HWND child, LPARAM place) {
  auto& wanted = *reinterpret_cast<Wanted*>(place);
  if (TitleOf(child).starts_with(wanted.caption) && IsWindowVisible(child) &&
      IsWindowEnabled(child))
    wanted.found = child;
  return !wanted.found;
}

HWND Button(HWND window, const std::string& caption) {
  Wanted wanted{caption};
  EnumChildWindows(window, LookAt, reinterpret_cast<LPARAM>(&wanted));
  return wanted.found;
}

}  // namespace

WindowHand::WindowHand(HWND home) : mHome(home) {
  SetTimer(mHome, reinterpret_cast<UINT_PTR>(this), TickMilliseconds, Tick);
}

WindowHand::~WindowHand() {
  KillTimer(mHome, reinterpret_cast<UINT_PTR>(this));
}

void WindowHand::Choose(std::string window, std::string item) {
  Step(window + ": " + item, [=] {
    const HWND shown = Ready(window);
    const UINT id = shown ? ItemId(GetMenu(shown), item) : 0;
    return id != 0 && PostMessageW(shown, WM_COMMAND, LOWORD(id), 0);
  });
}

void WindowHand::Press(std::string window, std::string button) {
  Step(window + ": " + button, [=] {
    const HWND shown = Ready(window);
    const HWND child = shown ? Button(shown, button) : nullptr;
    return child && PostMessageW(child, BM_CLICK, 0, 0);
  });
}

void WindowHand::Close(std::string window) {
  Step(window + " is closed", [=] {
    const HWND shown = Ready(window);
    return shown && PostMessageW(shown, WM_CLOSE, 0, 0);
  });
}

void WindowHand::Step(std::string name, std::function<bool()> does) {
  mSteps.emplace_back(std::move(name), std::move(does));
}

void CALLBACK WindowHand::Tick(HWND, UINT, UINT_PTR timer, DWORD) {
  reinterpret_cast<WindowHand*>(timer)->Tick();
}

void WindowHand::Tick() {
  if (mGaveUp) {
    for (const HWND window : Shown())
      if (window != mHome) PostMessageW(window, WM_CLOSE, 0, 0);
    return;
  }
  if (mSteps.empty() || ++mWaited < Settling) return;
  if (mSteps.front().second()) {
    mSteps.pop_front();
    mWaited = 0;
  } else if (mWaited > Patience) {
    mGaveUp = true;
    ADD_FAILURE() << "can't be done: " << mSteps.front().first;
    for (const HWND window : Shown()) ADD_FAILURE() << "is shown: " << TitleOf(window);
  }
}
