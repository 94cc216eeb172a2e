#pragma once

#include <string>
#include <string_view>

/// The text as content of an element, or value of an attribute, of XML and HTML, in UTF-8: markup is escaped, and what
/// XML does not allow becomes U+FFFD.
std::string xml_text(std::string_view text);
