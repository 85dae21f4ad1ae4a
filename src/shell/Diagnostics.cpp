#include "Diagnostics.h"

namespace {

using Lines = std::vector<Text>;

constexpr std::int32_t lPlatformWindows = 1, lPlatformNT = 2;

Text VersionOf(const SystemVersion& oSystem) {
  return u"  Version        = " + ToText(oSystem.lMajor) + u"." + ToText(oSystem.lMinor);
}

void AddWindows(const SystemVersion& oSystem, Lines& asLine) {
  asLine.push_back(Text(u"  Platform       = ") +
                   (oSystem.lMinor != 0 ? u"Windows 98" : u"Windows 95"));
  asLine.push_back(VersionOf(oSystem));
  // The high half repeats the version.
  asLine.push_back(u"  Build          = " + ToText(oSystem.lBuild & 0xFFFF) +
                   Text(TrimAtNull(oSystem.sService)) + Text(CrLf));
}

void AddNT(const SystemVersion& oSystem, Lines& asLine) {
  asLine.push_back(u"  Platform       = Windows NT");
  asLine.push_back(VersionOf(oSystem));
  asLine.push_back(u"  Build          = " + ToText(oSystem.lBuild));
  asLine.push_back(u"  Service Pack   = " + Text(TrimAtNull(oSystem.sService)) + Text(CrLf));
}

}  // namespace

TextView TrimAtNull(TextView sText) {
  return sText.substr(0, sText.find(u'\0'));
}

ProgramVersion CurrentProgram() {
  return {QUILLON_MAJOR, QUILLON_MINOR, QUILLON_REVISION};
}

Lines DiagnosticLines(const SystemVersion& oSystem, const ProgramVersion& oProgram) {
  Lines asLine;
  if (oSystem.bKnown) asLine.push_back(u"Operating System" + Text(CrLf));
  if (oSystem.bKnown && oSystem.lPlatform == lPlatformWindows) AddWindows(oSystem, asLine);
  if (oSystem.bKnown && oSystem.lPlatform == lPlatformNT) AddNT(oSystem, asLine);
  asLine.push_back(u"Application Version" + Text(CrLf));
  asLine.push_back(u"  Major          = " + ToText(oProgram.lMajor));
  asLine.push_back(u"  Minor          = " + ToText(oProgram.lMinor));
  asLine.push_back(u"  Revision       = " + ToText(oProgram.lRevision) + Text(CrLf));
  return asLine;
}
