// The MX interface the engine implements, and its types, as the engine's own
// names.
#pragma once

#include "hosts/mx.h"

namespace korvane::engine {

using hosts::MxConfiguration;
using hosts::MxDataAccess;
using hosts::MxEngine;
using hosts::MxError;
using hosts::MxModel;
using hosts::MxModelLibrary;
using hosts::MxPoint;
using hosts::MxProject;
using hosts::MxRunResult;
using hosts::MxStatus;
using hosts::MxString;
using hosts::PointRecord;

}  // namespace korvane::engine
