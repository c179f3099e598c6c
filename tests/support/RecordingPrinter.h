#pragma once

#include "printers/Printer.h"
#include <QStringList>
#include <deque>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace vantrel::test {

/// A printer that keeps the list of operations, each as a text such as `Print("A")` or
/// `CurrentX = 200`. Text is measured as 100 twips a character. Pages are 3060 by 4860 twips
/// portrait.
class RecordingPrinter : public Printer
{
public:
    RecordingPrinter(QString name, QStringList& operations)
        : m_name(std::move(name)), m_operations(operations)
    {}

    /// Operations whose text begins with one of these fail; with an empty list none fails.
    QStringList Failing;

    QString DeviceName() const override { return m_name; }
    void SetJobTitle(const QString& title) override;
    void SetOrientation(int orientation) override;
    int Orientation() const override { return m_orientation; }
    double Width() const override { return m_orientation == OrientationLandscape ? 4860 : 3060; }
    double Height() const override { return m_orientation == OrientationLandscape ? 3060 : 4860; }
    QString Fonts(int index) const override;
    void SetFontName(const QString& name) override;
    void SetFontSize(double points) override;
    void SetFontBold(bool on) override;
    void SetFontItalic(bool on) override;
    void SetFontUnderline(bool on) override;
    void SetFontStrikethrough(bool on) override;
    void SetForeColor(ColorValue color) override;
    void SetCurrentX(double x) override;
    void SetCurrentY(float y) override;
    double TextWidth(const QString& text) override;
    void Print(const QString& text) override;
    void PaintPicture(const Picture& picture, double x, double y, double width,
                      double height) override;
    void PaintFitted(const Picture& picture, PictureFit fit, double x, double y, double width,
                     double height) override;
    void FillBoxes(const std::vector<FilledBox>& boxes) override;
    int DotsPerInch() override { return Dots; }
    bool CarriesStripe(int trackNumber) override { return CarriedTracks.contains(trackNumber); }
    void SendStripe(int trackNumber, const QString& line) override;
    void EndDoc() override;
    void EndDocAndTell(const JobEnd& told) override;

    /// Outcomes of the next jobs, in their order; further jobs are handed over.
    QList<JobOutcome> Outcomes;
    /// Whether outcomes wait until `TellOutcomes`, as those of a printer that is still writing.
    bool TellsLater = false;
    /// Tells the outcomes that wait, in the order of their jobs.
    void TellOutcomes();

    /// What the printer tells of its dots to the inch.
    int Dots = 0;
    /// The boxes of the last operation that filled any.
    std::vector<FilledBox> LastBoxes;
    /// Tracks whose stripe line is sent in a job option instead of on the page.
    QList<int> CarriedTracks;

private:
    void Note(const QString& operation);

    QString m_name;
    QStringList& m_operations;
    int m_orientation = OrientationPortrait;
    std::deque<std::pair<JobEnd, JobOutcome>> m_untold;
};

/// A machine with the printers a test gives it. All of them write to one list of operations; making
/// a printer current is an operation too.
class RecordingPrinters : public Printers
{
public:
    explicit RecordingPrinters(const QStringList& names = {QStringLiteral("Card Printer")});

    QStringList DeviceNames() override { return m_names; }
    void MakeCurrent(const QString& deviceName) override;
    Printer& Current() override;
    SpoolState SpoolStateOf(const QString& deviceName) override;
    /// Tells the outcomes that wait.
    void FinishJobs() override;

    /// The states of the queues; a queue that is not in it is running and empty.
    std::map<QString, SpoolState> Spool;

    /// From now on the machine has these printers, the first one current.
    void Install(const QStringList& names);
    RecordingPrinter& Get(const QString& name) { return *m_printers.at(name); }
    /// Only the operations that begin with one of these.
    QStringList Only(const QStringList& beginnings) const;

    QStringList Operations;

private:
    QStringList m_names;
    std::map<QString, std::unique_ptr<RecordingPrinter>> m_printers;
    QString m_current;
};

} // namespace vantrel::test
