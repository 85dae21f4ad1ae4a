// What template learn is beside survey: both gather the same.
#pragma once

class Session;

/// Writes the shape that --shape names as a section of a template file; 1 when a check of it finds
/// something.
int LearnTemplateCommand(Session& session);
