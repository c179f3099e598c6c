#pragma once

#include <QByteArray>
#include <map>
#include <vector>

namespace vantrel {

class PdfFile;

/// A PDF of one page whose objects stand one after the other with a table of their offsets, read to
/// take its drawing over into another file. Only PDFs that this program has made are read. Fails
/// with `PrinterError` if something is not where it is expected.
class PlainPdf
{
public:
    explicit PlainPdf(QByteArray bytes);

    /// Adds what the page draws as a form, and all objects that it needs.
    /// @param entries  entries of the form's dictionary besides its resources
    /// @return the form's object number
    int AddPageAsForm(PdfFile& file, const QByteArray& entries) const;

private:
    /// An object from behind its "obj" to its "endobj".
    QByteArrayView BodyOf(int object) const;
    /// The object that an entry of a page's dictionary refers to.
    int ReferenceIn(QByteArrayView page, QByteArrayView entry) const;
    int FindPage() const;

    QByteArray m_bytes;
    /// By number, from 1 on; 0 for a number without an object.
    std::vector<qsizetype> m_begins;
    qsizetype m_tableBegin = 0;
};

} // namespace vantrel
