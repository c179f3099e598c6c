#pragma once

#include <string>
#include <vector>

namespace vantrel::test {

/// The stripe of one track as a plain reader of the rules would write it down, on bytes and with
/// nothing of the station's: what random formulas are compared with.
/// @return the printer's operations; the last is "failed" where a token fails
std::vector<std::string> ModelOfTrack(int printerType, int track, const std::string& formula,
                                      const std::vector<std::string>& values);

} // namespace vantrel::test
