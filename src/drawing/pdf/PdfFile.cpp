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
    m_isTaken = m_isTaken && m_sink(bytes.data(), static_cast<std::size_t>(bytes.size()));
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

bool PdfFile::End(int catalog, int information)
{
    const qint64 tableBegin = m_length;
    const QByteArray count = QByteArray::number(static_cast<qint64>(m_begins.size()) + 1);
    QByteArray table = "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const qint64 begin : m_begins)
        table += QByteArray::number(begin).rightJustified(10, '0') + " 00000 n \n";
    table += "trailer\n<</Size " + count + "/Root " + PdfReference(catalog) + "/Info " +
             PdfReference(information) + ">>\nstartxref\n" + QByteArray::number(tableBegin) +
             "\n%%EOF\n";
    Put(table);
    return m_isTaken;
}

} // namespace vantrel
