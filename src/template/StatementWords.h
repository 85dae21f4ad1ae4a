// The words of a statement, for questions that a pattern of its text can't answer.
#pragma once

#include <vector>

#include "Text.h"

/// Words and single signs of a statement as LogicalLines gives it: in lower case, without literals
/// and comment. Views into it.
std::vector<TextView> Words(TextView statement);
/// True when the word can be a name: it begins with a letter.
bool IsNameWord(TextView word);
