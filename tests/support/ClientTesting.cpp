#include "support/ClientTesting.h"

VTRMCPClient &VTRMCPClientTestAccess::replaceShared(const QUrl &endpoint, const HttpLimits &limits)
{
    destroyShared();
    VTRMCPClient::instance().reset(new VTRMCPClient(endpoint, limits));
    return VTRMCPClient::shared();
}

void VTRMCPClientTestAccess::destroyShared() { VTRMCPClient::instance().reset(); }
