#pragma once

#include <string>
#include <vector>

namespace vantrel::test {

/// A plain model of the stripe of one track, on bytes and without the station's code. Random
/// formulas are compared with it.
/// @return the printer's operations; the last is "failed" where a token fails
std::vector<std::string> ModelOfTrack(int printerType, int track, const std::string& formula,
                                      const std::vector<std::string>& values);

} // namespace vantrel::test
