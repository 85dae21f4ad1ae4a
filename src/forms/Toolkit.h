// What all forms of a program share: the renderer, screen, clipboard, texts by number, pictures,
// the program's folder, the forms that are loaded. main makes one and hands it to the forms; a test
// makes its own.
//
//   HeadlessRenderer oRenderer;
//   Toolkit oToolkit(oRenderer);
//   FMain oMain(oToolkit);
#pragma once

#include <functional>
#include <map>

#include "Clipboard.h"
#include "Screen.h"

namespace Forms {

class Form;

class Toolkit {
 public:
  /// PNG bytes of a picture at a size in pixels; empty when there is none.
  using PictureProvider = std::function<std::string(TextView sKey, std::int32_t lPixels)>;

  /// The renderer isn't owned and outlives the toolkit, as the toolkit outlives the forms.
  explicit Toolkit(IRenderer& oRenderer) : moRenderer(oRenderer) {}
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

  IRenderer& Renderer() const { return moRenderer; }
  Forms::Screen& Screen() { return moScreen; }
  Forms::Clipboard& Clipboard() { return moClipboard; }

  /// The program's folder, without a separator at its end.
  const Text& Path() const { return msPath; }
  void SetPath(TextView sPath) { msPath = sPath; }
  const Text& Title() const { return msTitle; }
  void SetTitle(TextView sTitle) { msTitle = sTitle; }
  const Text& HelpFile() const { return msHelpFile; }
  void SetHelpFile(TextView sFile) { msHelpFile = sFile; }

  void SetResString(std::int32_t lId, TextView sText) { moStrings[lId] = sText; }
  /// Failure 326 when there is no text of that number.
  const Text& LoadResString(std::int32_t lId) const;
  void SetPictures(PictureProvider oProvider) { moPictures = std::move(oProvider); }
  std::string Picture(TextView sKey, std::int32_t lPixels) const;

  /// In the order of loading.
  const std::vector<Form*>& LoadedForms() const { return moLoaded; }
  /// The form that takes input now; null when none shows.
  Form* ActiveForm() const { return mpoActive; }
  /// The modal form in front; null when none is shown modally.
  Form* ModalForm() const { return moModal.empty() ? nullptr : moModal.back(); }
  /// Whether a modal form keeps input from this one.
  bool Blocked(const Form& oForm) const;

  /// The owner of a box is the active form unless the request names one; an empty title becomes
  /// Title.
  MsgBoxResult MsgBox(MsgBoxRequest oRequest);
  MsgBoxResult MsgBox(TextView sPrompt, MsgBoxButtons eButtons = MsgBoxButtons::OkOnly,
                      MsgBoxIcon eIcon = MsgBoxIcon::None, TextView sTitle = {});
  DialogAnswer ChooseFile(FileDialog& oDialog) { return moRenderer.ChooseFile(oDialog); }
  DialogAnswer ChooseFont(FontDialog& oDialog) { return moRenderer.ChooseFont(oDialog); }
  DialogAnswer ChoosePage(PageDialog& oDialog) { return moRenderer.ChoosePage(oDialog); }
  bool Open(TextView sTarget) { return moRenderer.Open(sTarget); }
  void DoEvents() { moRenderer.DoEvents(); }

  /// Stops drawing of one control, or lets it go on with null. One control at a time: False, and no
  /// change, when another is locked.
  bool LockWindowUpdate(Control* poControl);
  Control* LockedControl() const { return mpoLocked; }

  // For forms only.
  void FormLoaded(Form& oForm);
  void FormGone(Form& oForm);
  void SetActiveForm(Form* poForm);
  /// The form hides: its owner, or the form shown last, becomes active.
  void ActivateNext(const Form& oForm);
  void PushModal(Form& oForm) { moModal.push_back(&oForm); }
  void PopModal(const Form& oForm);
  void ControlGone(const Control& oControl);

 private:
  IRenderer& moRenderer;
  Forms::Screen moScreen{moRenderer};
  Forms::Clipboard moClipboard{moRenderer};
  Text msPath, msTitle, msHelpFile;
  std::map<std::int32_t, Text> moStrings;
  PictureProvider moPictures;
  std::vector<Form*> moLoaded, moModal;
  Form* mpoActive = nullptr;
  Control* mpoLocked = nullptr;
};

}  // namespace Forms
