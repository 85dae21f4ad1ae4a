#include "Console.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "VisibleText.h"

namespace {

using namespace std::chrono_literals;

constexpr std::size_t PieceSize = 1 << 16;
constexpr std::size_t BarWidth = 30;

bool IsTerminal() {
  const char* term = std::getenv("TERM");
  return isatty(STDERR_FILENO) != 0 && (!term || std::string_view(term) != "dumb");
}

// Nobody can be told when standard error itself fails, so the result counts for nothing.
void WriteAll(std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = write(STDERR_FILENO, bytes.data(), bytes.size());
    if (written <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

Console::Console(Level level) : mLevel(level), mIsTerminal(IsTerminal()) {}

Console::~Console() {
  ProgressEnd();
  Flush();
}

void Console::Error(std::string_view message) {
  Line(message);
}

void Console::Say(std::string_view message) {
  if (mLevel != Level::Quiet) Line(message);
}

void Console::Detail(std::string_view message) {
  if (mLevel == Level::Verbose) Line(message);
}

void Console::Line(std::string_view message) {
  EraseBar();
  // A message of the engine can have several lines, each ended by CR LF.
  while (!message.empty() && (message.back() == '\n' || message.back() == '\r'))
    message.remove_suffix(1);
  std::size_t start = 0;
  for (std::size_t end; start <= message.size(); start = end + 1) {
    end = std::min(message.find('\n', start), message.size());
    std::string line(message.substr(start, end - start));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    mPending += VisibleText(line) + '\n';
  }
  if (mIsTerminal || mPending.size() >= PieceSize) Flush();
}

void Console::Progress(std::size_t done, std::size_t total, TextView caption) {
  if (!mIsTerminal || mLevel == Level::Quiet || total == 0) return;
  auto now = std::chrono::steady_clock::now();
  if (!mIsWorking) mNextBar = now + 400ms;
  mIsWorking = true;
  if (now < mNextBar) return;
  mNextBar = now + 100ms;
  std::size_t full = std::min(done, total) * BarWidth / total;
  std::string bar = "\r[" + std::string(full, '#') + std::string(BarWidth - full, '.') + "] " +
                    std::to_string(std::min(done, total) * 100 / total) + "% " +
                    VisibleText(ToUtf8(caption.substr(0, 36))) + "\x1b[K";
  WriteAll(bar);
  mHasBar = true;
}

void Console::ProgressEnd() {
  EraseBar();
  mIsWorking = false;
}

void Console::EraseBar() {
  if (mHasBar) WriteAll("\r\x1b[K");
  mHasBar = false;
}

void Console::Flush() {
  WriteAll(mPending);
  mPending.clear();
}
