#include "drawing/pdf/PlainPdf.h"
#include "base/Failure.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfSyntax.h"
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

[[noreturn]] void FailUnread()
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: a text of the page could not be embedded"));
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// @return the place behind the text, which must be there
qsizetype Behind(QByteArrayView bytes, QByteArrayView text, qsizetype from = 0)
{
    const qsizetype at = bytes.indexOf(text, from);
    if (at < 0)
        FailUnread();
    return at + text.size();
}

/// Reads a whole number and moves behind it.
qsizetype TakeNumber(QByteArrayView bytes, qsizetype& at)
{
    const qsizetype from = at;
    while (at < bytes.size() && IsDigit(bytes[at]))
        ++at;
    bool isNumber = false;
    const qsizetype number = bytes.sliced(from, at - from).toByteArray().toLongLong(&isNumber);
    if (!isNumber)
        FailUnread();
    return number;
}

/// The place behind a text in parentheses.
qsizetype BehindText(QByteArrayView bytes, qsizetype at)
{
    int depth = 0;
    for (; at < bytes.size(); ++at) {
        if (bytes[at] == '\\')
            ++at;
        else if (bytes[at] == '(')
            ++depth;
        else if (bytes[at] == ')' && --depth == 0)
            return at + 1;
    }
    FailUnread();
}

/// The length of a reference such as "12 0 R" at this place, where a number begins; 0 if there is
/// none.
qsizetype ReferenceLength(QByteArrayView bytes, qsizetype at)
{
    qsizetype end = at;
    while (end < bytes.size() && IsDigit(bytes[end]))
        ++end;
    constexpr QByteArrayView rest(" 0 R");
    return bytes.sliced(end).startsWith(rest) ? end + rest.size() - at : 0;
}

/// Splits an object into its dictionary or value, and its stream with all that follows.
std::pair<QByteArrayView, QByteArrayView> SplitStream(QByteArrayView body)
{
    constexpr QByteArrayView begin("\nstream\n");
    const qsizetype at = body.indexOf(begin);
    return at < 0 ? std::pair(body, QByteArrayView()) : std::pair(body.first(at), body.sliced(at));
}

/// Copies objects with all objects that they refer to, under numbers of the other file.
class Copier
{
public:
    explicit Copier(PdfFile& file) : m_file(file) {}

    int NumberOf(int object)
    {
        const auto [place, isNew] = m_numbers.try_emplace(object, 0);
        if (isNew) {
            place->second = m_file.Reserve();
            m_waiting.push_back(object);
        }
        return place->second;
    }
    /// The same text with the other file's numbers in its references.
    QByteArray Renumbered(QByteArrayView text)
    {
        QByteArray out;
        for (qsizetype at = 0; at < text.size();) {
            const bool isInNumber = at > 0 && IsDigit(text[at - 1]);
            qsizetype end = at + 1;
            if (text[at] == '(') {
                end = BehindText(text, at);
            } else if (IsDigit(text[at]) && !isInNumber) {
                if (const qsizetype length = ReferenceLength(text, at); length > 0) {
                    qsizetype numberAt = at;
                    out += PdfReference(NumberOf(static_cast<int>(TakeNumber(text, numberAt))));
                    at += length;
                    continue;
                }
            }
            out += text.sliced(at, end - at);
            at = end;
        }
        return out;
    }
    /// Takes an object whose number was asked for and that is not copied yet; 0 for none.
    int TakeWaiting()
    {
        if (m_waiting.empty())
            return 0;
        const int object = m_waiting.back();
        m_waiting.pop_back();
        return object;
    }

private:
    PdfFile& m_file;
    std::map<int, int> m_numbers;
    std::vector<int> m_waiting;
};

} // namespace

PlainPdf::PlainPdf(QByteArray bytes) : m_bytes(std::move(bytes))
{
    const QByteArrayView all(m_bytes);
    constexpr QByteArrayView end("startxref\n");
    qsizetype at = all.lastIndexOf(end);
    if (at < 0)
        FailUnread();
    at += end.size();
    m_tableBegin = TakeNumber(all, at);
    constexpr QByteArrayView tableBegin("xref\n0 ");
    if (m_tableBegin >= all.size() || !all.sliced(m_tableBegin).startsWith(tableBegin))
        FailUnread();
    at = m_tableBegin + tableBegin.size();
    const qsizetype count = TakeNumber(all, at);
    constexpr qsizetype entryLength = 20;
    qsizetype entry = Behind(all, "\n", at) + entryLength;
    if (count < 1 || entry + (count - 1) * entryLength > all.size())
        FailUnread();
    for (qsizetype object = 1; object < count; ++object, entry += entryLength) {
        qsizetype numberAt = entry;
        const qsizetype begin = TakeNumber(all, numberAt);
        constexpr qsizetype kindAt = 17;
        m_begins.push_back(all[entry + kindAt] == 'n' ? begin : 0);
    }
}

QByteArrayView PlainPdf::BodyOf(int object) const
{
    const auto index = static_cast<std::size_t>(object) - 1;
    const qsizetype begin = index < m_begins.size() ? m_begins[index] : 0;
    if (begin <= 0 || begin >= m_tableBegin)
        FailUnread();
    qsizetype end = m_tableBegin;
    for (const qsizetype other : m_begins) {
        if (other > begin)
            end = std::min(end, other);
    }
    const QByteArrayView whole = QByteArrayView(m_bytes).sliced(begin, end - begin);
    const qsizetype from = Behind(whole, " 0 obj\n");
    const qsizetype to = whole.lastIndexOf("\nendobj");
    if (to < from)
        FailUnread();
    return whole.sliced(from, to - from);
}

int PlainPdf::FindPage() const
{
    for (std::size_t i = 0; i < m_begins.size(); ++i) {
        const int object = static_cast<int>(i) + 1;
        if (m_begins[i] > 0 && BodyOf(object).startsWith("<< /Type /Page "))
            return object;
    }
    FailUnread();
}

int PlainPdf::ReferenceIn(QByteArrayView page, QByteArrayView entry) const
{
    qsizetype at = Behind(page, entry);
    if (ReferenceLength(page, at) == 0)
        FailUnread();
    return static_cast<int>(TakeNumber(page, at));
}

int PlainPdf::AddPageAsForm(PdfFile& file, const QByteArray& entries) const
{
    const QByteArrayView page = BodyOf(FindPage());
    const auto [operatorsHead, operators] = SplitStream(BodyOf(ReferenceIn(page, "/Contents ")));
    const int resources = ReferenceIn(page, "/Resources ");
    if (!operatorsHead.startsWith("<<") || operators.isEmpty())
        FailUnread();

    Copier copier(file);
    std::map<int, QByteArray> copies;
    const QByteArray form = "<</Type/XObject/Subtype/Form" + entries + "/Resources " +
                            PdfReference(copier.NumberOf(resources)) +
                            copier.Renumbered(operatorsHead.sliced(2)) + operators.toByteArray();
    while (const int object = copier.TakeWaiting()) {
        const auto [head, stream] = SplitStream(BodyOf(object));
        copies[copier.NumberOf(object)] = copier.Renumbered(head) + stream.toByteArray();
    }
    for (const auto& [number, body] : copies)
        file.Write(number, body);
    return file.Add(form);
}

} // namespace vantrel
