#include "TemplateSession.h"

#include <filesystem>

#include "CXChooseFile.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "MXRegistry.h"
#include "Toolkit.h"
#include "VBE.h"
#include "Workbench.h"

using namespace Forms;

namespace {

constexpr TextView PathName = u"Open Template Path";

}  // namespace

bool TemplateSession::HasProjects() const {
  std::int32_t count = 0;
  OnEvent(u"HasProjects", [&] { count = ide ? ide->VBProjects().Count() : 0; });
  return count > 0;
}

void TemplateSession::ReadRecent() {
  oRecentFiles.Initialize(window.form.oMenu.Array(u"mnuFileRecent"), window.keys.mhRegRecent);
}

void TemplateSession::OpenFirst() {
  Text file = oRecentFiles.Item(1);
  if (file.empty()) file = TemplateBesideProgram();
  if (MXFile::FileExists(file)) return OpenAsRecent(file);
  OnEvent(u"mnuFileOpenTemplate_Click", [&] { Choose(); });
}

void TemplateSession::Choose() {
  const std::int32_t key = window.keys.mhRegForm;
  CXChooseFile choose(window.form.App());
  choose.Dialog = &window.form;
  choose.Title = u"Open Template";
  choose.OFilters = {u"Template Files (*.dat) | *.dat"};
  choose.Directory = MXRegistry::GetRegString(key, PathName, u"");
  if (!MXFile::PathExists(choose.Directory)) choose.Directory.clear();
  if (!choose.Show(false)) return;
  window.form.Refresh();
  MXRegistry::SetRegString(key, PathName, choose.Directory);
  OpenAsRecent(choose.FileName);
}

Text TemplateSession::TemplateBesideProgram() const {
  constexpr auto Separator = static_cast<char16_t>(std::filesystem::path::preferred_separator);
  return window.form.App().Path() + Separator + u"Template.dat";
}

void TemplateSession::OpenAsRecent(const Text& file) {
  if (OpenTemplate(file)) oRecentFiles.Add(file);
}

bool TemplateSession::OpenTemplate(TextView sTemplateFile) {
  bool stays = false;
  window.events.Busy(u"OpenTemplate", [&] {
    CloseTemplate();
    const bool loaded = LoadTemplate(sTemplateFile);
    const auto opened = oTemplate;
    window.form.SetCaption(u"Tarvane Quillon - " + Text(sTemplateFile));
    window.form.Refresh();
    meState = State::TemplateErrors;
    if (loaded && OnEvent(u"BuildModel", [&] { BuildModel(); })) {
      window.tree.ChooseFirst(ComponentInFront());
      // The node's list let events through. What opened or closed meanwhile has left the window as
      // it should be; going on would bring the tabs twice, or load a window that was left again.
      if (oTemplate != opened) return;
      window.panes.AddTabs();
      meState = State::Ready;
    } else if (loaded) {
      window.form.srlResults.Add(u"    The projects could not be read; open the template again");
      window.form.tvwProjects.Nodes().Clear();
      DropModel();
    }
    window.ManageControls();
    stays = true;
  });
  return stays;
}

bool TemplateSession::LoadTemplate(TextView sTemplateFile) {
  Scroller& results = window.form.srlResults;
  oTemplate = std::make_shared<CTemplate>(MRules::oRules);
  reportLink =
      oTemplate->ReportError.Connect([this](TextView text) { window.form.srlResults.Add(text); });
  try {
    oTemplate->LoadTemplateFile(sTemplateFile);
  } catch (const Failure& failure) {
    // The failure has been reported already; the results pane lists it like every other fault.
    results.Add(u"    " + failure.Description());
    return false;
  }
  return oTemplate->LoadErrors() == 0;
}

void TemplateSession::BuildModel() {
  LoadLookups();
  MRules::GetDefaultTemplates();
  oIDEHandler = std::make_shared<CIDEHandler>();
  oIDEHandler->bProve = MRules::oRules.bProve;
  window.events.Connect(*oIDEHandler, modelLinks);
  window.tree.Connect(*oIDEHandler, modelLinks);
  window.lists.Connect(*oIDEHandler, modelLinks);
  oIDEHandler->LoadProjects(*ide);
  oIDEHandler->EnumProjects();
  window.form.lblTree.SetCaption(u"Projects");
  oIDEHandler->oTemplate = oTemplate.get();
}

void TemplateSession::DropModel() {
  modelLinks.clear();
  oIDEHandler.reset();
}

void TemplateSession::LoadLookups() {
  TextArray module, procedure;
  oTemplate->GetModuleTemplates(module);
  oTemplate->GetProcTemplates(procedure);
  MQuillon::LoadLookups(module, procedure);
}

/// Name of the component whose code is in front; empty when there is none or the IDE fails to
/// answer.
Text TemplateSession::ComponentInFront() const {
  try {
    ::CodePane* pane = ide->ActiveCodePane();
    return pane ? pane->CodeModule().Parent().Name() : Text();
  } catch (const Failure&) {
    return {};
  }
}

void TemplateSession::CloseTemplate() {
  MainForm& form = window.form;
  form.lblResults.SetCaption({});
  form.srlResults.Clear();
  window.sheet.ClearSheet();
  window.lists.Clear();
  window.tree.Clear();
  DropModel();
  reportLink.Disconnect();
  oTemplate.reset();
  form.StatusBar1.Panels(1).SetText({});
  window.panes.ShowPath({});
  if (meState == State::Ready) window.panes.RemoveTabs();
  MRules::oRules.sDefaultModTemplate.clear();
  MRules::oRules.sDefaultProcTemplate.clear();
  meState = State::NoTemplate;
}

bool TemplateSession::MayDiscard() const {
  if (!oIDEHandler || !oIDEHandler->GroupIsDirty()) return true;
  return window.form.App().MsgBox(u"Discard Pending Properties?", MsgBoxButtons::OkCancel,
                                  MsgBoxIcon::Question, u"Tarvane Quillon") == MsgBoxResult::Ok;
}
