// The names of MX's automation classes and members, in one place. MX does not
// publish them: the class ids of the configuration and project services are
// those MX registers; every other name is our best knowledge and may differ
// between MX releases, so each can be set in Korvane.ini, section [MX], under
// the key given beside it (docs/windows.md lists them).
#pragma once

#include <string>

namespace korvane::hosts::windows {

struct MxNames {
  // Classes: a ProgID or "{CLSID}".
  std::string configurationClass = "{587184BE-89FC-11D2-9CA5-00104B4B1633}";  // ConfigurationClass
  std::string projectClass = "{587184C0-89FC-11D2-9CA5-00104B4B1633}";        // ProjectClass
  std::string dataAccessClass = "MX.DataAccess";                              // DataAccessClass
  std::string libraryClass = "MX.ModelLibrary";                               // ModelLibraryClass

  // The configuration service.
  std::string initialise = "Initialise";      // Initialise: before the first question
  std::string terminate = "Terminate";        // Terminate: when Korvane is done with it
  std::string setting = "GetSetting";         // GetSetting(name) -> text
  std::string runInput = "Run";               // Run("input", file): returns after the run
  std::string modelExists = "ModelExists";    // ModelExists(model) -> truth
  std::string stringExists = "StringExists";  // StringExists(model, label) -> truth

  // The project service.
  std::string projectFolder = "ProjectFolder";  // ProjectFolder: property, the folder

  // The data-access object; every query returns its status word.
  std::string stringInfo = "StringInfo";    // StringInfo(model, label, ByRef points)
  std::string stringPoint = "StringPoint";  // StringPoint(model, label, n, ByRef numbers(16))
  std::string record = "Record";            // Record(n, ByRef numbers(16))
  std::string pointText = "PointText";      // PointText(k) -> text k of the last point or record
  std::string nextLabel = "NextLabel";      // NextLabel(model, prefix, ByRef label)
  std::string labelCount = "LabelCount";    // LabelCount(model, prefix, ByRef count)
  std::string parameter = "Parameter";      // Parameter(name, group, ByRef value)

  // The model library: Model(name) -> model; model.Strings (Count, Item(i))
  // and model.String(label) -> string; string.Name, string.GetPointData
  // (x, y, z of each point), string.Discontinuities (1 after a break).
  std::string model = "Model";
  std::string strings = "Strings";
  std::string string = "String";
  std::string name = "Name";
  std::string pointData = "GetPointData";
  std::string discontinuities = "Discontinuities";
};

// The names, with every key of section [MX] of a settings file that is set.
MxNames readMxNames(const std::string& settingsFile);

}  // namespace korvane::hosts::windows
