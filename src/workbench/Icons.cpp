#include "Icons.h"

#include "MQuillon.h"

namespace {

constexpr TextView Plain[] = {u"Standard EXE",  u"ActiveX DLL",      u"ActiveX Control",
                              u"ActiveX EXE",   Icons::ClosedFolder, Icons::OpenFolder,
                              u"Resource File", u"Related Document"};
constexpr TextView WithMark[] = {
    u"Form Module",     u"MDIForm",      u"MDIChild",      u"Microsoft Form", u"Class Module",
    u"Standard Module", u"User Control", u"Property Page", u"User Document",  u"Active Designer",
    u"Declarations",    u"Property",     u"Method",        u"Event"};

}  // namespace

namespace Icons {

void Fill(Forms::ImageList& oImages) {
  for (const TextView sKey : Plain) oImages.Add(sKey);
  for (const TextView sKey : WithMark) {
    oImages.Add(sKey);
    oImages.Add(Text(sKey).append(Dirty));
  }
}

Text OfProcedure(TextView sName, TextView sType) {
  if (sName == MQuillon::DeclarationsName) return u"Declarations";
  if (sType.starts_with(u"Property ")) return u"Property";
  return sType == u"Sub" || sType == u"Function" ? u"Method" : u"Event";
}

Text Marked(const Forms::ImageList& oImages, TextView sKey, bool bDirty) {
  const Text sBase(sKey.substr(0, sKey.find(Dirty)));
  if (bDirty && oImages.Exists(sBase + Text(Dirty))) return sBase + Text(Dirty);
  return oImages.Exists(sBase) ? sBase : Text();
}

}  // namespace Icons
