// Generate: the input file beside a panel file that hands the parameters to
// the long-section macro as variables, and the set's drawing parameter file
// that keeps its sheet count for the function `sheets`.
#pragma once

#include <string>

#include "base/messages.h"
#include "longsection/panel_file.h"
#include "longsection/parameters.h"
#include "longsection/validation.h"

namespace korvane::longsection {

// The macro the generated input inserts (found in the macro folders).
inline constexpr const char* kMacroName = "longsection";

// The set's name: the panel file's base name.
std::string setName(const std::string& panelFile);

// The input file's text (CRLF lines): an insert of the macro whose keyword
// text assigns every parameter.
std::string generatedInput(const Parameters& p, const std::string& set, const Messages& texts);

// Writes the input beside the panel file (same name, ".ipf"); returns its
// path, or empty when it could not be written.
std::string writeGeneratedInput(const std::string& panelFile, const Parameters& p,
                                const Messages& texts);

// The drawing parameter file of a set: 120 bytes of header, the sheet count
// as the byte at offset 120, then the parameters as lines.
std::string drawingParameters(const Parameters& p, const Extent& extent);
bool writeDrawingParameterFile(const std::string& projectFolder, const std::string& set,
                               const Parameters& p, const Extent& extent);

}  // namespace korvane::longsection
