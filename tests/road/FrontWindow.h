// The window in front, as the window server has it. No window manager runs on the screens of tests,
// so nobody else gives windows the keyboard.
#pragma once

/// Hands the keyboard to the window in front and waits until the server has done all that it was
/// asked for. False when no window is up.
bool FocusFrontWindow();
