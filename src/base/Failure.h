#pragma once

#include <QString>
#include <exception>

namespace vantrel {

/// The numbers by which a routine tells what failed. They are seen by the operator (as the title of
/// the box a failed save shows), so they are those of the original run-time and its store.
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

/// The one way the engine fails. Whoever may fail with it says so in its doc comment; `Skip` passes
/// over it, and what passes nothing over lets it reach its caller.
class Failure : public std::exception
{
public:
    Failure(int number, QString text, QString source = {});

    int Number() const { return m_number; }
    const QString& Text() const { return m_text; }
    /// The routine that says it failed, where that is part of what it tells; else empty.
    const QString& Source() const { return m_source; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QString m_source;
    QByteArray m_what;
};

} // namespace vantrel
