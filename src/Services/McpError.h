#pragma once

#include <QByteArray>
#include <QException>
#include <QString>

/// The one way in which a request to the server fails.
class McpError : public QException
{
public:
    enum class Domain {
        Client, ///< the protocol: "VTRMCPClient"
        Network, ///< no usable HTTP answer arrived; the code is a CURLcode, or -1
        Json, ///< the answer is no JSON document; the code is a QJsonParseError::ParseError
        Internal, ///< the program itself failed, for example out of memory
    };

    McpError(Domain domain, int code, const QString &localizedDescription)
        : m_domain(domain)
        , m_code(code)
        , m_localizedDescription(localizedDescription)
        , m_utf8(localizedDescription.toUtf8())
    { }

    /// The exception that is being handled, to be called in a handler: itself when it is an
    /// McpError, or else one of the domain Internal.
    static McpError current();
    /// What is thrown when nothing more is tried after it: another advice for the same failure.
    McpError asFinal() const;

    Domain domain() const { return m_domain; }
    /// For a protocol error the HTTP status of a failed "initialize", else -1.
    int code() const { return m_code; }
    /// What a person reads.
    QString localizedDescription() const { return m_localizedDescription; }

    const char *what() const noexcept override { return m_utf8.constData(); }
    void raise() const override { throw *this; }
    McpError *clone() const override { return new McpError(*this); }

private:
    Domain m_domain;
    int m_code;
    QString m_localizedDescription;
    QByteArray m_utf8;
};
