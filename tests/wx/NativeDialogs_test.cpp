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

namespace {

/// The page that the help's notebook shows; empty without a help.
wxString HelpPageShown() {
  for (wxWindow* po : wxTopLevelWindows)
    if (auto* help = dynamic_cast<wxHtmlHelpFrame*>(po)) {
      const auto& pages = dynamic_cast<wxNotebook&>(*help->FindWindow(wxID_HTML_NOTEBOOK));
      return pages.GetPageText(static_cast<std::size_t>(pages.GetSelection()));
    }
  return {};
}

}  // namespace

using NativeDialogsTest = WxTest;

TEST_F(NativeDialogsTest, BoxesAnswerByTheirButtons) {
  // Buttons, the one by default, the key, the answer: numbers as in the enumerations.
  using enum MsgBoxResult;
  const std::map<std::string, MsgBoxResult> Answers{
      {"OK", Ok},         {"Cancel", Cancel}, {"Abort", Abort}, {"Retry", Retry},
      {"Ignore", Ignore}, {"Yes", Yes},       {"No", No}};
  for (const auto& row : Rows(R"(
         OK                    | 0 | 1 | Return | OK
         OK by default         | 1 | 1 | Return | OK
         Cancel by default     | 1 | 2 | Return | Cancel
         Escape cancels        | 1 | 1 | Escape | Cancel
         No by default         | 4 | 2 | Return | No
         Yes                   | 3 | 3 | Y      | Yes
         Escape in three       | 3 | 1 | Escape | Cancel
         Retry                 | 2 | 1 | R      | Retry
         Ignore                | 2 | 1 | I      | Ignore
         closing never ignores | 2 | 2 | Escape | Abort
         Retry of two          | 5 | 1 | Return | Retry)")) {
    SCOPED_TRACE(row[0]);
    MsgBoxRequest request;
    request.sPrompt = u"Discard & go on?\r\nSecond line";
    request.eButtons = static_cast<MsgBoxButtons>(std::stoi(row[1]));
    request.eIcon = MsgBoxIcon::Question;
    request.lDefaultButton = std::stoi(row[2]);
    moRobot.KeyIntoBox(Deed(row[3]).Number(0), row[3].size() == 1 ? wxMOD_ALT : wxMOD_NONE);
    EXPECT_EQ(poToolkit->MsgBox(request), Answers.at(row[4]));
  }
  Play("the form goes on | cmdApply | cmdApply | cmdApply");
}

TEST_F(NativeDialogsTest, ACancelledDialogLeavesItsFields) {
  FileDialog file;
  file.aoFilter = {{u"Template Files (*.dat)", u"*.dat"}};
  file.sFileName = u"Template.dat";
  moRobot.KeyIntoBox(WXK_ESCAPE);
  EXPECT_FALSE(poToolkit->ChooseFile(file).bConfirmed);
  EXPECT_TRUE(file.asPath.empty());
  FontDialog font;
  moRobot.KeyIntoBox(WXK_ESCAPE);
  const DialogAnswer answer = poToolkit->ChooseFont(font);
  EXPECT_FALSE(answer.bConfirmed || answer.lError != 0);
  EXPECT_EQ(font.oFont, FontSpec());
}

