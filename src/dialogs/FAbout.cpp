#include "FAbout.h"

#include "Guard.h"
#include "MXForm.h"
#include "Put.h"
#include "Toolkit.h"

using namespace Forms;

namespace {

constexpr TextView Version = u"Tarvane Quillon " QUILLON_VERSION;
constexpr TextView Legal = u"Copyright \u00A9 Morvelle. All rights reserved.";
constexpr TextView Warning =
    u"Warning: this program is protected by copyright law. Copying or passing on all of it or any "
    u"part of it without permission can have consequences under civil and criminal law.";

}  // namespace

FAbout::FAbout(Toolkit& oToolkit) : Form(oToolkit, u"FAbout") {
  On(cmdOK.Click, [this] {
    Guard({u"FAbout", u"cmdOK_Click", ErrorIds::BoundaryVB}, [this](GuardScope&) { Hide(); });
  });
}

void FAbout::Design() {
  SetCaption(u"About Tarvane");
  SetBorderStyle(FormBorder::FixedDialog);
  SetMaxButton(false);
  SetMinButton(false);
  Move(0, 0, 5700, 3000);
  picIcon.Move(180, 180, 540, 540);
  picIcon.SetBorderStyle(BorderStyle::None);
  picIcon.SetPicture(u"Quillon");
  lblVersion.Move(900, 180, 4500, 240);
  lblVersion.SetFontBold(true);
  lblLegal.Move(900, 480, 4500, 240);
  lblWarning.Move(180, 1080, 5220, 840);
  Put(cmdOK, u"OK", {4200, 2040, 1200, 375});
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

void FAbout::Display(Form* poOwner) {
  Load();
  MXForm::Center(*this, poOwner);
  lblVersion.SetCaption(Version);
  lblLegal.SetCaption(Legal);
  lblWarning.SetCaption(Warning);
  Show(ShowMode::Modal, poOwner);
  Unload();
}
