#include "platform/desktop/SessionBus.h"

#include <QFile>

void startNoSessionBus()
{
    const bool isNamed = !qEnvironmentVariableIsEmpty(addressVariable);
    if (!isNamed && !QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QLatin1StringView("/bus")))
        qputenv(addressVariable, noAddress);
}
