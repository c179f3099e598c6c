#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfSyntax.h"
#include <utility>

namespace vantrel {

PdfFile::PdfFile(Sink sink) : m_sink(std::move(sink))
{
    // The second line marks the file as binary for programs that transfer it.
    Put("%PDF-1.5\n%\xB5\xED\xAE\xFB\n");
}

void PdfFile::Put(QByteArrayView bytes)
{
    if (!m_isTaken)
        return;
    m_isTaken = false; // also if the sink throws
    m_isTaken = m_sink(bytes.data(), static_cast<std::size_t>(bytes.size()));
    m_length += bytes.size();
}

int PdfFile::Reserve()
{
    m_begins.push_back(0);
    return static_cast<int>(m_begins.size());
}

void PdfFile::Begin(int object)
{
    m_begins[static_cast<std::size_t>(object) - 1] = m_length;
    Put(QByteArray(QByteArray::number(object) + " 0 obj\n"));
}

void PdfFile::Write(int object, const QByteArray& body)
{
    Begin(object);
    Put(body);
    Put("\nendobj\n");
}

int PdfFile::Add(const QByteArray& body)
{
    const int object = Reserve();
    Write(object, body);
    return object;
}

int PdfFile::AddStream(const QByteArray& entries, QByteArrayView bytes)
{
    const int object = Reserve();
    Begin(object);
    Put("<<");
    Put(entries);
    Put(QByteArray("/Length " + QByteArray::number(bytes.size()) + ">>\nstream\n"));
    Put(bytes);
    Put("\nendstream\nendobj\n");
    return object;
}

QByteArray PdfFile::TrailerEntries(int catalog, int information) const
{
    return "/Size " + QByteArray::number(static_cast<qint64>(m_begins.size()) + 1) + "/Root " +
           PdfReference(catalog) + "/Info " + PdfReference(information);
}

void PdfFile::PutTableBegin(qint64 offset)
{
    Put(QByteArray("startxref\n" + QByteArray::number(offset) + "\n%%EOF\n"));
}

bool PdfFile::End(int catalog, int information)
{
    const qint64 tableBegin = m_length;
    QByteArray table = "xref\n0 " + QByteArray::number(static_cast<qint64>(m_begins.size()) + 1) +
                       "\n0000000000 65535 f \n";
    for (const qint64 begin : m_begins)
        table += QByteArray::number(begin).rightJustified(10, '0') + " 00000 n \n";
    table += "trailer\n<<" + TrailerEntries(catalog, information) + ">>\n";
    Put(table);
    PutTableBegin(tableBegin);
    return m_isTaken;
}

bool PdfFile::EndCompact(int catalog, int information)
{
    const qint64 tableBegin = m_length;
    const int table = Reserve();
    m_begins.back() = tableBegin;
    // An entry is its kind in one byte, the offset in six, and the generation in none.
    constexpr int offsetBytes = 6;
    QByteArray entries(1 + offsetBytes, '\0');
    entries.reserve((static_cast<qsizetype>(m_begins.size()) + 1) * (1 + offsetBytes));
    for (const qint64 begin : m_begins) {
        entries += begin == 0 ? '\0' : '\1';
        for (int shift = (offsetBytes - 1) * 8; shift >= 0; shift -= 8)
            entries += static_cast<char>(begin >> shift);
    }
    const QByteArray packed = PackBytes(entries);
    Begin(table);
    Put(QByteArray("<</Type/XRef/W[1 6 0]" + TrailerEntries(catalog, information) +
                   "/Filter/FlateDecode/Length " + QByteArray::number(packed.size()) +
                   ">>\nstream\n"));
    Put(packed);
    Put("\nendstream\nendobj\n");
    PutTableBegin(tableBegin);
    return m_isTaken;
}

} // namespace vantrel
