#pragma once

#include <QByteArray>

/// Sets a variable of the environment for as long as it lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const QByteArray& value) : m_name(name), m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentVariable() { qputenv(m_name, m_before); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    const char* m_name;
    QByteArray m_before;
};
