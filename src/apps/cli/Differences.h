// The differences of files that a command prints, for the reader there is.
#pragma once

#include <string>

#include "Session.h"

/// Bytes of a file before and behind its change.
void PutDifference(Session& session, const std::string& path, const std::string& before,
                   const std::string& after);
/// Behind the last of them, ahead of the writing. Stop when they can't be written.
void EndDifferences(Session& session);
