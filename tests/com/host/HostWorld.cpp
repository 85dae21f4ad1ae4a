#include "HostWorld.h"

#include <ole2.h>

#include <ios>
#include <ostream>

#include "Failure.h"
#include "HostText.h"

HostWorld::HostWorld(DiskIDE& theIde) : ide(theIde) {
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  if (FAILED(LoadTypeLibEx(program, REGKIND_NONE, &mLibrary))) throw Failure(48);
}

HostWorld::~HostWorld() {
  for (const auto& [name, info] : mInfos) info->Release();
  mLibrary->Release();
}

ITypeInfo* HostWorld::InfoOf(const IID& iid) {
  ITypeInfo* info = nullptr;
  if (FAILED(mLibrary->GetTypeInfoOfGuid(iid, &info))) throw Failure(48);
  const auto [place, isNew] = mInfos.emplace(NameOf(*info), info);
  if (!isNew) info->Release();
  return place->second;
}

std::string HostWorld::NameOf(ITypeInfo& info) {
  BSTR name = nullptr;
  info.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  const std::string plain = ToUtf8(TextOf(name));
  SysFreeString(name);
  return plain;
}

HRESULT HostWorld::Called(const std::string& object, const std::string& member) {
  ++mCalls[object][member];
  const auto fault = manner.faults.find(object + '.' + member);
  return fault == manner.faults.end() ? S_OK : fault->second;
}

HRESULT HostWorld::Failed(const std::string& where, HRESULT error) {
  char code[16];
  std::snprintf(code, sizeof code, " 0x%08lX", static_cast<unsigned long>(error));
  ++mErrors[where + code];
  return error;
}

int HostWorld::Alive() const {
  int sum = 0;
  for (const auto& [object, count] : mAlive) sum += count;
  return sum;
}

int HostWorld::Calls(const std::string& object, const std::string& member) const {
  const auto calls = mCalls.find(object);
  if (calls == mCalls.end()) return 0;
  const auto count = calls->second.find(member);
  return count == calls->second.end() ? 0 : count->second;
}

void HostWorld::Print(std::ostream& out) const {
  for (const auto& [object, members] : mCalls) {
    out << object << ':';
    for (const auto& [member, count] : members) out << ' ' << member << ' ' << count;
    out << '\n';
  }
  for (const auto& [error, count] : mErrors) out << "error " << error << ": " << count << '\n';
  out << "objects alive: " << Alive() << '\n';
  for (const auto& [object, count] : mAlive)
    if (count != 0) out << "  " << object << ' ' << count << '\n';
}
