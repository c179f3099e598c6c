#include "drawing/pdf/PdfBook.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include "drawing/PictureData.h"
#include "drawing/TextShaper.h"
#include "drawing/pdf/BookFonts.h"
#include "drawing/pdf/ItemCanvas.h"
#include "drawing/pdf/LineForm.h"
#include "drawing/pdf/PdfContent.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfObjects.h"
#include "drawing/pdf/PdfPageTree.h"
#include "drawing/pdf/PdfSyntax.h"
#include <QCache>
#include <utility>

namespace vantrel {

namespace {

constexpr int PicturesKnown = 1000;
constexpr int FormsKnown = 256;

/// A line drawn as a form. The line is not kept alive by it.
struct KnownForm
{
    std::weak_ptr<const ShapedLine> Line;
    int Object = 0;
};

[[noreturn]] void Fail(const char* reason)
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: ") + QLatin1StringView(reason));
}

} // namespace

/// The file behind a book and what is known of it.
class PdfBook::Writer
{
public:
    explicit Writer(PageCanvas::Sink sink)
        : m_file(std::move(sink)), m_fonts(m_file), m_tree(m_file)
    {}

    int PageCount() const { return m_tree.PageCount(); }

    void AddPage(const std::vector<ItemCanvas::Item>& items, double width, double height)
    {
        Guard([&] {
            PdfContent content(height, m_fonts.Faces());
            for (const auto& item : items)
                std::visit([&](const auto& placed) { Add(content, placed); }, item);
            PdfPageParts parts{.Width = width, .Height = height};
            parts.Forms = content.Forms();
            for (const auto& face : content.Faces())
                parts.Faces.push_back(m_fonts.NumberOf(*face));
            for (const Picture& picture : content.Pictures())
                parts.Pictures.push_back(NumberOf(*picture.Data()));
            parts.Operators = AddOperators(content.Operators());
            parts.Parent = m_tree.ParentOfNext();
            m_tree.Add(m_file.Add(PdfPageBody(parts)));
        });
    }

    void Finish()
    {
        if (PageCount() == 0)
            Fail("the document has no page");
        Guard([&] {
            m_isEnded = true;
            m_fonts.Write();
            const int catalog = AddCatalog(m_file, m_tree.Finish());
            m_file.EndCompact(catalog, AddInformation(m_file));
        });
    }

private:
    /// Runs a step that writes, and remembers why the sink failed.
    template <typename Step>
    void Guard(Step&& step)
    {
        if (m_isEnded || !m_file.IsTaken())
            throw Failure(FailureNumber::PrinterError, m_reason);
        try {
            std::forward<Step>(step)();
            if (!m_file.IsTaken())
                Fail("the page was not taken");
        } catch (const Failure& failure) {
            if (!m_file.IsTaken())
                m_reason = failure.Text();
            throw;
        }
    }

    void Add(PdfContent& content, const PlacedLine& placed)
    {
        if (m_fonts.Take(placed.Line->Glyphs))
            content.Add(placed);
        else
            content.AddForm(FormOf(placed), placed.X, placed.Baseline);
    }
    static void Add(PdfContent& content, const PlacedPicture& placed) { content.Add(placed); }
    static void Add(PdfContent& content, const PlacedBoxes& placed) { content.Add(placed); }

    int AddOperators(const QByteArray& operators)
    {
        // Nothing cannot be compressed.
        return operators.isEmpty() ? m_file.AddStream({}, {})
                                   : m_file.AddStream("/Filter/FlateDecode", PackBytes(operators));
    }

    int FormOf(const PlacedLine& placed)
    {
        const std::pair<const ShapedLine*, ColorValue> key(placed.Line.get(), placed.Color);
        // The place in memory may by now be that of another line.
        if (const KnownForm* known = m_forms.object(key);
            known && known->Line.lock() == placed.Line)
            return known->Object;
        const int object = AddLineForm(m_file, placed.Line, placed.Color);
        m_forms.insert(key, new KnownForm{placed.Line, object});
        return object;
    }

    int NumberOf(const PictureData& picture)
    {
        const QByteArray& key = picture.ContentKey();
        if (const int* known = m_pictures.object(key))
            return *known;
        const int object = AddPicture(m_file, picture);
        m_pictures.insert(key, new int(object));
        return object;
    }

    PdfFile m_file;
    BookFonts m_fonts;
    PdfPageTree m_tree;
    QCache<QByteArray, int> m_pictures{PicturesKnown};
    QCache<std::pair<const ShapedLine*, ColorValue>, KnownForm> m_forms{FormsKnown};
    bool m_isEnded = false;
    /// Why no page can follow.
    QString m_reason = QStringLiteral("Printer error: the document is finished");
};

/// A page that is added to the book when it is finished.
class PdfBook::Page : public ItemCanvas
{
public:
    Page(Writer& writer, double width, double height) : ItemCanvas(width, height), m_writer(writer)
    {}

    void Finish() override { m_writer.AddPage(Items(), Width(), Height()); }

private:
    Writer& m_writer;
};

PdfBook::PdfBook(PageCanvas::Sink sink) : m_writer(std::make_unique<Writer>(std::move(sink))) {}

PdfBook::~PdfBook() = default;

std::unique_ptr<PageCanvas> PdfBook::NewPage(double width, double height)
{
    return std::make_unique<Page>(*m_writer, PointsOfTwips(width), PointsOfTwips(height));
}

int PdfBook::PageCount() const
{
    return m_writer->PageCount();
}

void PdfBook::Finish()
{
    m_writer->Finish();
}

} // namespace vantrel
