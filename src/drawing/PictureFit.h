#pragma once

namespace vantrel {

/// How a picture is drawn in its box.
enum class PictureFit {
    /// As large as the box, whatever its own proportions.
    Stretched,
    /// The whole picture in its own proportions, in the middle of the box.
    Whole,
    /// In its own proportions and as large as it takes to fill the box; what stands over on two
    /// sides is not drawn.
    Filled,
};

} // namespace vantrel
