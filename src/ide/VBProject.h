// Projects and components of the open group. Collections count from 1. Objects belong to the host.
#pragma once

#include <cstdint>
#include <vector>

#include "CodeModule.h"
#include "Text.h"

class VBComponents;
class VBProject;

using MQuillon::ComponentType;
using MQuillon::ProjectType;

class VBControls {
 public:
  virtual ~VBControls() = default;
  virtual std::int32_t Count() const = 0;
  /// The property "Name" of control lIndex; a control array's name comes once per element.
  virtual Text ItemName(std::int32_t lIndex) const = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual Text Name() const = 0;
  virtual ComponentType Type() const = 0;
  virtual std::int32_t FileCount() const = 0;
  /// nIndex from 1; empty for a component that was never saved.
  virtual Text FileNames(std::int32_t nIndex) const = 0;
  /// Null or a Failure when the component has no code or its file can't be read.
  virtual ::CodeModule* CodeModule() = 0;
  /// Designer.VBControls. Null or a Failure when there is no designer.
  virtual VBControls* DesignerControls() = 0;
  /// Properties.Item(sName).Value; "Instancing" of a class: 1 to 6. Failure 380 for others.
  virtual std::int32_t Property(TextView sName) = 0;
  /// A dotted name such as VB.Form, or empty.
  virtual Text DesignerID() const = 0;
  virtual VBProject& Parent() const = 0;
  /// Why the IDE reads the component's file and never writes it; empty where it does.
  virtual Text ReadOnlyReason() const { return {}; }
};

class VBComponents {
 public:
  virtual ~VBComponents() = default;
  virtual std::int32_t Count() const = 0;
  virtual VBComponent& Item(std::int32_t lIndex) = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual Text Name() const = 0;
  virtual Text FileName() const = 0;
  virtual ProjectType Type() const = 0;
  virtual ::VBComponents& VBComponents() = 0;
};

class VBProjects {
 public:
  virtual ~VBProjects() = default;
  virtual std::int32_t Count() const = 0;
  virtual VBProject& Item(std::int32_t lIndex) = 0;
};
