# The two addresses the product knows.

set(VANTORA_MCP_ENDPOINT "https://mcp.vantora-air.example/mcp" CACHE STRING
    "The airline's MCP endpoint: https, or http on a loopback address")
set(VANTORA_WEB_SITE "https://www.vantora-air.example" CACHE STRING
    "The airline's public web site: base of the booking links")

set(loopback_http "^http://(localhost|127\\.[0-9]+\\.[0-9]+\\.[0-9]+|\\[::1\\])(:[0-9]+)?(/.*)?$")
if(NOT VANTORA_MCP_ENDPOINT MATCHES "^https://[^/@ ]+(/[^ ]*)?$"
   AND NOT VANTORA_MCP_ENDPOINT MATCHES "${loopback_http}")
  message(FATAL_ERROR
    "VANTORA_MCP_ENDPOINT is \"${VANTORA_MCP_ENDPOINT}\": it must be https, "
    "or http on a loopback address (localhost, 127.x.x.x, [::1]).")
endif()
if(NOT VANTORA_WEB_SITE MATCHES "^https?://[^/@ ]+(/[^ ]*)?$")
  message(FATAL_ERROR "VANTORA_WEB_SITE is \"${VANTORA_WEB_SITE}\": it must be an http(s) address.")
endif()
