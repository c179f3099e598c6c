#pragma once

#include <QString>

namespace vantrel {

/// The input of one connection or serial port, from which records are cut one after the other. A
/// record reaches from a start delimiter to the next end delimiter behind it, both included; what
/// stands before a start delimiter is dropped. Delimiters are searched decoded, as framing finds
/// them. Cutting takes linear time however many pieces arrive and records they hold.
class RecordCutter
{
public:
    /// Sets the delimiters as they are in the settings, with their codes. If they change, what
    /// waits is searched again.
    void SetDelimiters(const QString& dataStart, const QString& dataEnd);
    /// Appends characters.
    void Append(const QString& characters);

    /// Whether a complete record waits.
    bool HasRecord();
    /// Takes the first complete record, with its delimiters; there must be one.
    QString TakeRecord();

    /// The characters that wait. If no complete record waits, these are the beginning of a record,
    /// or of its start delimiter, and the text is shared: drop it before the next `Append`, which
    /// would copy all of it.
    const QString& Text() const { return m_text; }
    /// Drops what is not part of a complete record. @return the number of characters dropped
    qsizetype DropIncomplete();

private:
    bool Find();
    void ForgetBefore(qsizetype place);
    void Restart();

    /// As set, to notice a change.
    QString m_startSetting;
    QString m_endSetting;
    /// Decoded.
    QString m_dataStart;
    QString m_dataEnd;

    QString m_text;
    /// Everything before this place is taken or dropped. It is 0 if no complete record waits.
    qsizetype m_head = 0;
    /// Where the next search continues.
    qsizetype m_from = 0;
    /// Where the first record begins, and the place behind its end; negative if not found.
    qsizetype m_start = -1;
    qsizetype m_end = -1;
};

} // namespace vantrel
