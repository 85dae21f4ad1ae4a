// The root of the IDE's object model and the interface through which it calls an add-in.
#pragma once

#include <cstdint>

#include "CommandBars.h"
#include "Text.h"
#include "VBProject.h"

class CodePane {
 public:
  virtual ~CodePane() = default;
  virtual ::CodeModule& CodeModule() = 0;
};

class Addins {
 public:
  virtual ~Addins() = default;
  virtual void Update() = 0;
};

class VBE {
 public:
  virtual ~VBE() = default;
  virtual ::VBProjects& VBProjects() = 0;
  virtual ::CommandBars& CommandBars() = 0;
  virtual ::Events& Events() = 0;
  virtual ::Addins& Addins() = 0;
  /// Null when no code is on show.
  virtual CodePane* ActiveCodePane() = 0;
};

/// When the IDE connects an add-in.
enum class ConnectMode : std::int32_t { AfterStartup, Startup, External };

/// What the IDE calls in an add-in.
class IDTExtensibility {
 public:
  virtual ~IDTExtensibility() = default;
  virtual void OnConnection(VBE& oVBInst, ConnectMode nConnectMode) = 0;
  virtual void OnDisconnection(std::int32_t nRemoveMode) = 0;
  virtual void OnStartupComplete() = 0;
  virtual void OnAddInsUpdate() = 0;
};
