#pragma once

#include <cups/cups.h>
#include <memory>

namespace vantrel {

/// Frees a request or an answer of libcups.
struct CupsMessageDeleter
{
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using CupsMessage = std::unique_ptr<ipp_t, CupsMessageDeleter>;

/// Whether there is an answer at all that does not refuse its request.
inline bool IsGranted(const CupsMessage& answer)
{
    return answer && ippGetStatusCode(answer.get()) < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

} // namespace vantrel
