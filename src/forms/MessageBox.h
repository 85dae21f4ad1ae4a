// What a message box shows, and its answer.
#pragma once

#include "FormsTypes.h"

namespace Forms {

class Form;

enum class MsgBoxButtons : std::int32_t {
  OkOnly = 0,
  OkCancel = 1,
  AbortRetryIgnore = 2,
  YesNoCancel = 3,
  YesNo = 4,
  RetryCancel = 5,
};
enum class MsgBoxIcon : std::int32_t {
  None = 0,
  Critical = 16,
  Question = 32,
  Exclamation = 48,
  Information = 64
};
enum class MsgBoxResult : std::int32_t {
  Ok = 1,
  Cancel = 2,
  Abort = 3,
  Retry = 4,
  Ignore = 5,
  Yes = 6,
  No = 7
};

struct MsgBoxRequest {
  Text sPrompt, sTitle;
  MsgBoxButtons eButtons = MsgBoxButtons::OkOnly;
  MsgBoxIcon eIcon = MsgBoxIcon::None;
  /// The button that Return presses, from 1 at the left.
  std::int32_t lDefaultButton = 1;
  Form* poOwner = nullptr;
};

/// Whether a box with these buttons can give this answer.
bool HasAnswer(MsgBoxButtons eButtons, MsgBoxResult eResult);

}  // namespace Forms
