// The rewriting run of apply, refresh, number and unnumber, with its account, and the writing of
// the files behind it.
#pragma once

#include <string>
#include <unordered_map>

#include "Session.h"

/// How many procedures of a file have other lines, by the file as it is shown.
using RewrittenOfFile = std::unordered_map<std::string, std::size_t>;

/// Runs the procedures of the session's scope through the engine, between BatchStart and
/// BatchSummary. What fails is told in any case, the rest of the account unless -q is given.
RewrittenOfFile RewriteScope(Session& oSession, bool bRefresh,
                             MQuillon::LineNumAction eLineNumAction);

/// Prints the differences and writes the files, as the options say. The exit status of the whole
/// run: 1 when a procedure failed or a file could not be read or written, and with --exit-code when
/// one would be written.
int SaveChanges(Session& oSession, const RewrittenOfFile& rewritten);
