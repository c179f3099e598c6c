#pragma once

#include "base/FileStamp.h"
#include <QString>
#include <array>

namespace vantrel {

/// The tracks of a magnetic stripe, numbered from 1.
inline constexpr int TrackCount = 3;

/// The administrator's setup of one printer; by default nothing is set.
struct PrinterSetup
{
    /// Names of the job options for the tracks' stripe lines. If a name is empty, the line is
    /// printed as text on the page.
    std::array<QString, TrackCount> StripeOptions;
    /// Shift of everything drawn on this printer to the right and down, in twips.
    double OffsetX = 0;
    double OffsetY = 0;
    /// Dots to the inch; 0 to take what the printer tells.
    int DotsPerInch = 0;
};

/// The section "Printer NAME" of a settings file. It is read again when the file has changed, so a
/// printer can be calibrated while the station runs.
class PrinterSetupFile
{
public:
    /// Without a file; the setup is always the default.
    PrinterSetupFile() = default;
    PrinterSetupFile(QString path, const QString& deviceName);

    /// The present setup. Never fails; values that are missing or invalid count as not set.
    const PrinterSetup& Current();

private:
    PrinterSetup Read() const;

    QString m_path;
    QString m_section;
    FileStamp m_stamp;
    PrinterSetup m_setup;
};

} // namespace vantrel
