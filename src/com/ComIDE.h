// The object model of the IDE that loaded the library: the root of all that ComProjects.h and the
// others show. Each object that it gives is called by the names of its members at the time of the
// question; nothing but references is kept.
//
//   ComIDE ide(VBInst, entry);
//   handler.LoadProjects(ide);
//   ...
//   ide.LetGo();   // when no object of the group is in use any more
#pragma once

#include "ComCommandBars.h"
#include "ComProjects.h"
#include "VBE.h"

class ComIDE : public VBE, private Addins {
 public:
  /// root: the IDE's own root object. entry: around each click; it outlives this object.
  ComIDE(ComPtr<IDispatch> root, IComEntry& entry);
  ~ComIDE() override;
  ComIDE(const ComIDE&) = delete;
  ComIDE& operator=(const ComIDE&) = delete;

  ::VBProjects& VBProjects() override;
  ::CommandBars& CommandBars() override { return mBars; }
  ::Events& Events() override { return mEvents; }
  ::Addins& Addins() override { return *this; }
  CodePane* ActiveCodePane() override;

  /// Lets go of the objects of the group and of bars that were only looked at; who has one of them
  /// must not use it any more.
  void LetGo() { mPassing.Clear(), mProjects = nullptr; }
  /// The IDE's main window; 0 when it doesn't tell.
  std::intptr_t MainWindow() const noexcept;

 private:
  void Update() override;

  LateBound mRoot;
  ComStore mKept, mPassing;
  ComEvents mEvents;
  ComBars mBars;
  ComProjects* mProjects = nullptr;
};
