#pragma once

#include "base/FileStamp.h"
#include <QString>
#include <array>

namespace vantrel {

/// The tracks of a magnetic stripe, numbered from 1.
inline constexpr int TrackCount = 3;

/// What an administrator has set up for one printer; as it is made, nothing is.
struct PrinterSetup
{
    /// Names of the job options that carry the tracks' stripe lines; where one is empty, its line
    /// is text on the page.
    std::array<QString, TrackCount> StripeOptions;
    /// How far all that is drawn on this printer moves to the right and down, in twips.
    double OffsetX = 0;
    double OffsetY = 0;
};

/// The section "Printer NAME" of a settings file, read anew when the file has changed: a printer is
/// calibrated while the station runs.
class PrinterSetupFile
{
public:
    /// No file: nothing is ever set up.
    PrinterSetupFile() = default;
    PrinterSetupFile(QString path, const QString& deviceName);

    /// Never fails; what is missing or cannot be read counts as not set.
    const PrinterSetup& Current();

private:
    PrinterSetup Read() const;

    QString m_path;
    QString m_section;
    FileStamp m_stamp;
    PrinterSetup m_setup;
};

} // namespace vantrel
