// A drop-down list: the user picks one of its lines and can't type others.
#pragma once

#include "ListEntries.h"

namespace Forms {

class ComboBox : public ListEntries {
 public:
  ComboBox(ControlContainer& oContainer, TextView sName) : ListEntries(oContainer, sName) {
    Reset();
  }
  ComponentKind Kind() const override { return ComponentKind::ComboBox; }
};

}  // namespace Forms
