#pragma once

#include <QString>
#include <exception>

namespace vantrel {

/// Numbers that identify what failed. Operators see them, as in the title of the message box after
/// a failed save, so their values are fixed.
namespace FailureNumber {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int PathNotFound = 76;
inline constexpr int ObjectNotSet = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoSuchElement = 340;
inline constexpr int PropertyNotSupported = 438;
inline constexpr int InvalidPicture = 481;
inline constexpr int PrinterError = 482;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int ItemNotFound = 3265;
inline constexpr int ObjectClosed = 3704;
inline constexpr int IniFilenameNotSet = 3147000;
inline constexpr int StatementInvalid = -2147217900;
inline constexpr int StoreBusy = -2147467259;
} // namespace FailureNumber

/// The only exception type the engine throws. A routine that may throw it says so in its doc
/// comment. `Skip` catches it so that the next step runs.
class Failure : public std::exception
{
public:
    /// @param number  one of `FailureNumber`
    /// @param text  the message, in English
    Failure(int number, QString text, QString source = {});

    /// One of `FailureNumber`.
    int Number() const { return m_number; }
    const QString& Text() const { return m_text; }
    /// Name of the failing routine if it is part of the report; otherwise empty.
    const QString& Source() const { return m_source; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QString m_source;
    QByteArray m_what;
};

} // namespace vantrel
