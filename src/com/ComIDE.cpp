#include "ComIDE.h"

#include "Failure.h"

namespace {

MemberNames projectsNames;

class ComCodePane : public CodePane {
 public:
  ComCodePane(ComStore& store, LateBound object) : mStore(store), mObject(std::move(object)) {}
  ::CodeModule& CodeModule() override {
    LateBound object = ModuleObject(mObject, u"CodeModule");
    if (!object) throw Failure(91);
    return mStore.Make<ComCodeModule>(nullptr, mStore, std::move(object));
  }

 private:
  ComStore& mStore;
  LateBound mObject;
};

}  // namespace

ComIDE::ComIDE(ComPtr<IDispatch> root, IComEntry& entry)
    : mRoot(std::move(root)), mEvents(mRoot, entry), mBars({mKept, mPassing, &mEvents}, mRoot) {}

ComIDE::~ComIDE() = default;

::VBProjects& ComIDE::VBProjects() {
  if (!mProjects) {
    LateBound object = mRoot.GetObject(&projectsNames, u"VBProjects");
    if (!object) throw Failure(91);
    mProjects = &mPassing.Make<ComProjects>(mPassing, std::move(object));
  }
  return *mProjects;
}

CodePane* ComIDE::ActiveCodePane() {
  LateBound object = mRoot.GetObject(nullptr, u"ActiveCodePane");
  return object ? &mPassing.Make<ComCodePane>(mPassing, std::move(object)) : nullptr;
}

void ComIDE::Update() {
  mRoot.GetObject(nullptr, u"Addins").Call(u"Update");
}

std::intptr_t ComIDE::MainWindow() const noexcept {
  try {
    return mRoot.GetObject(nullptr, u"MainWindow").Get(u"HWnd").AsNumber();
  } catch (...) {
    return 0;
  }
}
