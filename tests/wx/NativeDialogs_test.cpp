// Boxes, the help and errors that nobody met.
#include <wx/dialog.h>
#include <wx/filename.h>
#include <wx/html/helpfrm.h>
#include <wx/notebook.h>
#include <wx/toplevel.h>
#include <wx/wfstream.h>
#include <wx/zipstrm.h>

#include "Failure.h"
#include "WxTest.h"

using namespace Forms;

class NativeDialogsTest : public WxTest {
 protected:
  /// The notebook beside the page of the help.
  static wxNotebook* FindNotebook(wxWindow& oWindow) {
    if (auto* po = dynamic_cast<wxNotebook*>(&oWindow)) return po;
    for (wxWindow* po : oWindow.GetChildren())
      if (auto* poFound = FindNotebook(*po)) return poFound;
    return nullptr;
  }
};

TEST_F(NativeDialogsTest, BoxesAnswerByTheirButtons) {
  struct Row {
    const char* psName;
    MsgBoxButtons eButtons;
    std::int32_t lDefault;
    int nKey, nModifiers;
    MsgBoxResult eAnswer;
  };
  using enum MsgBoxResult;
  const Row oRows[] = {
      {"OK", MsgBoxButtons::OkOnly, 1, WXK_RETURN, 0, Ok},
      {"OK by default", MsgBoxButtons::OkCancel, 1, WXK_RETURN, 0, Ok},
      {"Cancel by default", MsgBoxButtons::OkCancel, 2, WXK_RETURN, 0, Cancel},
      {"Escape cancels", MsgBoxButtons::OkCancel, 1, WXK_ESCAPE, 0, Cancel},
      {"No by default", MsgBoxButtons::YesNo, 2, WXK_RETURN, 0, No},
      {"Yes", MsgBoxButtons::YesNoCancel, 3, 'Y', wxMOD_ALT, Yes},
      {"Escape in three", MsgBoxButtons::YesNoCancel, 1, WXK_ESCAPE, 0, Cancel},
      {"Retry", MsgBoxButtons::AbortRetryIgnore, 1, 'R', wxMOD_ALT, Retry},
      {"Ignore", MsgBoxButtons::AbortRetryIgnore, 1, 'I', wxMOD_ALT, Ignore},
      {"closing never ignores", MsgBoxButtons::AbortRetryIgnore, 2, WXK_ESCAPE, 0, Abort},
      {"Retry of two", MsgBoxButtons::RetryCancel, 1, WXK_RETURN, 0, Retry},
  };
  for (const Row& o : oRows) {
    SCOPED_TRACE(o.psName);
    MsgBoxRequest oRequest;
    oRequest.sPrompt = u"Discard & go on?\r\nSecond line";
    oRequest.eButtons = o.eButtons;
    oRequest.eIcon = MsgBoxIcon::Question;
    oRequest.lDefaultButton = o.lDefault;
    moRobot.KeyIntoBox(o.nKey, o.nModifiers);
    EXPECT_EQ(poToolkit->MsgBox(oRequest), o.eAnswer);
  }
  moRobot.Click(moForm.cmdApply);
  EXPECT_EQ(Take(), "Apply");
}

TEST_F(NativeDialogsTest, ACancelledDialogLeavesItsFields) {
  FileDialog oFile;
  oFile.aoFilter = {{u"Template Files (*.dat)", u"*.dat"}};
  oFile.sFileName = u"Template.dat";
  moRobot.KeyIntoBox(WXK_ESCAPE);
  EXPECT_FALSE(poToolkit->ChooseFile(oFile).bConfirmed);
  EXPECT_TRUE(oFile.asPath.empty());
  FontDialog oFont;
  moRobot.KeyIntoBox(WXK_ESCAPE);
  const DialogAnswer oAnswer = poToolkit->ChooseFont(oFont);
  EXPECT_FALSE(oAnswer.bConfirmed);
  EXPECT_EQ(oAnswer.lError, 0);
  EXPECT_EQ(oFont.oFont, FontSpec());
}

