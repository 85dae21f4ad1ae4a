#include "ErrorLog.h"

#include <cerrno>
#include <chrono>
#include <filesystem>

#include "Process.h"

namespace {

char* PutNumber(char* pcAt, unsigned long lNumber, int lDigits) {
  for (int i = lDigits - 1; i >= 0; --i, lNumber /= 10) {
    pcAt[i] = static_cast<char>('0' + lNumber % 10);
  }
  return pcAt + lDigits;
}

int DigitsOf(unsigned long lNumber) {
  int lDigits = 1;
  while (lNumber /= 10) ++lDigits;
  return lDigits;
}

}  // namespace

ErrorLog::ErrorLog(std::string sPath, std::size_t lMaxBytes, int lKept)
    : msPath(std::move(sPath)), mlMaxBytes(lMaxBytes), mlKept(lKept) {}

ErrorLog::~ErrorLog() {
  Close();
}

bool ErrorLog::Fails(int problem) noexcept {
  mlProblem = problem;
  return false;
}

bool ErrorLog::MakeFolder() noexcept {
  try {
    std::error_code oIgnored;
    const auto oFolder = std::filesystem::path(msPath).parent_path();
    if (!oFolder.empty()) std::filesystem::create_directories(oFolder, oIgnored);
    return true;
  } catch (...) {
    return Fails(ENOMEM);
  }
}

bool ErrorLog::Open() noexcept {
  return mhFile >= 0 || (MakeFolder() && OpenFile());
}

bool ErrorLog::Write(std::string_view sLine) noexcept {
  try {
    msBuffer.assign(sLine).push_back('\n');
  } catch (...) {
    return Fails(ENOMEM);
  }
  return Open() && MakeRoom(msBuffer.size()) && WriteUnsafe(msBuffer);
}

bool ErrorLog::WriteUnsafe(std::string_view sLineWithEnd) noexcept {
  return (mhFile >= 0 || OpenFile()) && WriteFile(sLineWithEnd);
}

std::size_t LogLineStart(char* acBuffer) {
  using namespace std::chrono;
  const auto oNow = floor<milliseconds>(system_clock::now());
  const auto oDay = floor<days>(oNow);
  const year_month_day oDate(oDay);
  const hh_mm_ss oTime(oNow - oDay);
  char* pcAt = acBuffer;
  const auto put = [&](auto lNumber, int lDigits, char cBehind) {
    pcAt = PutNumber(pcAt, static_cast<unsigned long>(lNumber), lDigits);
    *pcAt++ = cBehind;
  };
  put(static_cast<int>(oDate.year()), 4, '-');
  put(static_cast<unsigned>(oDate.month()), 2, '-');
  put(static_cast<unsigned>(oDate.day()), 2, 'T');
  put(oTime.hours().count(), 2, ':');
  put(oTime.minutes().count(), 2, ':');
  put(oTime.seconds().count(), 2, '.');
  put(oTime.subseconds().count(), 3, 'Z');
  *pcAt++ = '\t';
  const auto lProcess = static_cast<unsigned long>(ProcessNumber());
  put(lProcess, DigitsOf(lProcess), '\t');
  return static_cast<std::size_t>(pcAt - acBuffer);
}
