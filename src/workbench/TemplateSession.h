// The open template and all that lives as long as it: the model of the group, and the links
// through which both report to the window.
#pragma once

#include <memory>

#include "CIDEHandler.h"
#include "CXRecentFiles.h"

struct Workbench;

class TemplateSession {
 public:
  explicit TemplateSession(Workbench& owner) : window(owner) {}

  /// The IDE, which outlives the window; null when the window isn't shown.
  void SetIDE(VBE* root) { ide = root; }
  VBE* IDE() const { return ide; }

  /// One without errors is open, and the model is loaded.
  bool HasTemplate() const { return meState == State::Ready; }
  /// False also when the IDE fails to answer.
  bool HasProjects() const;
  /// null while no template is open, or one with errors is. It is shared, because it handles events
  /// while it enumerates: the loop keeps it alive if an event closes the template.
  const std::shared_ptr<CIDEHandler>& Model() const { return oIDEHandler; }
  const std::shared_ptr<CTemplate>& Template() const { return oTemplate; }

  void ReadRecent();
  /// Opens the template that was open last, or the one beside the program; else asks.
  void OpenFirst();
  void Choose();
  /// Puts the file on top of the recent ones, unless an event that was let through meanwhile opened
  /// another template or left the window.
  void OpenAsRecent(const Text& file);
  void CloseTemplate();
  /// Asks, when changes are pending.
  bool MayDiscard() const;

 private:
  enum class State : std::int32_t { NoTemplate = 0, Ready = 1, TemplateErrors = 2 };

  bool OpenTemplate(TextView sTemplateFile);
  bool LoadTemplate(TextView sTemplateFile);
  void BuildModel();
  void DropModel();
  void LoadLookups();
  Text ComponentInFront() const;
  Text TemplateBesideProgram() const;

  Workbench& window;
  VBE* ide = nullptr;
  CXRecentFiles oRecentFiles;
  State meState = State::NoTemplate;
  // The template outlives the model, which refers to it, and both the links to them.
  std::shared_ptr<CTemplate> oTemplate;
  std::shared_ptr<CIDEHandler> oIDEHandler;
  Connection reportLink;
  std::vector<Connection> modelLinks;
};
