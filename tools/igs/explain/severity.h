#pragma once

/// How much a fault matters, rising.
enum class Severity {
  note,     ///< bookkeeping that writing anew cures without touching content
  warning,  ///< against the standard in a way that another reader may refuse or misread, or mended by a guess only
  error     ///< data are lost, unusable or contradictory, or the size of the part is in doubt
};

/// "note", "warning" or "error".
const char* severity_name(Severity severity);