TEST_F(NativeDialogsTest, ThePageSetUpOffersPaperMarginsAndPrinters) {
  PageDialog o;
  o.eUnit = MarginUnit::ThousandthsOfInch;
  o.lLeft = 1234, o.lTop = 777, o.lRight = 1, o.lBottom = -5;
  o.aoPaper = {{1, u"Letter"}, {9, u"A4"}, {11, u"A5"}};
  o.asDevice = {u"Hall & stairs", u"PDF file"};
  o.lPaperSize = 9;
  o.sDeviceName = u"Hall & stairs";
  Can("ends", [&](auto& deed) {
    moRobot.WhenDialog([&](wxDialog& dialog) {
      for (std::size_t i = 2; i < deed.words.size(); ++i)
        DoOne("key " + deed.words[i] + (deed.words[i].size() == 1 ? " Alt" : ""));
      moRobot.Click(*dialog.FindWindow(deed.Word(1) == "OK" ? wxID_OK : wxID_CANCEL));
      if (!dialog.IsModal()) return;
      ADD_FAILURE() << "still open";
      dialog.EndModal(wxID_CANCEL);
    });
    return poToolkit->ChoosePage(o).bConfirmed;
  });
  look = [&] {
    std::ostringstream all;
    all << o.lLeft << ' ' << o.lTop << ' ' << o.lRight << ' ' << o.lBottom << ' ' << o.lPaperSize
        << ' ' << o.lOrientation << ' ' << ToUtf8(o.sDeviceName);
    return all.str();
  };
  Play(R"(
    as it was | ends OK                           | 1234 777 1 -5 9 1 Hall & stairs |
    cancelled | ends Cancel S Down N Down A T Up  |                                 | no
    changed   | ends OK S Down N Down A T Up      | 1234 817 1 -5 11 2 PDF file     |)");  // a mm
  o.lPaperSize = 1;
  Play("in inches | ends OK T Up | 1234 917 1 -5 1 2 PDF file |");
  o.bDisableMargins = o.bDisableOrientation = o.bDisablePaper = o.bDisablePrinter = true;
  o.eUnit = MarginUnit::HundredthsOfMillimeter;
  o.lPaperSize = 0;  // none of those offered
  Play("disabled | ends OK S Up N Up | 1234 917 1 -5 0 2 PDF file |");
}

TEST_F(NativeDialogsTest, AnErrorThatNobodyMetIsShownAndTheFormGoesOn) {
  {
    const auto link = moForm.cmdApply.Click.Connect([] { throw Failure(5); });
    moRobot.KeyIntoBox(WXK_RETURN);
    moRobot.Click(moForm.cmdApply);
  }
  {
    const auto link = moForm.Resize.Connect([] { throw Failure(5); });
    moRobot.KeyIntoBox(WXK_RETURN);
    moRobot.FrameOf(moForm).SetSize(700, 500);
    moRobot.Settle();
    moForm.mnuFile.SetVisible(false);  // the room inside changes while the window is brought up
    EXPECT_EQ(FailureOf([&] { poToolkit->DoEvents(); }), 5);
  }
  log.Take();
  Play("the form goes on | chkLocked | chkLocked | chkLocked");
}

TEST_F(NativeDialogsTest, TheHelpOpensABookAndRefusesWhatIsNone) {
  const wxString book = wxFileName::CreateTempFileName("help") + ".htb";
  {
    wxFileOutputStream file(book);
    wxZipOutputStream zip(file);
    for (const auto& [name, text] : std::map<std::string, std::string>{
             {"book.hhp", "[OPTIONS]\nContents file=book.hhc\nTitle=Book\nDefault topic=a.html\n"},
             {"book.hhc",
              "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"A\"><param "
              "name=\"ID\" value=7><param name=\"Local\" value=\"a.html\"></object></ul>"},
             {"a.html", "<html><body>Page</body></html>"}}) {
      zip.PutNextEntry(name);
      zip.Write(text.data(), text.size());
    }
  }
  const Text file = FromUtf8(book.utf8_string());
  const auto PageOf = [&](const Text& sFile, HelpCommand command, std::int32_t context) {
    const bool shown = poToolkit->Renderer().ShowHelp(sFile, command, context, &moForm);
    moRobot.Settle();
    return shown ? HelpPageShown() : wxString("refused");
  };
  EXPECT_EQ(PageOf(u"/nowhere/Book.chm", HelpCommand::Contents, 0), "refused");
  EXPECT_EQ(PageOf(file, HelpCommand::Contents, 7), "Contents");
  EXPECT_EQ(PageOf(file, HelpCommand::Search, 0), "Search");
  EXPECT_EQ(PageOf(file, HelpCommand::Index, 0), "Index");
  // Under the name that the program knows, with the ending of another platform.
  EXPECT_EQ(PageOf(file.substr(0, file.size() - 3) + u"chm", HelpCommand::Contents, 0), "Contents");
  wxRemoveFile(book);
}

TEST_F(NativeDialogsTest, AFormMayEndWhileItsDrawingIsLocked) {
  EXPECT_TRUE(poToolkit->LockWindowUpdate(&moForm.lvwRows));
  moForm.Unload();
  moRobot.Settle();
  EXPECT_TRUE(poToolkit->LockWindowUpdate(nullptr));
  moForm.Show();
  moRobot.Click(moForm.cmdApply);
  EXPECT_NE(log.Take().find("cmdApply"), std::string::npos);
}
