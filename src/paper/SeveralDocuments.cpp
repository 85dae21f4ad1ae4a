#include "SeveralDocuments.h"

#include <utility>

namespace Paper {

void SeveralDocuments::StartDocument(TextView) {
  if (mbOpen) return;
  moBelow.StartDocument(msTitle);
  mbOpen = true;
}

void SeveralDocuments::KillDocument() noexcept {
  if (std::exchange(mbOpen, false)) moBelow.KillDocument();
}

void SeveralDocuments::Close() {
  if (std::exchange(mbOpen, false)) moBelow.EndDocument();
}

}  // namespace Paper
