// The page of the rules that says which values are suggested where there are none.
#pragma once

#include "Frame.h"
#include "RulesPage.h"

class RulesDefaultsPage : public IRulesPage {
 public:
  explicit RulesDefaultsPage(Forms::ControlContainer& oPage);
  void Design() override;
  void Fill(const MRules::Values& oRules) override;
  void Read(MRules::Values& oRules) const override;

  Forms::Label lblDefaults;
  Forms::Frame fraModule;
  Forms::Label lblModTemplate{fraModule, u"lblModTemplate"};
  Forms::ComboBox cboModTemplate{fraModule, u"cboModTemplate"};
  Forms::Label lblModSeverity{fraModule, u"lblModSeverity"};
  Forms::ComboBox cboModSeverity{fraModule, u"cboModSeverity"};
  Forms::Label lblModRetry{fraModule, u"lblModRetry"};
  Forms::ComboBox cboModRetry{fraModule, u"cboModRetry"};
  Forms::Frame fraProc;
  Forms::Label lblProcTemplate{fraProc, u"lblProcTemplate"};
  Forms::ComboBox cboProcTemplate{fraProc, u"cboProcTemplate"};
  Forms::Label lblSeverity{fraProc, u"lblSeverity"};
  Forms::ComboBox cboSeverity{fraProc, u"cboSeverity"};
  Forms::Label lblRetry{fraProc, u"lblRetry"};
  Forms::ComboBox cboRetry{fraProc, u"cboRetry"};
  Forms::Label lblTrace{fraProc, u"lblTrace"};
  Forms::ComboBox cboTrace{fraProc, u"cboTrace"};

 private:
  void cboModTemplate_Click();
  void cboProcTemplate_Click();
};
