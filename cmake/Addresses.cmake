# The two addresses the product knows.

set(VANTORA_MCP_ENDPOINT "https://mcp.vantora-air.example/mcp" CACHE STRING
    "The airline's MCP endpoint: https, or http on a loopback address")
set(VANTORA_WEB_SITE "https://www.vantora-air.example" CACHE STRING
    "The airline's public web site: base of the booking links")

# The client itself refuses what is neither https nor http on a loopback address, at its start.
foreach(address VANTORA_MCP_ENDPOINT VANTORA_WEB_SITE)
  if(NOT ${address} MATCHES "^https?://[^/@ ]+(/[^ ]*)?$")
    message(FATAL_ERROR "${address} is \"${${address}}\": it must be an http(s) address.")
  endif()
endforeach()
