#include "ToldFindings.h"

#include <filesystem>

#include "Display.h"
#include "IFileOps.h"
#include "ShellWord.h"
#include "WriteRoots.h"

namespace {

namespace fs = std::filesystem;

std::vector<ReviewFinding::Change> ChangesOf(const Finding::Settings& settings) {
  std::vector<ReviewFinding::Change> changes;
  for (const Property property : AllProperties) {
    if (property == Property::Trace && !settings.isTraced) continue;
    std::string from = Shown(settings.from, property), to = Shown(settings.to, property);
    if (from != to)
      changes.push_back({std::string(PropertyName(property)), std::move(from), std::move(to)});
  }
  return changes;
}

std::string TextOf(const std::vector<ReviewFinding::Change>& changes) {
  std::string text;
  for (const ReviewFinding::Change& change : changes) {
    text += (text.empty() ? " " : ", ") + change.property + ' ' +
            (change.from.empty() ? "unset" : change.from) + " -> " +
            (change.to.empty() ? "unset" : change.to);
  }
  return text;
}

}  // namespace

ToldFindings::ToldFindings(Session& session)
    : mSession(session),
      mHandler(session.oHandler),
      mTree(WorkTreeOf(FolderOfPath(session.Groups().front()), SystemFileOps())) {
  if (!mTree.ends_with('/')) mTree += '/';
}

const ReviewFinding& ToldFindings::Tell(const Finding& finding) {
  mTold.rule = &RowOf(finding.rule);
  if (finding.file != mFile) Place(finding);
  mTold.line = finding.line;
  mTold.endLine = finding.endLine;
  Names(finding);
  mTold.message = finding.message;
  mTold.changes.clear();
  if (finding.settings) Changes(*finding.settings);
  mTold.mend = MendFor(finding);
  mTold.fingerprint = finding.fingerprint;
  return mTold;
}

void ToldFindings::Place(const Finding& finding) {
  mFile = finding.file;
  mTold.file = mTold.treeFile = *mFile;
  if (mFile->empty()) return;
  std::error_code error;
  const std::string path = fs::absolute(PathOfShown(*mFile), error).lexically_normal().string();
  const std::string real = RealPath(path);
  mTold.treeFile = real.starts_with(mTree) ? real.substr(mTree.size()) : real;
}

void ToldFindings::Names(const Finding& finding) {
  mTold.project = mTold.component = mTold.procedure = std::string();
  if (!finding.component) return;
  const ComponentRecord& record = mHandler.Component(finding.component);
  mTold.project = ToUtf8(mHandler.ProjectName(record.hProject));
  mTold.component = ToUtf8(record.sName);
  if (finding.procedure) mTold.procedure = ToUtf8(mHandler.ProcName(finding.procedure));
}

/// Most findings say the same as the one before.
void ToldFindings::Changes(const Finding::Settings& settings) {
  if (!mSettings || mSettings->isTraced != settings.isTraced ||
      !mSettings->from.Equals(settings.from) || !mSettings->to.Equals(settings.to)) {
    mSettings = settings;
    mChanges = ChangesOf(settings);
    mChangeText = TextOf(mChanges);
  }
  mTold.changes = mChanges;
  mTold.message = mTold.component + '.' + mTold.procedure + ':' + mChangeText;
}

/// The command line, to be run where this one was; empty for none.
std::string ToldFindings::MendFor(const Finding& finding) const {
  const Mend mend = RowOf(finding.rule).mend;
  if (mend == Mend::None || !finding.procedure) return {};
  const Arguments& arguments = mSession.oArguments;
  std::string command = "quillon " + std::string(MendCommand(mend));
  const auto add = [&](const char* option, const std::string& value) {
    command.append(" ").append(option).append(" ").append(ShellWord(value));
  };
  if (!arguments.sTemplateFile.empty()) add("-t", arguments.sTemplateFile);
  if (arguments.oSettingsFile) add("--settings", *arguments.oSettingsFile);
  add("--component", mTold.component);
  add("--procedure", mTold.procedure);
  for (const std::string& path : mSession.Groups()) command.append(" ").append(ShellWord(path));
  return command;
}
