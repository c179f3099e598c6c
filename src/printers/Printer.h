#pragma once

#include "base/Color.h"
#include "base/Failure.h"
#include "base/Font.h"
#include "drawing/Picture.h"
#include <QString>
#include <QStringList>

namespace vantrel {

/// Page orientation as printers are told it.
inline constexpr int OrientationPortrait = 1;
inline constexpr int OrientationLandscape = 2;

/// One printing device, with exactly the operations a card job uses; their order is part of what a
/// driver sees. Lengths are twips from the page's top left corner. Every operation may fail with
/// `PrinterError`.
class Printer
{
public:
    virtual ~Printer() = default;

    virtual QString DeviceName() const = 0;
    /// The name the next job carries in the queue.
    virtual void SetJobTitle(const QString& title) = 0;
    /// 1 portrait, 2 landscape; anything else fails.
    virtual void SetOrientation(int orientation) = 0;
    virtual int Orientation() const = 0;
    /// Size of the page in the present orientation.
    virtual double Width() const = 0;
    virtual double Height() const = 0;

    /// Family name of an installed font, counted from 1.
    virtual QString Fonts(int index) const = 0;
    virtual void SetFontName(const QString& name) = 0;
    virtual void SetFontSize(double points) = 0;
    virtual void SetFontBold(bool on) = 0;
    virtual void SetFontItalic(bool on) = 0;
    virtual void SetFontUnderline(bool on) = 0;
    virtual void SetFontStrikethrough(bool on) = 0;
    virtual void SetForeColor(ColorValue color) = 0;
    virtual void SetCurrentX(double x) = 0;
    virtual void SetCurrentY(float y) = 0;
    virtual double TextWidth(const QString& text) = 0;

    /// Draws the text at the print position and moves to the start of the next line. The first
    /// operation that draws opens the page.
    virtual void Print(const QString& text) = 0;
    /// Draws a picture stretched into the rectangle.
    virtual void PaintPicture(const Picture& picture, double x, double y, double width,
                              double height) = 0;
    /// Whether a track's stripe line travels beside the page, by `SendStripe`; otherwise it is
    /// printed as text for the driver to find there.
    virtual bool CarriesStripe(int /*trackNumber*/) { return false; }
    /// Hands over the line of a track, 1 to 3, to travel with the job that is open; it opens one
    /// as `Print` does. Fails with `PrinterError` where the printer does not carry that track.
    virtual void SendStripe(int /*trackNumber*/, const QString& /*line*/)
    {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: the stripe travels on the page"));
    }
    /// Ends the job and releases it. Without an open page nothing is released.
    virtual void EndDoc() = 0;
};

/// What a printer's queue is doing at the moment it is asked.
struct SpoolState
{
    bool Paused = false;
    bool Accepting = true;
    int Jobs = 0;
};

/// The machine's printers, in their order, and the one that is current.
class Printers
{
public:
    virtual ~Printers() = default;

    /// Device names in enumeration order. Never fails; a machine without printers has none.
    virtual QStringList DeviceNames() = 0;
    /// Makes the first device of exactly that name the current one. Fails with `PrinterError`.
    virtual void MakeCurrent(const QString& deviceName) = 0;
    /// The current printer, at first the machine's default. Fails with `PrinterError` where there
    /// is none. Valid until the next `MakeCurrent`.
    virtual Printer& Current() = 0;
    /// State of a device's queue. Never fails; what has no queue, or is gone, is running and empty.
    virtual SpoolState SpoolStateOf(const QString& /*deviceName*/) { return {}; }
};

} // namespace vantrel
