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
