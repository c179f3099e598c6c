#pragma once

#include "station/imaging/CameraLibrary.h"
#include <memory>

namespace vantrel {

class Session;

/// The camera that "Camera" in the section "Station" of the settings file names: "Default" or no
/// text names the machine's own camera, "folder:" and a path the newest picture of that folder, any
/// other text the device of that name. Where it does not exist, the camera never answers and
/// reports that it is missing.
std::unique_ptr<Cam> MakeCamera(const Session& session);

} // namespace vantrel
