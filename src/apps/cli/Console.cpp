#include "Console.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;

constexpr std::size_t PieceSize = 1 << 16;
constexpr std::size_t BarWidth = 30;

bool IsTerminal() {
  const char* sTerm = std::getenv("TERM");
  return isatty(STDERR_FILENO) != 0 && (!sTerm || std::string_view(sTerm) != "dumb");
}

// Nobody can be told when standard error itself fails, so the result counts for nothing.
void WriteAll(std::string_view sBytes) {
  while (!sBytes.empty()) {
    ssize_t lWritten = write(STDERR_FILENO, sBytes.data(), sBytes.size());
    if (lWritten <= 0) return;
    sBytes.remove_prefix(static_cast<std::size_t>(lWritten));
  }
}

}  // namespace

std::string Printable(std::string sText) {
  for (char& c : sText)
    if ((static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7f) c = '?';
  return sText;
}

Console::Console(Level eLevel) : meLevel(eLevel), mbTerminal(IsTerminal()) {}

Console::~Console() {
  ProgressEnd();
  Flush();
}

void Console::Error(std::string_view sMessage) {
  Line(sMessage);
}

void Console::Say(std::string_view sMessage) {
  if (meLevel != Level::Quiet) Line(sMessage);
}

void Console::Detail(std::string_view sMessage) {
  if (meLevel == Level::Verbose) Line(sMessage);
}

void Console::Line(std::string_view sMessage) {
  EraseBar();
  // A message of the engine can have several lines, each ended by CR LF.
  while (!sMessage.empty() && (sMessage.back() == '\n' || sMessage.back() == '\r'))
    sMessage.remove_suffix(1);
  std::size_t lStart = 0;
  for (std::size_t lEnd; lStart <= sMessage.size(); lStart = lEnd + 1) {
    lEnd = std::min(sMessage.find('\n', lStart), sMessage.size());
    std::string sLine(sMessage.substr(lStart, lEnd - lStart));
    if (!sLine.empty() && sLine.back() == '\r') sLine.pop_back();
    msPending += Printable(std::move(sLine)) + '\n';
  }
  if (mbTerminal || msPending.size() >= PieceSize) Flush();
}

void Console::Progress(std::size_t lDone, std::size_t lTotal, TextView sCaption) {
  if (!mbTerminal || meLevel == Level::Quiet || lTotal == 0) return;
  auto oNow = std::chrono::steady_clock::now();
  if (!mbWorking) moNextBar = oNow + 400ms;
  mbWorking = true;
  if (oNow < moNextBar) return;
  moNextBar = oNow + 100ms;
  std::size_t lFull = std::min(lDone, lTotal) * BarWidth / lTotal;
  std::string sBar = "\r[" + std::string(lFull, '#') + std::string(BarWidth - lFull, '.') + "] " +
                     std::to_string(std::min(lDone, lTotal) * 100 / lTotal) + "% " +
                     Printable(ToUtf8(sCaption.substr(0, 36))) + "\x1b[K";
  WriteAll(sBar);
  mbBar = true;
}

void Console::ProgressEnd() {
  EraseBar();
  mbWorking = false;
}

void Console::EraseBar() {
  if (mbBar) WriteAll("\r\x1b[K");
  mbBar = false;
}

void Console::Flush() {
  WriteAll(msPending);
  msPending.clear();
}
