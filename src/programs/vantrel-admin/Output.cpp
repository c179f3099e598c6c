#include "Output.h"
#include "base/Failure.h"
#include <QString>
#include <cstdio>

namespace vantrel::admin {

namespace {
[[noreturn]] void FailAsUnwritable()
{
    throw Failure(FailureNumber::PathNotFound, QStringLiteral("The output cannot be written."));
}
} // namespace

void WriteOutput(const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size)
        FailAsUnwritable();
}

void FlushOutput()
{
    if (std::fflush(stdout) != 0)
        FailAsUnwritable();
}

} // namespace vantrel::admin
