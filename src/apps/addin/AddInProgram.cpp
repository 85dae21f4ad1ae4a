#include "AddInProgram.h"

#include "AskPdfFile.h"
#include "Connect.h"
#include "ExceptionFilter.h"
#include "FMain.h"
#include "IErrorRuntime.h"
#include "MStartUp.h"
#include "Pictures.h"

namespace {

std::string PictureBytes(TextView key, std::int32_t pixels) {
  const auto drawn = FindPicture(key, pixels);
  return {reinterpret_cast<const char*>(drawn.data()), drawn.size()};
}

}  // namespace

AddInProgram::AddInProgram(void* module)
    : mStore(DefaultSettingsPath()),
      mDesktop(module, [this] { return mIDE ? mIDE->MainWindow() : 0; }),
      mPrinters([this](TextView title) { return AskPdfFile(mDesktop.Kit(), title); }) {}

std::unique_ptr<AddInProgram> AddInProgram::Start(void* module, const Text& folder,
                                                  Text commandLine) {
  std::unique_ptr<AddInProgram> program(new AddInProgram(module));
  if (!program->StartUp(folder, std::move(commandLine))) return nullptr;
  return program;
}

bool AddInProgram::StartUp(const Text& folder, Text commandLine) {
  goRegistry = &mStore;
  Forms::Toolkit& kit = mDesktop.Kit();
  kit.SetTitle(u"Tarvane Quillon");
  kit.SetPath(folder);
  kit.SetHelpFile(u"Tarvane.htb");
  kit.SetPictures(PictureBytes);
  return MStartUp::Main({kit, std::move(commandLine), {}, {}, {}});
}

AddInProgram::~AddInProgram() {
  MStartUp::End();
  ExceptionFilter::Remove();  // the IDE's own filter is back
  goRegistry = nullptr;
}

std::unique_ptr<IDTExtensibility> AddInProgram::MakeAddIn() {
  goError->SetEnding(false);  // an add-in that ended after a failure can be connected again
  return std::make_unique<Connect>(mDesktop.Kit(), mPrinters);
}

bool AddInProgram::HoldsGroup(const IDTExtensibility& addIn) {
  const FMain* const window = static_cast<const Connect&>(addIn).Main();
  return window && window->Loaded();
}

void AddInProgram::CloseWindow(IDTExtensibility& addIn) {
  FMain* const window = static_cast<Connect&>(addIn).Main();
  if (window) window->Hide();
}
