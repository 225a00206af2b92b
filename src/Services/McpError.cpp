#include "Services/McpError.h"

#include "Services/PlatformErrorText.h"

McpError McpError::current()
{
    try {
        throw;
    } catch (const McpError &error) {
        return error;
    } catch (...) {
        return { Domain::Internal, -1, PlatformErrorText::unexpected() };
    }
}

McpError McpError::asFinal() const
{
    if (m_domain == Domain::Client
        || m_localizedDescription == PlatformErrorText::applicationQuits())
        return *this;
    return { m_domain, m_code, PlatformErrorText::final(m_localizedDescription) };
}
