#pragma once

#include "station/imaging/CameraLibrary.h"
#include <memory>

namespace vantrel {

class Session;

/// The camera that "Camera" in the section "Station" of the settings file names: "Default" or none
/// the machine's own, "folder:" and a path the newest picture of that folder, anything else the
/// device of that name. A machine without it gets a camera that never answers and tells so.
std::unique_ptr<Cam> MakeCamera(const Session& session);

} // namespace vantrel
