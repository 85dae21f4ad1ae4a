#include "CommonDialogFailure.h"

#include "Failure.h"

bool WasConfirmed(const Forms::DialogAnswer& oAnswer) {
  if (!oAnswer.bConfirmed && oAnswer.lError != 0) {
    throw Failure(oAnswer.lError, u"Common Dialog Error " + ToText(oAnswer.lError),
                  u"comdlg32.dll");
  }
  return oAnswer.bConfirmed;
}
