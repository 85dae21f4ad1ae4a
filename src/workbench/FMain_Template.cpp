// Choosing, opening and closing a template, with all that lives as long as it: the model, the tree,
// the lists, the tabs.
#include <filesystem>

#include "CXChooseFile.h"
#include "FMain.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "MXRegistry.h"
#include "VBE.h"

using namespace Forms;

namespace {

constexpr TextView PathName = u"Open Template Path";

/// Name of the component whose code is in front; empty when there is none or the IDE fails to
/// answer: then the tree's first node is selected.
Text ComponentInFront(VBE& oVBInst) {
  try {
    ::CodePane* poPane = oVBInst.ActiveCodePane();
    return poPane ? poPane->CodeModule().Parent().Name() : Text();
  } catch (const Failure&) {
    return {};
  }
}

}  // namespace

void FMain::mnuFileOpenTemplate_Click() {
  OnEvent(u"mnuFileOpenTemplate_Click", [&] {
    CXChooseFile oChoose(App());
    oChoose.Dialog = this;
    oChoose.Title = u"Open Template";
    oChoose.OFilters = {u"Template Files (*.dat) | *.dat"};
    oChoose.Directory = MXRegistry::GetRegString(mhRegForm, PathName, u"");
    if (!MXFile::PathExists(oChoose.Directory)) oChoose.Directory.clear();
    if (!oChoose.Show(false)) return;
    Refresh();
    MXRegistry::SetRegString(mhRegForm, PathName, oChoose.Directory);
    OpenAsRecent(oChoose.FileName);
  });
}

void FMain::mnuFileRecent_Click(std::int32_t Index) {
  OnEvent(u"mnuFileRecent_Click", [&] { OpenAsRecent(oMenu.mnuFileRecent(Index).Tag()); });
}

Text FMain::TemplateBesideProgram() const {
  constexpr auto cSeparator = static_cast<char16_t>(std::filesystem::path::preferred_separator);
  return App().Path() + cSeparator + u"Template.dat";
}

void FMain::OpenAsRecent(const Text& file) {
  if (OpenTemplate(file)) oRecentFiles.Add(file);
}

bool FMain::OpenTemplate(TextView sTemplateFile) {
  bool stays = false;
  Busy(u"OpenTemplate", [&] {
    CloseTemplate();
    const bool bLoaded = LoadTemplate(sTemplateFile);
    const auto opened = oTemplate;
    SetCaption(u"Tarvane Quillon - " + Text(sTemplateFile));
    Refresh();
    meState = State::TemplateErrors;
    if (bLoaded && OnEvent(u"BuildModel", [&] { BuildModel(); })) {
      ChooseFirstNode();
      // The node's list let events through. What opened or closed meanwhile has left the window as
      // it should be; going on would bring the tabs twice, or load a window that was left again.
      if (oTemplate != opened) return;
      AddTabs();
      meState = State::Ready;
    } else if (bLoaded) {
      srlResults.Add(u"    The projects could not be read; open the template again");
      tvwProjects.Nodes().Clear();
      moModelLinks.clear();
      oIDEHandler.reset();
    }
    ManageControls();
    stays = true;
  });
  return stays;
}

bool FMain::LoadTemplate(TextView sTemplateFile) {
  oTemplate = std::make_shared<CTemplate>(MRules::oRules);
  moReportLink = oTemplate->ReportError.Connect([this](TextView sText) { srlResults.Add(sText); });
  try {
    oTemplate->LoadTemplateFile(sTemplateFile);
  } catch (const Failure& oFailure) {
    // The failure has been reported already; the results pane lists it like every other fault.
    srlResults.Add(u"    " + oFailure.Description());
    return false;
  }
  return oTemplate->LoadErrors() == 0;
}

void FMain::BuildModel() {
  LoadLookups();
  MRules::GetDefaultTemplates();
  oIDEHandler = std::make_shared<CIDEHandler>();
  oIDEHandler->bProve = MRules::oRules.bProve;
  ConnectModel();
  oIDEHandler->LoadProjects(*moVBInst);
  oIDEHandler->EnumProjects();
  lblTree.SetCaption(u"Projects");
  oIDEHandler->oTemplate = oTemplate.get();
}

void FMain::LoadLookups() {
  TextArray asModule, asProcedure;
  oTemplate->GetModuleTemplates(asModule);
  oTemplate->GetProcTemplates(asProcedure);
  MQuillon::LoadLookups(asModule, asProcedure);
}

void FMain::ChooseFirstNode() {
  Nodes& oNodes = tvwProjects.Nodes();
  const Text sName = ComponentInFront(*moVBInst);
  Node* poNode = nullptr;
  for (std::int32_t i = 1; i <= oNodes.Count() && !poNode && !sName.empty(); ++i) {
    if (oNodes.Item(i).Text() == sName) poNode = &oNodes.Item(i);
  }
  if (!poNode && oNodes.Count() > 0) poNode = &oNodes.Item(1);
  if (!poNode) return;
  poNode->SetSelected(true);
  tvwProjects_NodeClick();
}

void FMain::AddTabs() {
  Tabs& oTabs = tabView.Tabs();
  oTabs.Add(1, u"Code", u"&Code");
  oTabs.Add(1, u"Properties", u"&Properties");
  oTabs.Item(u"Results").SetSelected(true);
}

void FMain::CloseTemplate() {
  lblResults.SetCaption({});
  srlResults.Clear();
  ClearSheet();
  lblList.SetCaption({});
  HideLists();
  mlLastNode = 0;
  mhProject = {};
  mhComponent = {};
  msListType.clear();
  mMissingTold.clear();
  lblTree.SetCaption({});
  tvwProjects.Nodes().Clear();
  moModelLinks.clear();
  oIDEHandler.reset();
  moReportLink.Disconnect();
  oTemplate.reset();
  StatusBar1.Panels(1).SetText({});
  ShowPath({});
  if (meState == State::Ready) {
    tabView.Tabs().Remove(u"Code");
    tabView.Tabs().Remove(u"Properties");
  }
  MRules::oRules.sDefaultModTemplate.clear();
  MRules::oRules.sDefaultProcTemplate.clear();
  meState = State::NoTemplate;
}
