// Texts as the forms of findings want them, each by the rules of its own form.
#pragma once

#include <string>
#include <string_view>

/// A path's bytes as a URI reference: `a b.bas` is `a%20b.bas`, an absolute path begins `file://`.
std::string UriOfPath(std::string_view path);

/// The message of a workflow command: %, CR and LF are escaped.
std::string WorkflowData(std::string_view text);
/// The value of one of its properties, in which a colon and a comma are escaped too.
std::string WorkflowProperty(std::string_view text);

/// Text and attribute values of XML 1.0. Characters that it can't hold even as references are shown
/// as <U+0001>, U+FFFE and U+FFFF as U+FFFD. Takes well-formed UTF-8.
std::string XmlText(std::string_view text);
