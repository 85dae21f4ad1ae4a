#include "SystemRegistry.h"

std::unique_ptr<SystemRegistry> SystemRegistry::Open() {
  return nullptr;
}

std::string SystemRegistry::Path() {
  return {};
}
