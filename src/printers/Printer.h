#pragma once

#include "base/Color.h"
#include "base/Failure.h"
#include "base/Font.h"
#include "drawing/FilledBox.h"
#include "drawing/Picture.h"
#include "drawing/PictureFit.h"
#include "printers/JobOutcome.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

/// Values of the page orientation.
inline constexpr int OrientationPortrait = 1;
inline constexpr int OrientationLandscape = 2;

/// One printing device with the operations that a card job uses. The driver receives
/// them in the order of the calls. Lengths are twips from the page's top left corner. Every
/// operation may fail with `PrinterError`.
class Printer
{
public:
    virtual ~Printer() = default;

    /// Name of the device, as in `Printers::DeviceNames`.
    virtual QString DeviceName() const = 0;
    /// Sets the name of the next job in the queue.
    virtual void SetJobTitle(const QString& title) = 0;
    /// Sets 1 portrait or 2 landscape; fails with `PrinterError` for other values.
    virtual void SetOrientation(int orientation) = 0;
    virtual int Orientation() const = 0;
    /// Size of the page in the present orientation, in twips.
    virtual double Width() const = 0;
    virtual double Height() const = 0;

    /// Family name of an installed font; `index` counts from 1. Fails with `SubscriptOutOfRange`.
    virtual QString Fonts(int index) const = 0;
    /// Set the font of the text that follows; its size is in points.
    virtual void SetFontName(const QString& name) = 0;
    virtual void SetFontSize(double points) = 0;
    virtual void SetFontBold(bool on) = 0;
    virtual void SetFontItalic(bool on) = 0;
    virtual void SetFontUnderline(bool on) = 0;
    virtual void SetFontStrikethrough(bool on) = 0;
    virtual void SetForeColor(ColorValue color) = 0;
    /// Set the position of the next text, in twips.
    virtual void SetCurrentX(double x) = 0;
    virtual void SetCurrentY(float y) = 0;
    /// Width of a text in the present font, in twips.
    virtual double TextWidth(const QString& text) = 0;

    /// Draws text at the current position and moves to the start of the next line. The first
    /// operation that draws opens the page.
    virtual void Print(const QString& text) = 0;
    /// Draws a picture stretched into the rectangle.
    virtual void PaintPicture(const Picture& picture, double x, double y, double width,
                              double height) = 0;
    /// Draws a picture in the rectangle as `fit` says.
    virtual void PaintFitted(const Picture& picture, PictureFit fit, double x, double y,
                             double width, double height) = 0;
    /// Fills boxes with the colour of text, as a drawing and not as a picture.
    virtual void FillBoxes(const std::vector<FilledBox>& boxes) = 0;
    /// The printer's dots to the inch in both directions; 0 if they are not known.
    virtual int DotsPerInch() { return 0; }
    /// Whether a track's stripe line is sent beside the page by `SendStripe`. If not, it is printed
    /// as text on the page, where the driver finds it.
    virtual bool CarriesStripe(int /*trackNumber*/) { return false; }
    /// Adds the stripe line of a track, 1 to 3, to the open job; opens one like `Print`. Fails with
    /// `PrinterError` if the printer does not support the track.
    virtual void SendStripe(int /*trackNumber*/, const QString& /*line*/)
    {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: the stripe travels on the page"));
    }
    /// Ends the job and sends it. Does nothing without an open page.
    virtual void EndDoc() = 0;
    /// Ends the job like `EndDoc`, and calls `told` exactly once with what became of it; a failure
    /// is told and not thrown. Most printers call it before they return. One that is still writing
    /// calls it later from the event loop of this thread, or in `Printers::FinishJobs`, or when it
    /// is destroyed, and tells its jobs in their order. A job without an open page was not handed
    /// over. `told` may print the next job, and must not destroy the printer.
    virtual void EndDocAndTell(const JobEnd& told);
};

/// State of a printer's queue at the time of the query.
struct SpoolState
{
    bool Paused = false;
    bool Accepting = true;
    int Jobs = 0;
};

/// The machine's printers in enumeration order, and the current one.
class Printers
{
public:
    virtual ~Printers() = default;

    /// Device names in enumeration order. Never fails; a machine without printers has none.
    virtual QStringList DeviceNames() = 0;
    /// Makes the first device with exactly that name current. Fails with `PrinterError` if there is
    /// none.
    virtual void MakeCurrent(const QString& deviceName) = 0;
    /// The current printer, initially the machine's default. Fails with `PrinterError` if there is
    /// none. Valid until the next `MakeCurrent`.
    virtual Printer& Current() = 0;
    /// State of a device's queue. Never fails; a device that has no queue or no longer exists is
    /// reported as running and empty.
    virtual SpoolState SpoolStateOf(const QString& /*deviceName*/) { return {}; }
    /// Waits until all jobs that were ended have been written or sent, and their outcomes told.
    virtual void FinishJobs() {}
};

} // namespace vantrel