TEST_F(NativeDialogsTest, ThePageSetUpOffersPaperMarginsAndPrinters) {
  PageDialog o;
  o.eUnit = MarginUnit::ThousandthsOfInch;
  o.lLeft = 1234, o.lTop = 777, o.lRight = 1, o.lBottom = -5;
  o.aoPaper = {{1, u"Letter"}, {9, u"A4"}, {11, u"A5"}};
  o.asDevice = {u"Hall & stairs", u"PDF file"};
  o.lPaperSize = 9;
  o.sDeviceName = u"Hall & stairs";
  const auto Answer = [&](int nButton, const std::vector<std::pair<int, int>>& aoKey) {
    moRobot.WhenDialog([&](wxDialog& oDialog) {
      for (const auto& [nKey, nModifiers] : aoKey) moRobot.Key(nKey, nModifiers);
      moRobot.Click(*oDialog.FindWindow(nButton));
      if (!oDialog.IsModal()) return;
      ADD_FAILURE() << "still open";
      oDialog.EndModal(wxID_CANCEL);
    });
    return poToolkit->ChoosePage(o).bConfirmed;
  };
  const auto Shown = [&] {
    std::string s;
    for (const std::int32_t l :
         {o.lLeft, o.lTop, o.lRight, o.lBottom, o.lPaperSize, o.lOrientation})
      s += std::to_string(l) + ' ';
    return s + ToUtf8(o.sDeviceName);
  };
  EXPECT_TRUE(Answer(wxID_OK, {}));
  EXPECT_EQ(Shown(), "1234 777 1 -5 9 1 Hall & stairs");
  const std::vector<std::pair<int, int>> aoEdits = {
      {'S', wxMOD_ALT}, {WXK_DOWN, 0},    {'N', wxMOD_ALT}, {WXK_DOWN, 0},
      {'A', wxMOD_ALT}, {'T', wxMOD_ALT}, {WXK_UP, 0}};
  EXPECT_FALSE(Answer(wxID_CANCEL, aoEdits));
  EXPECT_EQ(Shown(), "1234 777 1 -5 9 1 Hall & stairs");
  EXPECT_TRUE(Answer(wxID_OK, aoEdits));
  EXPECT_EQ(Shown(), "1234 877 1 -5 11 2 PDF file");
  o.bDisableMargins = o.bDisableOrientation = o.bDisablePaper = o.bDisablePrinter = true;
  o.eUnit = MarginUnit::HundredthsOfMillimeter;
  o.lPaperSize = 0;  // none of those offered
  EXPECT_TRUE(Answer(wxID_OK, {{'S', wxMOD_ALT}, {WXK_UP, 0}, {'N', wxMOD_ALT}, {WXK_UP, 0}}));
  EXPECT_EQ(Shown(), "1234 877 1 -5 0 2 PDF file");
}

TEST_F(NativeDialogsTest, AnErrorThatNobodyMetIsShownAndTheFormGoesOn) {
  {
    const auto oLink = moForm.cmdApply.Click.Connect([] { throw Failure(5); });
    moRobot.KeyIntoBox(WXK_RETURN);
    moRobot.Click(moForm.cmdApply);
  }
  {
    const auto oLink = moForm.Resize.Connect([] { throw Failure(5); });
    moRobot.KeyIntoBox(WXK_RETURN);
    moRobot.FrameOf(moForm).SetSize(700, 500);
    moRobot.Settle();
    moForm.mnuFile.SetVisible(false);  // the room inside changes while the window is brought up
    EXPECT_EQ(FailureOf([&] { poToolkit->DoEvents(); }), 5);
  }
  Take();
  moRobot.Click(moForm.chkLocked);
  EXPECT_EQ(Take(), "Locked");
}

TEST_F(NativeDialogsTest, TheHelpOpensABookAndRefusesWhatIsNone) {
  const wxString sBook = wxFileName::CreateTempFileName("help") + ".htb";
  {
    wxFileOutputStream oFile(sBook);
    wxZipOutputStream oZip(oFile);
    const auto Put = [&](const char* psName, const std::string& sText) {
      oZip.PutNextEntry(psName);
      oZip.Write(sText.data(), sText.size());
    };
    Put("book.hhp", "[OPTIONS]\nContents file=book.hhc\nTitle=Book\nDefault topic=a.html\n");
    Put("book.hhc",
        "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"A\"><param "
        "name=\"ID\" value=7><param name=\"Local\" value=\"a.html\"></object></ul>");
    Put("a.html", "<html><body>Page</body></html>");
  }
  IRenderer& oRenderer = poToolkit->Renderer();
  const Text sFile = FromUtf8(sBook.utf8_string());
  EXPECT_FALSE(oRenderer.ShowHelp(u"/nowhere/Book.chm", HelpCommand::Contents, 0, nullptr));
  EXPECT_TRUE(oRenderer.ShowHelp(sFile, HelpCommand::Contents, 7, &moForm));
  moRobot.Settle();
  const auto PageShown = [] {
    for (wxWindow* po : wxTopLevelWindows)
      if (auto* poHelp = dynamic_cast<wxHtmlHelpFrame*>(po)) {
        const wxNotebook& oPages = *FindNotebook(*poHelp);
        return oPages.GetPageText(static_cast<std::size_t>(oPages.GetSelection()));
      }
    return wxString();
  };
  EXPECT_EQ(PageShown(), "Contents");
  EXPECT_TRUE(oRenderer.ShowHelp(sFile, HelpCommand::Search, 0, &moForm));
  EXPECT_EQ(PageShown(), "Search");
  EXPECT_TRUE(oRenderer.ShowHelp(sFile, HelpCommand::Index, 0, &moForm));
  EXPECT_EQ(PageShown(), "Index");
  // Under the name that the program knows, with the ending of another platform.
  const Text sOther = sFile.substr(0, sFile.size() - 3) + u"chm";
  EXPECT_TRUE(oRenderer.ShowHelp(sOther, HelpCommand::Contents, 0, nullptr));
  wxRemoveFile(sBook);
}

TEST_F(NativeDialogsTest, AFormMayEndWhileItsDrawingIsLocked) {
  EXPECT_TRUE(poToolkit->LockWindowUpdate(&moForm.lvwRows));
  moForm.Unload();
  moRobot.Settle();
  EXPECT_TRUE(poToolkit->LockWindowUpdate(nullptr));
  moForm.Show();
  moRobot.Click(moForm.cmdApply);
  EXPECT_NE(Take().find("Apply"), std::string::npos);
}
