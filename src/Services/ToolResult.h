#pragma once

#include "Models/JsonObject.h"

#include <QByteArray>

/// What a tool call's JSON-RPC answer carries: the result's "structuredContent", else the whole
/// "result", else an empty object. Throws McpError when the body is no JSON object, reports an
/// error or holds more than any list of flights. Safe to call from any thread.
JsonObject readToolResult(const QByteArray &body);
