// Settings of a test's own, in memory or in a file: the program uses them as long as they live, and
// then those of before.
#pragma once

#include "RegistryStore.h"

class OwnSettings : public RegistryStore {
 public:
  template <class... Args>
  explicit OwnSettings(Args&&... oArgs) : RegistryStore(std::forward<Args>(oArgs)...) {
    goRegistry = this;
  }
  ~OwnSettings() { goRegistry = mpoBefore; }

 private:
  RegistryStore* const mpoBefore = goRegistry;
};
