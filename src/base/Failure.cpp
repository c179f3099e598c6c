#include "base/Failure.h"

namespace vantrel {

Failure::Failure(int number, QString text, QString source)
    : m_number(number), m_text(std::move(text)), m_source(std::move(source)),
      m_what(m_text.toUtf8())
{}

} // namespace vantrel
