#pragma once

#include <QByteArray>

// An environment variable for the length of a test, put back as it was afterwards. A null value
// takes the variable away.
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char *variable, const QByteArray &value) : name(variable)
    {
        wasSet = qEnvironmentVariableIsSet(name);
        former = qgetenv(name);
        assign(!value.isNull(), value);
    }
    ~ScopedEnvironment() { assign(wasSet, former); }
    ScopedEnvironment(const ScopedEnvironment &) = delete;
    ScopedEnvironment &operator=(const ScopedEnvironment &) = delete;

private:
    void assign(bool isSet, const QByteArray &value)
    {
        if (isSet)
            qputenv(name, value);
        else
            qunsetenv(name);
    }

    const char *name;
    bool wasSet;
    QByteArray former;
};
